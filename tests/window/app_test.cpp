#include "korvel/values/registry.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/registered_messages.h"
#include "korvel/window/core/window.h"
#include "support/scratch.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace korvel {
namespace {

TEST(ModuleState, AGuardPutsBackWhatWasThereAlsoWhenItIsLeftByAnException) {
    CWinApp host;
    SetHostApp(&host);
    try {
        const ModuleStateGuard outer;
        { const ModuleStateGuard inner; }
        EXPECT_EQ(GetModuleState().app, &GetModuleApp());
        throw std::runtime_error("left");
    } catch (const std::runtime_error&) {
        EXPECT_EQ(GetModuleState().app, &host);
    }
    SetHostApp(nullptr);
    EXPECT_EQ(GetModuleState().app, nullptr);
}

TEST(Application, StartsWithoutALanguageAndReadsTheOneThatIsNamedLater) {
    const platform::ScratchStore user;
    const platform::ScratchFolder machine;
    platform::SetStorePath(platform::SettingsRoot::Machine, machine.Path() / "settings.sqlite");
    CKorvelCommonDialogsApp app;
    EXPECT_EQ(app.InitInstance(), 1);
    EXPECT_EQ(app.GetLanguageName(), "");
    platform::CreateKey(platform::SettingsRoot::User, RegistryPath);
    platform::WriteSetting(platform::SettingsRoot::User, RegistryPath, "Language",
                           platform::SettingValue::Text("German"));
    EXPECT_EQ(app.InitInstance(), 1);
    EXPECT_EQ(app.GetLanguageName(), "German");
    platform::SetStorePath(platform::SettingsRoot::Machine, {});
}

TEST(RegisteredMessages, AreKnownByTheirNamesWhateverTheirCase) {
    EXPECT_GE(WM_HISTORY, 0xC000u);
    EXPECT_NE(WM_HISTORY, WM_HISTORY_ROLLBACK);
    EXPECT_EQ(RegisterWindowMessageA("wm_history"), WM_HISTORY);
    EXPECT_EQ(RegisterWindowMessageA(""), 0u);
    EXPECT_EQ(RegisterWindowMessageA(nullptr), 0u);
}

} // namespace
} // namespace korvel
