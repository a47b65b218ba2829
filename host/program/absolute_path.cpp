#include "program/absolute_path.h"

#include <filesystem>
#include <system_error>

namespace korvel::inspector {

std::string AbsolutePath(const std::string& file) {
    std::error_code failure;
    const std::filesystem::path path = std::filesystem::absolute(file, failure);
    return failure ? file : path.string();
}

} // namespace korvel::inspector
