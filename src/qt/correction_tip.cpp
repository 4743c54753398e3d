#include "qt/correction_tip.h"

#include <QCoreApplication>
#include <algorithm>

#include "qt/conversions.h"

namespace quorvale {

namespace {

constexpr std::size_t mostLines = 12;
constexpr qsizetype longestLine = 160;

QString tr(const char* text, int count = -1) {
    return QCoreApplication::translate("CorrectionTip", text, nullptr, count);
}

QString shortened(const std::u16string& line) {
    QString text = toQString(line);
    if (text.size() > longestLine) text = text.left(longestLine) + u'\u2026';
    return text.toHtmlEscaped();
}

QString headOf(const HostCorrections::Correction& correction) {
    if (correction.Lines.empty()) return tr("Will be removed");
    return correction.LineCount == 1 ? tr("Will become")
                                     : tr("%1 lines will become").arg(correction.LineCount);
}

}  // namespace

QString correctionTip(const HostCorrections::Correction& correction) {
    QString tip = "<p>" + headOf(correction) + "</p><pre>";
    const std::size_t shown = std::min(correction.Lines.size(), mostLines);
    for (std::size_t i = 0; i < shown; ++i) tip += shortened(correction.Lines[i]) + u'\n';
    if (shown < correction.Lines.size()) tip += u'\u2026';
    return tip + "</pre>";
}

}  // namespace quorvale
