#pragma once

#include "program/options.h"

#include <string>

namespace korvel::inspector {

/// Shows the inspector's window until it is closed; with a picture to write, or with no screen, writes a
/// picture of it instead. A notice (UTF-8; may be empty) is shown first. Returns the exit status. Throws
/// DocumentError, UsageError and Error.
int RunOnDesktop(const Options& options, const std::string& notice);

} // namespace korvel::inspector
