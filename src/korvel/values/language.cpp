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

enum class NameIn { Settings, Nothing, UnreadableStore };

NameIn ReadName(platform::SettingsRoot root, const char* valueName, std::string& name) {
    platform::SettingValue value;
    auto status = platform::SettingsStatus::ValueMissing;
    const bool isReadable = internal::StoreProblemLog::Instance().ReadOrTell(
        root, [&] { status = platform::ReadSetting(root, RegistryPath, valueName, value); });
    if (status == platform::SettingsStatus::Done)
        name = value.bytes.substr(0, value.bytes.find('\0'));
    return !isReadable                                ? NameIn::UnreadableStore
           : status == platform::SettingsStatus::Done ? NameIn::Settings
                                                      : NameIn::Nothing;
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
    std::string name;
    if (ReadName(platform::SettingsRoot::User, "Language", name) == NameIn::Settings)
        return name;
    switch (ReadName(platform::SettingsRoot::Machine, "InstallLanguage", name)) {
    case NameIn::Settings:
        return name;
    case NameIn::UnreadableStore:
        return LanguageOfLocale();
    case NameIn::Nothing:
        break;
    }
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
