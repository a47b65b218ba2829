#include "program/absolute_path.h"

#include <filesystem>
#include <system_error>

namespace korvel::inspector {

std::string AbsolutePath(const std::string& file) {
    std::error_code failure;
    const std::filesystem::path path = std::filesystem::absolute(file, failure);
    return failure ? file : path.string();
}

std::string CanonicalPath(const std::string& file) {
    std::error_code failure;
    // Of a file that does not exist, only an absolute path is followed.
    const std::filesystem::path path = AbsolutePath(file);
    const std::filesystem::path followed = std::filesystem::weakly_canonical(path, failure);
    return failure ? path.string() : followed.string();
}

} // namespace korvel::inspector
