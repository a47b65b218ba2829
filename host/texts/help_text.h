#pragma once

namespace korvel::inspector {

/// The text of `--help`, in UTF-8 and in the language of the process.
const char* HelpText();

} // namespace korvel::inspector
