#pragma once

#include <QString>

namespace quorvale {

/// Why the viewer cannot show this file, as a sentence for the user; empty when it can. Looks at
/// the file without opening it, so that nothing waits: a missing name, a directory, a FIFO or a
/// device, a file without permission or of more than 2 GiB is refused.
QString whyNotOpenable(const QString& fileName);

/// Whether the file begins as UTF-16 text does, which is shown byte by byte: a correction would
/// destroy it.
bool beginsAsUtf16(const QString& fileName);

}  // namespace quorvale
