#pragma once

#include "texts/messages.h"

namespace korvel::inspector {

/// Why the operating system refused a file, from its error number. Its own texts follow the locale and not
/// the language of the process.
///
///     Say(SystemReason(ENOENT))   -> "no such file"
Message SystemReason(int error);

} // namespace korvel::inspector
