#include "program/run_settings.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/store_problem.h"
#include "korvel/platform/user_folders.h"
#include "korvel/values/language.h"
#include "setup/machine_language.h"
#include "texts/messages.h"

#include <memory>
#include <vector>

namespace korvel::inspector {
namespace {

// Setting a damaged store aside leaves the locale's own values, for this run and, until something is set, the
// next ones.
std::string SetAside(const platform::StoreProblem& problem) {
    const std::string notice = Say({"the settings cannot be read: %1", {platform::ToUtf8(problem.text)}});
    if (!problem.isDamaged)
        return notice;
    try {
        return Say({"%1; the file is now %2", {notice, platform::SetStoreAside(problem.root).string()}});
    } catch (const Error&) {
        return notice;
    }
}

} // namespace

TakenFormats ApplySettings(const Options& options) {
    const auto problems = std::make_shared<std::vector<platform::StoreProblem>>();
    platform::SetStoreProblemListener(
        [problems](const platform::StoreProblem& problem) { problems->push_back(problem); });
    if (!platform::UseLocale(options.locale))
        throw UsageError(Say({"the locale %1 is not known", {"'" + options.locale + "'"}}));
    platform::UseLocale({}); // what is kept is kept as the user's own locale has it
    UseBuildFolderSettings();
    if (options.language.empty())
        UseLocaleLanguageIfUnset();
    else
        SetLanguageForThisRun(options.language);
    const bool showsWindow = !options.list && options.screenshot.empty();
    TakenFormats taken = TakeFormats(platform::UserConfigFolder(), options.formats,
                                     showsWindow || options.keep ? Keeping::LaterRuns : Keeping::ThisRunOnly);
    if (!options.locale.empty())
        WriteAsIn(options.locale);
    for (const platform::StoreProblem& problem : *problems)
        taken.notice += (taken.notice.empty() ? "" : "; ") + SetAside(problem);
    return taken;
}

} // namespace korvel::inspector
