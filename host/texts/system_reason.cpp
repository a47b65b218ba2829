#include "texts/system_reason.h"

#include <cerrno>

namespace korvel::inspector {

Message SystemReason(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return "no such file";
    case EACCES:
    case EPERM:
        return "no permission";
    case EEXIST:
        return "another file has that name";
    case EINVAL:
        return "is no ordinary file";
    case EISDIR:
        return "is a folder";
    case EROFS:
        return "it can only be read there";
    case EIO:
        return "the device reports an error";
    case ENOSPC:
    case EDQUOT:
        return "there is no room left";
    case ELOOP:
        return "a link leads back to itself";
    case ENAMETOOLONG:
        return "its name is too long";
    case EMFILE:
    case ENFILE:
        return "too many files are open";
    default:
        return {"the system reports error %1", {std::to_string(error)}};
    }
}

} // namespace korvel::inspector
