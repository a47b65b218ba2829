#include "korvel/platform/file_error.h"

#include "korvel/platform/code_page.h"

#include <system_error>

namespace korvel {

FileError::FileError(const std::filesystem::path& file, int systemReason)
    : Error(platform::FromUtf8(file.string() + ": " + std::generic_category().message(systemReason)).text),
      m_systemReason(systemReason) {}

} // namespace korvel
