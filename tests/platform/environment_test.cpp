#include "korvel/platform/user_folders.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

namespace korvel::platform {
namespace {

TEST(UserFolders, FollowTheEnvironment) {
    const ScratchVariable home("HOME", "/home/someone");
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {nullptr, nullptr, "/home/someone/.config/korvel", "/etc/xdg/korvel/settings.sqlite"},
        {"/config", "/first:/second", "/config/korvel", "/first/korvel/settings.sqlite"},
        {"relative", "relative:/second", "/home/someone/.config/korvel", "/etc/xdg/korvel/settings.sqlite"}};
    for (const auto& [configHome, configFolders, user, machineStore] : rows) {
        const ScratchVariable config("XDG_CONFIG_HOME", configHome);
        const ScratchVariable folders("XDG_CONFIG_DIRS", configFolders);
        EXPECT_EQ(UserConfigFolder(), user);
        EXPECT_EQ(StorePath(SettingsRoot::Machine), machineStore);
    }
}

} // namespace
} // namespace korvel::platform
