#include "run_settings.h"

#include "output/angle_output.h"
#include "platform/regional_settings.h"
#include "values/text_table.h"

namespace korvel::inspector {

void ApplySettings(const Options& options) {
    if (!options.locale.empty() && !platform::UseLocale(options.locale))
        throw UsageError("the locale '" + options.locale + "' is not known");
    if (options.language.empty())
        UseLocaleLanguageIfUnset();
    else
        SetLanguageForThisRun(options.language);
    if (options.angleUnit)
        SetAngleUnit(*options.angleUnit);
}

} // namespace korvel::inspector
