#include "korvel/values/registry.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/registered_messages.h"
#include "korvel/window/core/window.h"
#include "support/scratch.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace korvel {
namespace {

TEST(ModuleState, AGuardPutsBackWhatWasThere) {
    const platform::ScratchStore store; // names no language: none is chosen for the other tests
    CWinApp host;
    SetHostApp(&host);
    {
        const ModuleStateGuard outer;
        { const ModuleStateGuard inner; }
        EXPECT_EQ(GetModuleState().app, &GetModuleApp());
    }
    EXPECT_EQ(GetModuleState().app, &host);
    SetHostApp(nullptr);
    EXPECT_EQ(GetModuleState().app, nullptr);
}

TEST(Application, StartsWithoutALanguageAndReadsTheOneThatIsNamedLater) {
    using namespace platform;
    const ScratchStore stores;
    CKorvelCommonDialogsApp app;
    for (const char* language : {"", "German"}) {
        if (*language) {
            CreateKey(SettingsRoot::User, RegistryPath);
            WriteSetting(SettingsRoot::User, RegistryPath, "Language", SettingValue::Text(language));
        }
        EXPECT_EQ(app.InitInstance(), 1);
        EXPECT_EQ(app.GetLanguageName(), language);
    }
}

TEST(RegisteredMessages, AreKnownByTheirNamesWhateverTheirCase) {
    EXPECT_GE(WM_HISTORY, 0xC000u);
    EXPECT_NE(WM_HISTORY, WM_HISTORY_ROLLBACK);
    EXPECT_EQ(RegisterWindowMessageA("wm_history"), WM_HISTORY);
    EXPECT_EQ(RegisterWindowMessageA(""), 0u);
    EXPECT_EQ(RegisterWindowMessageA(nullptr), 0u);
}

// In a process of its own, which has no number left at the end.
TEST(RegisteredMessages, EndWithTheLastNumber) {
    const auto registerAll = [] {
        UINT last = 0;
        int count = 0;
        for (UINT number = 1; number != 0 && count <= 0x10000; last = std::max(last, number))
            number = RegisterWindowMessageA(std::to_string(++count).c_str());
        const bool isKnown = RegisterWindowMessageA("1") >= 0xC000 && RegisterWindowMessageA("WM_HISTORY");
        std::_Exit(last == 0xFFFF && isKnown && RegisterWindowMessageA("one more") == 0 ? 0 : 1);
    };
    EXPECT_EXIT(registerAll(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace korvel
