// The language module for English: a shared object of its own, which uses no code of the library.

#include "korvel/dialogs/dialog_layouts.h"
#include "korvel/editors/alpha_dialog_layout.h"
#include "korvel/window/app/resource_module.h"

#include <algorithm>
#include <array>

namespace korvel::internal {
namespace {

constexpr auto& Common = CommonDialogs<EnglishWords>::Templates;

constexpr auto Templates = [] {
    std::array<DialogTemplate, std::size(Common) + 1> all{};
    std::copy(std::begin(Common), std::end(Common), all.begin());
    all.back() = AlphaDialogLayout<EnglishAlphaWords>::Template;
    return all;
}();

constexpr ResourceModule English{Templates, {}};

} // namespace
} // namespace korvel::internal

extern "C" KORVEL_API const korvel::ResourceModule* KorvelResources1() {
    return &korvel::internal::English;
}
