#pragma once

#include <QString>
#include <QTextDocument>
#include <string>
#include <string_view>

class QTextCursor;

namespace quorvale {

/// Texts go into a rich text document and come back without a changed character. Lines end with
/// CR LF on the control's side and are blocks of the document. Characters that the document would
/// take for something else (control characters but tab, a lone CR or LF, U+2028, U+2029 and a few
/// more) stand in it as visible signs that remember what they are; a sign that the user types is
/// just a sign.

/// Puts a text where the cursor is, over what is selected.
void insertText(QTextCursor& cursor, std::u16string_view text);

/// The whole document.
std::u16string textOf(const QTextDocument& document);

/// `text` was the whole document, of which everything from the place `from` on up to what is now
/// behind `added` characters has become other text: makes it the whole document again. Looks at
/// what has changed only.
void followChange(std::u16string& text, const QTextDocument& document, int from, int added);

/// What the cursor has selected.
std::u16string selectedTextOf(const QTextCursor& cursor);

}  // namespace quorvale
