#include "korvel/platform/user_folders.h"

#include "korvel/platform/environment.h"

#include <pwd.h>
#include <unistd.h>

namespace korvel::platform {
namespace {

constexpr const char* OwnFolder = "korvel";

std::filesystem::path HomeFolder() {
    std::filesystem::path home = internal::EnvironmentValue("HOME");
    if (home.empty()) {
        const passwd* user = getpwuid(geteuid());
        home = user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
    }
    return home;
}

} // namespace

// The names and defaults are those of the XDG base directories, which also want relative paths ignored.

std::filesystem::path UserConfigFolder() {
    std::filesystem::path folder = internal::EnvironmentValue("XDG_CONFIG_HOME");
    if (!folder.is_absolute()) {
        const std::filesystem::path home = HomeFolder();
        if (home.empty())
            return {};
        folder = home / ".config";
    }
    return folder / OwnFolder;
}

std::filesystem::path MachineConfigFolder() {
    const std::string folders = internal::EnvironmentValue("XDG_CONFIG_DIRS");
    std::filesystem::path first = folders.substr(0, folders.find(':'));
    if (!first.is_absolute())
        first = "/etc/xdg";
    return first / OwnFolder;
}

} // namespace korvel::platform
