// The language module for English: a shared object of its own, which uses no code of the library.

#include "korvel/dialogs/dialog_layouts.h"
#include "korvel/window/app/resource_module.h"

namespace korvel::internal {
namespace {

constexpr ResourceModule English{CommonDialogs<EnglishWords>::Templates, {}};

} // namespace
} // namespace korvel::internal

extern "C" KORVEL_API const korvel::ResourceModule* KorvelResources1() {
    return &korvel::internal::English;
}
