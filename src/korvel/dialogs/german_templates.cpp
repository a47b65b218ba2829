// The templates of the library's dialogs in German, which are built in.

#include "korvel/dialogs/edit_code_template.h"
#include "korvel/window/app/built_in_resources.h"

namespace korvel::internal {
namespace {

constexpr auto EditCode = EditCodeItems({"Krefail Code:", "$PLACEHOLDER:", "Abbrechen"});

constexpr DialogTemplate Templates[] = {EditCodeTemplate(EditCode)};

[[maybe_unused]] const bool Registered = [] {
    for (const DialogTemplate& dialog : Templates)
        AddBuiltIn(dialog);
    return true;
}();

} // namespace
} // namespace korvel::internal
