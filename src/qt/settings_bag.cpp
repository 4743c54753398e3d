#include "qt/settings_bag.h"

#include <QStringList>
#include <utility>

#include "qt/conversions.h"

namespace quorvale {

namespace {

/// Opens a group of the settings while it lives.
class OpenGroup {
public:
    OpenGroup(QSettings& settings, const QString& group)
        : settings_(settings), opened_(!group.isEmpty()) {
        if (opened_) settings_.beginGroup(group);
    }
    ~OpenGroup() {
        if (opened_) settings_.endGroup();
    }
    OpenGroup(const OpenGroup&) = delete;
    OpenGroup& operator=(const OpenGroup&) = delete;

private:
    QSettings& settings_;
    bool opened_;
};

/// The keys of the open group that are the same but for their case.
QStringList keysLike(const QSettings& settings, const QString& key) {
    QStringList found;
    for (const QString& stored : settings.childKeys()) {
        if (stored.compare(key, Qt::CaseInsensitive) == 0) found << stored;
    }
    return found;
}

/// Some formats keep numbers and truth as such.
Variant valueOf(const QVariant& stored) {
    switch (stored.userType()) {
        case QMetaType::QString:
            return ValueOfText(toUtf16(stored.toString()));
        case QMetaType::Bool:
            return stored.toBool();
        case QMetaType::Int:
            return static_cast<std::int32_t>(stored.toInt());
        case QMetaType::Double:
            return stored.toDouble();
        default:
            return {};
    }
}

}  // namespace

SettingsBag::SettingsBag(QSettings& settings, QString group)
    : settings_(settings), group_(std::move(group)) {}

Variant SettingsBag::Read(std::u16string_view key) {
    const OpenGroup open(settings_, group_);
    const QString wanted = toQString(key);
    const QStringList found = keysLike(settings_, wanted);
    if (found.isEmpty()) return {};
    return valueOf(settings_.value(found.contains(wanted) ? wanted : found.first()));
}

void SettingsBag::Write(std::u16string_view key, const Variant& value,
                        const Variant& defaultValue) {
    const OpenGroup open(settings_, group_);
    const QString wanted = toQString(key);
    for (const QString& stored : keysLike(settings_, wanted)) settings_.remove(stored);
    const std::u16string text = TextOfValue(value);
    const bool storable = !text.empty() || std::holds_alternative<std::u16string>(value);
    if (storable && value != defaultValue) settings_.setValue(wanted, toQString(text));
}

}  // namespace quorvale
