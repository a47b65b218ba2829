#include "korvel/dialogs/dialog_layouts.h"
#include "korvel/window/app/built_in_resources.h"

namespace korvel::internal {
namespace {

[[maybe_unused]] const bool Registered = [] {
    for (const DialogTemplate& dialog : CommonDialogs<GermanWords>::Templates)
        AddBuiltIn(dialog);
    return true;
}();

} // namespace
} // namespace korvel::internal
