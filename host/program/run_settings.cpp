#include "program/run_settings.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/settings_store.h"
#include "korvel/platform/user_folders.h"
#include "korvel/values/language.h"
#include "setup/machine_language.h"
#include "texts/messages.h"

#include <memory>
#include <vector>

namespace korvel::inspector {

namespace {

constexpr const char* Damaged = "the settings cannot be read: %1 is damaged";

} // namespace

std::string SetAsideIfDamaged(const platform::StoreProblem& problem) {
    const std::string file = platform::StorePath(problem.root).string();
    using Kind = platform::StoreProblem::Kind;
    if (problem.kind == Kind::WrongValue)
        return Say({"the setting %1 in %2 cannot be understood and is not used", {problem.valueName, file}});
    if (problem.kind == Kind::OutOfReach)
        return Say({"the settings cannot be read: %1 is locked or out of reach", {file}});
    return SetAsideIfDamaged(problem.root, Damaged);
}

std::string SetAsideIfDamaged(platform::SettingsRoot root, const char* elseWrong) {
    const std::string file = platform::StorePath(root).string();
    try {
        const std::string aside = platform::SetStoreAside(root).string();
        UseLanguage({}); // without the machine's settings nothing names one
        return Say({"%1; the file is now %2", {Say({Damaged, {file}}), aside}});
    } catch (const Error&) {
        return Say({elseWrong, {file}});
    }
}

void UseLanguage(const std::string& language) {
    UseBuildFolderSettings();
    if (language.empty())
        UseLocaleLanguageIfUnset();
    else
        SetLanguageForThisRun(language);
}

TakenFormats ApplySettings(const Options& options) {
    const auto problems = std::make_shared<std::vector<platform::StoreProblem>>();
    platform::SetStoreProblemListener(
        [problems](const platform::StoreProblem& problem) { problems->push_back(problem); });
    UseLanguage(options.language);
    if (!platform::UseLocale(options.locale))
        throw UsageError({"the locale %1 is not known", {InQuotes(options.locale)}});
    platform::UseLocale({}); // what is kept is kept as the user's own locale has it
    const bool showsWindow = !options.list && !options.save && options.screenshot.empty();
    TakenFormats taken = TakeFormats(platform::UserConfigFolder(), options.formats,
                                     showsWindow || options.keep ? Keeping::LaterRuns : Keeping::ThisRunOnly);
    if (!options.locale.empty())
        WriteAsIn(options.locale);
    platform::SetStoreProblemListener(nullptr);
    for (const platform::StoreProblem& problem : *problems)
        taken.notice += (taken.notice.empty() ? "" : "; ") + SetAsideIfDamaged(problem);
    return taken;
}

} // namespace korvel::inspector
