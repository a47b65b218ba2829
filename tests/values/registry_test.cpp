#include "korvel/platform/error.h"
#include "korvel/values/registry.h"
#include "support/scratch.h"

#include <gmock/gmock.h>

namespace korvel {
namespace {

constexpr RegistryRoot User = RegistryRoot::CurrentUser;

TEST(Registry, ReadsWhatIsWrittenAndNamesWhatIsMissing) {
    using platform::SettingValue;
    const platform::ScratchStore store;
    platform::CreateKey(platform::SettingsRoot::User, "A\\B");
    WriteRegistry(User, "A\\B", "New", "name", "t\xE4xt");
    EXPECT_EQ(ReadRegistry(User, "A", "B\\New", "name"), "t\xE4xt");
    WriteRegistry(User, "A\\B\\New", "", "name", "");
    EXPECT_EQ(ReadRegistry(User, "A\\B\\New", "", "name"), "");
    platform::WriteSetting(platform::SettingsRoot::User, "A", "text", SettingValue::Text({"ab\0cd", 5}));
    platform::WriteSetting(platform::SettingsRoot::User, "A", "number", SettingValue::Number(0x4241));
    EXPECT_EQ(ReadRegistry(User, "A", "", "text"), "ab");
    EXPECT_EQ(ReadRegistry(User, "A", "", "number"), "AB");

    const auto cannotOpen = testing::ThrowsMessage<Error>("Registriepfad <A\\X> konnte nicht ge\xF6"
                                                          "ffnet werden");
    EXPECT_THAT([] { ReadRegistry(User, "A\\X", "Y", "name"); }, cannotOpen);
    EXPECT_THAT([] { WriteRegistry(User, "A\\X", "Y", "name", "text"); }, cannotOpen);
    EXPECT_THAT([] { ReadRegistry(User, "A", "B", "na$2me"); },
                testing::ThrowsMessage<Error>("Auslesen der Registrievariable <na$2me> schlug fehl"));
    EXPECT_EQ(platform::CheckKey(platform::SettingsRoot::User, "A\\X", platform::SettingsAccess::Read),
              platform::SettingsStatus::KeyMissing);
}

TEST(Registry, NamesTheKeyThatItCannotMake) {
    const platform::ScratchStore store;
    platform::CreateKey(platform::SettingsRoot::User, "A");
    chmod(store.Path().c_str(), 0755);
    chmod(store.File().parent_path().c_str(), 0777);
    chmod(store.File().c_str(), 0666);
    const std::string log = store.File().string() + "-wal";
    std::ofstream(log).close();
    chmod(log.c_str(), 0444);
    const platform::OrdinaryUser user;
    EXPECT_THAT([] { WriteRegistry(User, "A", "New", "name", "text"); },
                testing::ThrowsMessage<Error>("Erzeugen des Registrieschl\xFCssel <New> in <A> schlug fehl"));
}

} // namespace
} // namespace korvel
