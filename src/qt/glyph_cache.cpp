#include "qt/glyph_cache.h"

#include <QChar>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "qt/code_points.h"
#include "qt/conversions.h"

namespace quorvale {

namespace {

constexpr quint16 regularFont = 0;
constexpr quint16 boldFont = 1;

/// Advances are whole 64ths of a pixel: sums of them are exact, in whatever order they are added.
Twips exactAdvance(double pixels) { return toTwips(std::round(pixels * 64) / 64); }

QString asString(char32_t character) { return QString::fromUcs4(&character, 1); }

bool isCombining(char32_t character) {
    const QChar::Category category = QChar::category(character);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing;
}

/// Characters that fonts leave out or draw as nothing at all. A reader of files wants to know that
/// they are there.
bool isInvisible(char32_t character) {
    constexpr char32_t softHyphen = 0xAD;
    switch (QChar::category(character)) {
        case QChar::Other_Control:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return true;
        case QChar::Other_Format:
            return character != softHyphen;
        default:
            return false;
    }
}

bool isBlank(char32_t character) { return QChar::category(character) == QChar::Separator_Space; }

QFont withBold(const QFont& face, bool bold) {
    QFont font = face;
    font.setBold(bold);
    return font;
}

}  // namespace

GlyphCache::GlyphCache(const QFont& face) {
    regular_.Face = withBold(face, false);
    bold_.Face = withBold(face, true);
    fonts_.push_back(QRawFont::fromFont(regular_.Face));
    fonts_.push_back(QRawFont::fromFont(bold_.Face));
    height_ = toTwips(std::ceil(QFontMetricsF(regular_.Face).height()));
    ascent_ = fonts_[regularFont].ascent();
    for (char32_t character = 0; character < narrow_.size(); ++character) {
        narrow_[character] = regular(character).Advance;
    }
}

const Glyph& GlyphCache::regular(char32_t character) {
    Glyph& glyph = entry(regular_, character);
    if (!glyph.Known) glyph = lookUp(regular_, character);
    return glyph;
}

const Glyph& GlyphCache::bold(char32_t character) {
    Glyph& glyph = entry(bold_, character);
    if (!glyph.Known) {
        glyph = lookUp(bold_, character);
        glyph.Advance = regular(character).Advance;
    }
    return glyph;
}

Glyph& GlyphCache::entry(Weight& weight, char32_t character) {
    if (character > 0xFFFF) return weight.Others[character];
    std::unique_ptr<Page>& page = weight.Pages[character >> 8];
    if (!page) page = std::make_unique<Page>();
    return (*page)[character & 0xFF];
}

Glyph GlyphCache::lookUp(const Weight& weight, char32_t character) {
    const quint16 own = &weight == &bold_ ? boldFont : regularFont;
    if (isInvisible(character)) return box(own);
    Glyph glyph = inFont(own, character);
    if (!glyph.Known) glyph = inFallback(weight, character);
    if (!glyph.Known) return box(own);
    if (isCombining(character)) {
        glyph.Back = static_cast<float>(glyph.Advance);
        glyph.Advance = 0;
    } else if (glyph.Advance <= 0) {
        glyph.Advance = box(own).Advance;
    }
    glyph.Empty = isBlank(character);
    return glyph;
}

Glyph GlyphCache::inFont(quint16 font, char32_t character) const {
    const QRawFont& raw = fonts_[font];
    const QList<quint32> indexes = raw.glyphIndexesForString(asString(character));
    Glyph glyph;
    if (indexes.isEmpty() || indexes.first() == 0) return glyph;
    glyph.Index = indexes.first();
    glyph.Font = font;
    glyph.Known = true;
    glyph.Advance = exactAdvance(raw.advancesForGlyphIndexes({glyph.Index}).value(0).x());
    return glyph;
}

Glyph GlyphCache::inFallback(const Weight& weight, char32_t character) {
    QTextLayout layout(asString(character), weight.Face);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    for (const QGlyphRun& run : layout.glyphRuns()) {
        const Glyph glyph = inFont(numberOf(run.rawFont()), character);
        if (glyph.Known) return glyph;
    }
    return {};
}

Glyph GlyphCache::box(quint16 font) const {
    Glyph glyph;
    glyph.Font = font;
    glyph.Known = true;
    const QRawFont& raw = fonts_[font];
    glyph.Advance = exactAdvance(raw.advancesForGlyphIndexes({glyph.Index}).value(0).x());
    if (glyph.Advance <= 0) glyph.Advance = exactAdvance(raw.pixelSize() / 2);
    return glyph;
}

quint16 GlyphCache::numberOf(const QRawFont& font) {
    const auto found = std::find(fonts_.begin(), fonts_.end(), font);
    const auto number = static_cast<quint16>(found - fonts_.begin());
    if (found == fonts_.end()) fonts_.push_back(font);
    return number;
}

Twips GlyphCache::advanceAt(std::u16string_view text, std::size_t at, std::size_t& units) {
    const char16_t unit = text[at];
    units = 1;
    if (unit < narrow_.size()) return narrow_[unit];
    const CodePoint point = codePointAt(text, at);
    units = point.Units;
    return regular(point.Value).Advance;
}

Twips GlyphCache::width(std::u16string_view text) {
    // Four sums beside one another: an addition need not wait for the one before it.
    std::array<Twips, 4> sums{};
    std::size_t at = 0;
    while (at < text.size()) {
        if (at + 4 <= text.size()) {
            const char16_t* four = text.data() + at;
            if (((four[0] | four[1] | four[2] | four[3]) >> 8) == 0) {
                for (std::size_t i = 0; i < 4; ++i) sums[i] += narrow_[four[i]];
                at += 4;
                continue;
            }
        }
        std::size_t units = 1;
        sums[0] += advanceAt(text, at, units);
        at += units;
    }
    return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

}  // namespace quorvale
