#include "korvel/values/language.h"

#include "korvel/platform/error.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/settings_store.h"
#include "korvel/platform/store_problem_log.h"
#include "korvel/values/registry.h"

#include <atomic>
#include <mutex>
#include <optional>

namespace korvel {

namespace {

constexpr LanguageChoice Languages[] = {
    {LanguageChoice::English}, {LanguageChoice::German}, {LanguageChoice::Hungarian}};

const LanguageChoice& LanguageOf(const std::string& name) {
    if (name == "English")
        return Languages[LanguageChoice::English];
    return Languages[name == "Hungarian" ? LanguageChoice::Hungarian : LanguageChoice::German];
}

// The name of the language, first as a program says it for this run, then as it was chosen, which stays.
class LanguageOfRun {
public:
    static LanguageOfRun& Instance() {
        static LanguageOfRun instance;
        return instance;
    }

    std::optional<std::string> Name() {
        const std::lock_guard lock(m_mutex);
        return m_name;
    }
    // False once it is chosen.
    bool SetName(const std::string& name) {
        const std::lock_guard lock(m_mutex);
        if (!m_isChosen)
            m_name = name;
        return !m_isChosen;
    }
    // Takes `name`, unless another one was said or chosen meanwhile.
    const LanguageChoice& Choose(const std::string& name) {
        const std::lock_guard lock(m_mutex);
        if (!m_name)
            m_name = name;
        m_isChosen = true;
        return LanguageOf(*m_name);
    }

private:
    std::mutex m_mutex;
    std::optional<std::string> m_name;
    bool m_isChosen = false;
};

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

// What would be chosen now.
std::string NameNow() {
    if (const auto name = LanguageOfRun::Instance().Name())
        return *name;
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

} // namespace

const LanguageChoice& GetLanguage() {
    static std::atomic<const LanguageChoice*> chosen = nullptr;
    if (!chosen)
        chosen = &LanguageOfRun::Instance().Choose(NameNow());
    return *chosen;
}

std::string GetLanguageName() {
    GetLanguage();
    return *LanguageOfRun::Instance().Name();
}

bool SetLanguageForThisRun(const std::string& name) {
    return LanguageOfRun::Instance().SetName(name);
}

void UseLocaleLanguageIfUnset() {
    try {
        NameNow();
    } catch (const Error&) {
        SetLanguageForThisRun(LanguageOfLocale());
    }
}

} // namespace korvel
