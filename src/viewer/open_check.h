#pragma once

#include <QString>

namespace quorvale {

/// The control appends a line break, and the place behind it has to fit into 31 bits.
inline constexpr qint64 mostDocumentBytes = (qint64{1} << 31) - 4;

/// Why the viewer cannot show this file, as a sentence for the user; empty when it can. Looks at
/// the file without opening it, so that nothing waits: a missing name, a directory, a FIFO or a
/// device, a file without permission or of more than 2 GiB is refused.
QString whyNotOpenable(const QString& fileName);

/// Whether the file begins as UTF-16 text does, which is shown byte by byte: a correction would
/// destroy it.
bool beginsAsUtf16(const QString& fileName);

}  // namespace quorvale
