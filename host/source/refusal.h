#pragma once

#include "texts/messages.h"

namespace korvel::inspector {

/// Throws Error with the reason why an edit is refused, in the language of the process.
[[noreturn]] void Refuse(const Message& reason);

} // namespace korvel::inspector
