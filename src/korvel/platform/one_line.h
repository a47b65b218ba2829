#pragma once

#include "korvel/platform/export.h"

#include <string>
#include <string_view>

namespace korvel::platform {

/// Appends a text so that it stays within one cell of a table as text: a tab, a line end (CR LF is one) and a
/// zero byte each become one blank.
///
///     AppendInOneLine(line, "two\r\nlines")   // appends "two lines"
KORVEL_API void AppendInOneLine(std::string& line, std::string_view text);

} // namespace korvel::platform
