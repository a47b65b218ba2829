#include "korvel/platform/user_folders.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

namespace korvel::platform {
namespace {

TEST(UserFolders, FollowTheEnvironment) {
    struct Row {
        const char* config;
        const char* folders;
        const char* user;
        const char* machine;
    };
    const ScratchVariable home("HOME", "/home/someone");
    for (const Row& row :
         {Row{nullptr, nullptr, "/home/someone/.config/korvel", "/etc/xdg/korvel"},
          Row{"/config", "/first:/second", "/config/korvel", "/first/korvel"},
          Row{"relative", "relative:/second", "/home/someone/.config/korvel", "/etc/xdg/korvel"}}) {
        const ScratchVariable config("XDG_CONFIG_HOME", row.config);
        const ScratchVariable folders("XDG_CONFIG_DIRS", row.folders);
        EXPECT_EQ(UserConfigFolder(), row.user);
        EXPECT_EQ(StorePath(SettingsRoot::Machine), std::string(row.machine) + "/settings.sqlite");
    }
}

} // namespace
} // namespace korvel::platform
