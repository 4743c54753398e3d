#pragma once

#include <QString>

namespace quorvale {

/// Why the viewer cannot show this file, as a sentence for the user; empty when it can. Looks at
/// the file without opening it, so that nothing waits: a missing name, a directory, a FIFO or a
/// device, a file without permission or of more than 2 GiB is refused.
QString whyNotOpenable(const QString& fileName);

}  // namespace quorvale
