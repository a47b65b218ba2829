#include "../platform/scratch.h"
#include "platform/error.h"
#include "values/registry.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

constexpr ERegistryRoot User = ERegistryRoot::CurrentUser;

class Registry : public ::testing::Test {
protected:
    Registry() { platform::CreateKey(platform::SettingsRoot::User, "A\\B"); }

    template <typename Call>
    static std::string FailureOf(Call call) {
        try {
            call();
        } catch (const Error& error) {
            return error.what();
        }
        return "no failure";
    }

private:
    platform::ScratchStore m_store;
};

TEST_F(Registry, WhatIsWrittenIsRead) {
    WriteRegistry(User, "A\\B", "New", "name", "t\xE4xt");
    EXPECT_EQ(ReadRegistry(User, "A\\B", "New", "name"), "t\xE4xt");
    WriteRegistry(User, "A\\B\\New", "", "name", "");
    EXPECT_EQ(ReadRegistry(User, "A", "B\\New", "name"), "");
}

TEST_F(Registry, ReadsUpToAZeroByteOfAnyValue) {
    platform::WriteSetting(platform::SettingsRoot::User, "A", "text",
                           platform::SettingValue::Text(std::string("ab\0cd", 5)));
    platform::WriteSetting(platform::SettingsRoot::User, "A", "number",
                           platform::SettingValue::Number(0x4241));
    EXPECT_EQ(ReadRegistry(User, "A", "", "text"), "ab");
    EXPECT_EQ(ReadRegistry(User, "A", "", "number"), "AB");
}

TEST_F(Registry, FailuresNameWhatIsMissing) {
    EXPECT_EQ(FailureOf([] { ReadRegistry(User, "A\\X", "Y", "name"); }),
              "Registriepfad <A\\X> konnte nicht ge\xF6"
              "ffnet werden");
    EXPECT_EQ(FailureOf([] { ReadRegistry(User, "A", "B", "na$2me"); }),
              "Auslesen der Registrievariable <na$2me> schlug fehl");
    EXPECT_EQ(FailureOf([] { WriteRegistry(User, "A\\X", "Y", "name", "text"); }),
              "Registriepfad <A\\X> konnte nicht ge\xF6"
              "ffnet werden");
    EXPECT_EQ(platform::CheckKey(platform::SettingsRoot::User, "A\\X", platform::SettingsAccess::Read),
              platform::SettingsStatus::KeyMissing);
}

} // namespace
} // namespace korvel
