#include "korvel/values/language.h"

#include "korvel/platform/error.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/settings_store.h"
#include "korvel/values/registry.h"

#include <optional>

namespace korvel {

namespace {

// What a program said about this run, and whether it can still say something.
struct LanguageOfRun {
    std::optional<std::string> name;
    bool isTooLate = false;
};

LanguageOfRun& RunChoice() {
    static LanguageOfRun choice;
    return choice;
}

int ColumnOf(const std::string& name) {
    if (name == "English")
        return LanguageChoice::English;
    return name == "Hungarian" ? LanguageChoice::Hungarian : LanguageChoice::German;
}

LanguageChoice Choose() {
    const LanguageChoice language{ColumnOf(GetLanguageName())};
    RunChoice().isTooLate = true;
    return language;
}

} // namespace

const LanguageChoice& GetLanguage() {
    static const LanguageChoice language = Choose();
    return language;
}

std::string GetLanguageName() {
    if (RunChoice().name)
        return *RunChoice().name;
    platform::SettingValue value;
    if (platform::ReadSetting(platform::SettingsRoot::User, RegistryPath, "Language", value) ==
        platform::SettingsStatus::Done)
        return value.bytes.substr(0, value.bytes.find('\0'));
    return ReadRegistry(RegistryRoot::LocalMachine, RegistryPath, "", "InstallLanguage");
}

bool SetLanguageForThisRun(const std::string& name) {
    if (RunChoice().isTooLate)
        return false;
    RunChoice().name = name;
    return true;
}

void UseLocaleLanguageIfUnset() {
    try {
        GetLanguageName();
    } catch (const Error&) {
        SetLanguageForThisRun(platform::UserLanguage() == "de" ? "German" : "English");
    }
}

} // namespace korvel
