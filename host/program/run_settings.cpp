#include "program/run_settings.h"

#include "korvel/platform/regional_settings.h"
#include "korvel/platform/user_folders.h"
#include "korvel/values/language.h"
#include "program/kept_formats.h"
#include "setup/machine_language.h"

namespace korvel::inspector {

std::string ApplySettings(const Options& options) {
    if (!platform::UseLocale(options.locale))
        throw UsageError("the locale '" + options.locale + "' is not known");
    platform::UseLocale({}); // what is kept is kept as the user's own locale has it
    UseBuildFolderSettings();
    if (options.language.empty())
        UseLocaleLanguageIfUnset();
    else
        SetLanguageForThisRun(options.language);
    std::string notice = TakeFormats(platform::UserConfigFolder(), options.formats);
    if (!options.locale.empty())
        WriteAsIn(options.locale);
    return notice;
}

} // namespace korvel::inspector
