#pragma once

#include "options.h"

namespace korvel::inspector {

/// Shows the inspector's window until it is closed; with a picture to write, or with no screen, writes a
/// picture of it instead. Answers the exit status. Throws DocumentError, UsageError and Error.
int RunOnDesktop(const Options& options);

} // namespace korvel::inspector
