#include "run_settings.h"

#include "kept_formats.h"
#include "platform/regional_settings.h"
#include "platform/user_folders.h"
#include "values/text_table.h"

namespace korvel::inspector {

std::string ApplySettings(const Options& options) {
    if (!options.locale.empty() && !platform::UseLocale(options.locale))
        throw UsageError("the locale '" + options.locale + "' is not known");
    if (options.language.empty())
        UseLocaleLanguageIfUnset();
    else
        SetLanguageForThisRun(options.language);
    return TakeFormats(platform::UserConfigFolder(), options.formats);
}

} // namespace korvel::inspector
