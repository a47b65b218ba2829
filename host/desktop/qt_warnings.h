#pragma once

namespace korvel::inspector {

/// For a run without a screen: what Qt misses there is expected, and would hide the messages that matter.
void DropQtWarnings();

} // namespace korvel::inspector
