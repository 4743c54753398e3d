#include "qt/editor_text.h"

#include <QTextBlock>
#include <QTextCursor>
#include <algorithm>
#include <optional>

#include "qt/conversions.h"

namespace quorvale {

namespace {

/// The format property that holds what a sign stands for.
constexpr int standsFor = QTextFormat::UserProperty + 1;
constexpr std::u16string_view lineEnd = u"\r\n";

/// The sign that shows a character which the document cannot hold as itself.
std::optional<char16_t> signOf(char16_t unit) {
    constexpr char16_t controlPictures = 0x2400;
    if (unit < 0x20 && unit != u'\t') return static_cast<char16_t>(controlPictures + unit);
    switch (unit) {
        case 0x2028:
            return u'\u21B5';
        case 0x2029:
            return u'\u00B6';
        case 0xFDD0:
        case 0xFDD1:
        case 0xFFFC:
            return u'\u25A1';
        default:
            return std::nullopt;
    }
}

/// Inserts the characters of one line.
void insertLine(QTextCursor& cursor, std::u16string_view line) {
    const QTextCharFormat plain;
    while (!line.empty()) {
        const auto special = std::find_if(line.begin(), line.end(),
                                          [](char16_t unit) { return signOf(unit).has_value(); });
        const auto before = static_cast<std::size_t>(special - line.begin());
        if (before > 0) cursor.insertText(toQString(line.substr(0, before)), plain);
        line.remove_prefix(before);
        if (line.empty()) return;
        QTextCharFormat format;
        format.setProperty(standsFor, static_cast<int>(line.front()));
        cursor.insertText(QString(QChar(*signOf(line.front()))), format);
        line.remove_prefix(1);
    }
}

/// Appends the characters of a stretch of one format that lie between two places of the document.
void append(std::u16string& text, const QTextFragment& fragment, int from, int end) {
    const int first = std::max(from, fragment.position());
    const int last = std::min(end, fragment.position() + fragment.length());
    if (first >= last) return;
    std::u16string part = toUtf16(fragment.text().mid(first - fragment.position(), last - first));
    const QVariant unit = fragment.charFormat().property(standsFor);
    if (unit.isValid()) {
        const auto original = static_cast<char16_t>(unit.toInt());
        std::replace(part.begin(), part.end(), signOf(original).value_or(original), original);
    }
    text += part;
}

/// The text between two places of the document.
std::u16string textBetween(const QTextDocument& document, int from, int end) {
    std::u16string text;
    const QTextBlock first = document.findBlock(from);
    for (QTextBlock block = first; block.isValid() && block.position() <= end;
         block = block.next()) {
        if (block != first) text += lineEnd;
        for (auto at = block.begin(); !at.atEnd(); ++at) append(text, at.fragment(), from, end);
    }
    return text;
}

/// How long the text in front of a place of the document is.
std::size_t unitsBefore(const QTextDocument& document, int place) {
    const int lines = document.findBlock(place).blockNumber();
    return static_cast<std::size_t>(place) + static_cast<std::size_t>(lines);
}

}  // namespace

void insertText(QTextCursor& cursor, std::u16string_view text) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    for (bool first = true;; first = false) {
        const std::size_t end = std::min(text.find(lineEnd), text.size());
        if (!first) cursor.insertBlock();
        insertLine(cursor, text.substr(0, end));
        if (end == text.size()) break;
        text.remove_prefix(end + lineEnd.size());
    }
    cursor.setCharFormat({});
    cursor.endEditBlock();
}

std::u16string textOf(const QTextDocument& document) {
    return textBetween(document, 0, document.characterCount());
}

// Every character takes one place, and the end of a block one instead of two units.
void followChange(std::u16string& text, const QTextDocument& document, int from, int added) {
    const int last = document.characterCount() - 1;
    const int end = std::min(from + added, last);
    const std::size_t size = unitsBefore(document, last);
    const std::size_t before = unitsBefore(document, from);
    const std::size_t behind = size - unitsBefore(document, end);
    if (before + behind <= text.size()) {
        text.replace(before, text.size() - behind - before, textBetween(document, from, end));
    }
    if (text.size() != size) text = textOf(document);
}

std::u16string selectedTextOf(const QTextCursor& cursor) {
    if (!cursor.hasSelection()) return {};
    return textBetween(*cursor.document(), cursor.selectionStart(), cursor.selectionEnd());
}

}  // namespace quorvale
