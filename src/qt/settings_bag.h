#pragma once

#include <QSettings>
#include <QString>

#include "platform/property_bag.h"
#include "qt/export.h"

namespace quorvale {

/// A bag in a group of the host's settings, an INI file for instance. Every value is a text that
/// keeps its type. Keys are compared without case, also where the settings are not; they hold no
/// slash. The settings may stand in a group of their own, which stays open.
class QUORVALE_WIDGET_EXPORT SettingsBag final : public PropertyBag {
public:
    /// The settings must outlive the bag. An empty group is the one that is open.
    SettingsBag(QSettings& settings, QString group);

    /// The value under the key as it is written, else under one that differs in case only. Empty
    /// for what is no value, such as a list.
    Variant Read(std::u16string_view key) override;
    /// Says nothing of a failure: the settings' own `status()` does, after their `sync()`.
    void Write(std::u16string_view key, const Variant& value, const Variant& defaultValue) override;

private:
    QSettings& settings_;
    QString group_;
};

}  // namespace quorvale
