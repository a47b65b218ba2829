#pragma once

#include "program/kept_formats.h"

namespace korvel::inspector {

/// Shows the inspector's window until it is closed; with a picture to write, or with no screen, writes a
/// picture of it instead. The notice of the formats is shown first. Returns the exit status. Throws
/// DocumentError, UsageError and Error.
int RunOnDesktop(const Options& options, const TakenFormats& formats);

} // namespace korvel::inspector
