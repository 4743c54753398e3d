#pragma once

#include <QString>

#include "platform/file_notice.h"

namespace quorvale {

/// What the files did besides what was asked, as a sentence for the user; empty for what needs no
/// word.
QString wordsForNotice(FileNotice::Kind what, const QString& name, const QString& keptAs);

}  // namespace quorvale
