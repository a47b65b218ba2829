#include "korvel/platform/set_aside.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <vector>

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

fs::path WithSuffix(fs::path file, const std::string& suffix) {
    return file += suffix;
}

// By anything, also by a link to nothing.
bool IsTaken(const fs::path& name) {
    std::error_code ignored; // renaming fails for the same reason
    return fs::exists(fs::symlink_status(name, ignored));
}

// Zero, or the reason. Some file systems cannot refuse a name that is taken: there, looking first is all.
int RenameToFreeName(const fs::path& file, const fs::path& newName) {
    if (::renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, newName.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL)
        return errno;
    if (IsTaken(newName))
        return EEXIST;
    return ::rename(file.c_str(), newName.c_str()) == 0 ? 0 : errno;
}

// Renames all of them or none. Zero, or the reason.
int RenameAll(const fs::path& file, const fs::path& newName, const std::vector<std::string>& suffixes) {
    for (std::size_t i = 0; i < suffixes.size(); ++i) {
        const int error = RenameToFreeName(WithSuffix(file, suffixes[i]), WithSuffix(newName, suffixes[i]));
        const bool isMissing = error == ENOENT && !suffixes[i].empty();
        if (error == 0 || isMissing)
            continue;
        while (i-- > 0)
            RenameToFreeName(WithSuffix(newName, suffixes[i]), WithSuffix(file, suffixes[i]));
        return error;
    }
    return 0;
}

bool IsFree(const fs::path& name, const std::vector<std::string>& suffixes) {
    for (const std::string& suffix : suffixes)
        if (IsTaken(WithSuffix(name, suffix)))
            return false;
    return true;
}

} // namespace

fs::path SetFileAside(const fs::path& file, std::initializer_list<const char*> companions) {
    std::vector<std::string> suffixes(companions.begin(), companions.end());
    suffixes.emplace_back(); // the file last: a new one of its name would take the companions for its own
    int error = EEXIST;
    for (int number = 1; error == EEXIST; ++number) {
        fs::path name = WithSuffix(file, (number > 1 ? "." + std::to_string(number) : "") + ".damaged");
        if (!IsFree(name, suffixes))
            continue;
        error = RenameAll(file, name, suffixes);
        if (error == 0)
            return name;
    }
    throw Error(
        FromUtf8(file.string() + " cannot be renamed: " + std::generic_category().message(error)).text);
}

} // namespace korvel::platform
