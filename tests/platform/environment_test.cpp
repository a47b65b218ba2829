#include "platform/scratch.h"
#include "platform/user_folders.h"

#include <gtest/gtest.h>

namespace korvel::platform {
namespace {

TEST(UserFolders, FollowTheEnvironment) {
    const ScratchVariable home("HOME", "/home/someone");
    const ScratchVariable noConfig("XDG_CONFIG_HOME", nullptr);
    const ScratchVariable noFolders("XDG_CONFIG_DIRS", nullptr);
    EXPECT_EQ(UserConfigFolder(), "/home/someone/.config/korvel");
    EXPECT_EQ(MachineConfigFolder(), "/etc/xdg/korvel");
    EXPECT_EQ(StorePath(SettingsRoot::Machine), "/etc/xdg/korvel/settings.sqlite");
    {
        const ScratchVariable config("XDG_CONFIG_HOME", "/config");
        const ScratchVariable folders("XDG_CONFIG_DIRS", "/first:/second");
        EXPECT_EQ(UserConfigFolder(), "/config/korvel");
        EXPECT_EQ(MachineConfigFolder(), "/first/korvel");
    }
    const ScratchVariable config("XDG_CONFIG_HOME", "relative");
    const ScratchVariable folders("XDG_CONFIG_DIRS", "relative:/second");
    EXPECT_EQ(UserConfigFolder(), "/home/someone/.config/korvel") << "a relative folder does not count";
    EXPECT_EQ(MachineConfigFolder(), "/etc/xdg/korvel");
}

} // namespace
} // namespace korvel::platform
