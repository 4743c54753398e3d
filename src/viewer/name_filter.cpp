#include "viewer/name_filter.h"

#include <QStringList>
#include <algorithm>

namespace quorvale {

namespace {

bool isDigit(QChar unit) { return unit >= u'0' && unit <= u'9'; }

}  // namespace

NameFilter::NameFilter(const QString& patterns) {
    static const QRegularExpression between("[;,]");
    for (const QString& part : patterns.split(between)) {
        const QString pattern = part.trimmed();
        if (pattern.isEmpty()) continue;
        patterns_.emplace_back(QRegularExpression::wildcardToRegularExpression(pattern),
                               QRegularExpression::CaseInsensitiveOption);
        valid_ = valid_ && patterns_.back().isValid();
    }
}

bool NameFilter::admits(const QString& name) const {
    // No expression fits what is no text: there a "?" stands for each byte that is none.
    const QString text = name.isValidUtf16() ? name : QString::fromUtf8(name.toUtf8());
    return patterns_.empty() ||
           std::any_of(patterns_.begin(), patterns_.end(),
                       [&](const auto& pattern) { return pattern.match(text).hasMatch(); });
}

// A number begins with how many digits it has: more of them is more.
QString orderOf(const QString& name) {
    const QString folded = name.toCaseFolded();
    QString order;
    order.reserve(folded.size() + 2);
    for (qsizetype at = 0; at < folded.size();) {
        if (!isDigit(folded[at])) {
            order += folded[at++];
            continue;
        }
        while (at < folded.size() && folded[at] == u'0') ++at;
        qsizetype end = at;
        while (end < folded.size() && isDigit(folded[end])) ++end;
        order += u'0';
        order += QChar(static_cast<char16_t>(end - at));
        order += QStringView(folded).mid(at, end - at);
        at = end;
    }
    return order;
}

}  // namespace quorvale
