#include "korvel/platform/regional_settings.h"

#include "korvel/platform/environment.h"
#include "korvel/platform/integer_text.h"
#include "korvel/platform/locale_data.h"
#include "korvel/platform/settings_store.h"
#include "korvel/platform/store_problem_log.h"

#include <array>
#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

namespace korvel::platform {
namespace {

constexpr const char* SettingsKey = "Control Panel\\International";

struct TextOverride {
    const char* name;
    std::string RegionalSettings::*setting;
};

struct NumberOverride {
    const char* name;
    int RegionalSettings::*setting;
};

constexpr std::array<TextOverride, 6> TextOverrides{{{"sDecimal", &RegionalSettings::decimalSeparator},
                                                     {"sThousand", &RegionalSettings::thousandsSeparator},
                                                     {"sGrouping", &RegionalSettings::grouping},
                                                     {"sLongDate", &RegionalSettings::longDatePicture},
                                                     {"sShortDate", &RegionalSettings::shortDatePicture},
                                                     {"sTimeFormat", &RegionalSettings::timePicture}}};

constexpr std::array<NumberOverride, 3> NumberOverrides{{{"iDigits", &RegionalSettings::digits},
                                                         {"iLZero", &RegionalSettings::leadingZero},
                                                         {"iNegNumber", &RegionalSettings::negativeOrder}}};

// The texts of the user's own settings, in the order of the two tables; all missing where the store cannot be
// read, so that a damaged one leaves the locale's values in force.
std::vector<std::optional<std::string>> ReadOverrides() {
    std::vector<std::string_view> names;
    names.reserve(TextOverrides.size() + NumberOverrides.size());
    for (const TextOverride& row : TextOverrides)
        names.push_back(row.name);
    for (const NumberOverride& row : NumberOverrides)
        names.push_back(row.name);
    std::vector<std::optional<SettingValue>> values;
    internal::StoreProblemLog::Instance().ReadOrTell(
        SettingsRoot::User, [&] { return ReadSettings(SettingsRoot::User, SettingsKey, names, values); });
    std::vector<std::optional<std::string>> texts(names.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i] && values[i]->type == SettingType::Text)
            texts[i] = values[i]->bytes.substr(0, values[i]->bytes.find('\0'));
    return texts;
}

// The locale that this program uses instead of the user's.
class ChosenLocale {
public:
    static ChosenLocale& Instance() {
        static ChosenLocale instance;
        return instance;
    }
    std::string Name() {
        const std::lock_guard lock(m_mutex);
        return m_name;
    }
    void Choose(std::string name) {
        const std::lock_guard lock(m_mutex);
        m_name = std::move(name);
    }

private:
    std::mutex m_mutex;
    std::string m_name;
};

// The environment's locale for one category, in the order in which POSIX asks the variables. An unknown one
// counts as en-US, and so does the C library's own, which has no month names in any language of a user.
std::string EnvironmentLocale(const char* category) {
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        const std::string value = internal::EnvironmentValue(variable);
        if (!value.empty())
            return internal::FindLocale(value).value_or("en-US");
    }
    return "en-US";
}

std::string LocaleFor(const char* category) {
    const std::string chosen = ChosenLocale::Instance().Name();
    return chosen.empty() ? EnvironmentLocale(category) : chosen;
}

} // namespace

RegionalSettings ReadRegionalSettings() {
    RegionalSettings settings = internal::LocaleData(LocaleFor("LC_NUMERIC"), LocaleFor("LC_TIME"));
    const std::vector<std::optional<std::string>> overrides = ReadOverrides();
    auto text = overrides.begin();
    for (const TextOverride& row : TextOverrides)
        settings.*row.setting = (text++)->value_or(settings.*row.setting);
    for (const NumberOverride& row : NumberOverrides)
        if (const std::optional<std::string>& number = *text++)
            settings.*row.setting = internal::ReadInteger(*number);
    return settings;
}

bool UseLocale(const std::string& name) {
    const std::optional<std::string> found = name.empty() ? name : internal::FindLocale(name);
    if (found)
        ChosenLocale::Instance().Choose(*found);
    return found.has_value();
}

std::string UserLanguage() {
    const std::string locale = EnvironmentLocale("LC_MESSAGES");
    return locale.substr(0, locale.find('-'));
}

} // namespace korvel::platform
