// The language module for English: a shared object of its own, which uses no code of the library.

#include "korvel/dialogs/edit_code_template.h"
#include "korvel/window/app/resource_module.h"

namespace korvel::internal {
namespace {

constexpr auto EditCode = EditCodeItems({"Krefail code:", "$PLACEHOLDER:", "Cancel"});

constexpr DialogTemplate Templates[] = {EditCodeTemplate(EditCode)};

constexpr ResourceModule English{Templates, {}};

} // namespace
} // namespace korvel::internal

extern "C" KORVEL_API const korvel::ResourceModule* KorvelResources1() {
    return &korvel::internal::English;
}
