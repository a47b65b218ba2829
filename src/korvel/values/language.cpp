#include "korvel/values/language.h"

#include "korvel/platform/error.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/settings_store.h"
#include "korvel/platform/store_problem_log.h"
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

std::string LanguageOfLocale() {
    return platform::UserLanguage() == "de" ? "German" : "English";
}

// Nothing where the settings have no such value, and where they cannot be read, which is noted.
std::optional<std::string> NameIn(platform::SettingsRoot root, const char* valueName, bool& isUnreadable) {
    platform::SettingValue value;
    auto status = platform::SettingsStatus::ValueMissing;
    const auto read = [&] { return status = platform::ReadSetting(root, RegistryPath, valueName, value); };
    if (!internal::StoreProblemLog::Instance().ReadOrTell(root, read))
        isUnreadable = true;
    if (status != platform::SettingsStatus::Done)
        return std::nullopt;
    return value.bytes.substr(0, value.bytes.find('\0'));
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
    bool isUnreadable = false;
    if (const auto name = NameIn(platform::SettingsRoot::User, "Language", isUnreadable))
        return *name;
    if (const auto name = NameIn(platform::SettingsRoot::Machine, "InstallLanguage", isUnreadable))
        return *name;
    if (isUnreadable)
        return LanguageOfLocale();
    return ReadRegistry(RegistryRoot::LocalMachine, RegistryPath, "",
                        "InstallLanguage"); // its text says why not
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
        SetLanguageForThisRun(LanguageOfLocale());
    }
}

} // namespace korvel
