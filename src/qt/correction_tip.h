#pragma once

#include <QString>

#include "control/host_corrections.h"

namespace quorvale {

/// What a tool tip says about a corrected row: the lines that will stand there, as they are. Long
/// lines and many lines are cut. As rich text that shows nothing but plain characters.
QString correctionTip(const HostCorrections::Correction& correction);

}  // namespace quorvale
