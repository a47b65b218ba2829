#pragma once

#include "source/reading_progress.h"

#include <string>
#include <string_view>

namespace korvel::inspector {

/// True for what begins like a file packed by gzip.
bool IsGzip(std::string_view bytes);

/// Unpacks one file, of one or more members. Returns null when it is whole, else why it is not; `unpacked`
/// holds what came before then. More than 1,000 times the packed size, or `longest` bytes, are refused.
const char* Unpack(std::string_view packed, std::size_t longest, std::string& unpacked,
                   ReadingProgress* progress = nullptr);

/// One file packed by gzip, without a time in it.
std::string Pack(std::string_view bytes);

} // namespace korvel::inspector
