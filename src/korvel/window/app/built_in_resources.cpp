#include "korvel/window/app/built_in_resources.h"

namespace korvel::internal {
namespace {

// Filled while the library is loaded, only read after that.
std::vector<const DialogTemplate*>& Dialogs() {
    static auto& dialogs = *new std::vector<const DialogTemplate*>;
    return dialogs;
}

std::vector<const PictureResource*>& Pictures() {
    static auto& pictures = *new std::vector<const PictureResource*>;
    return pictures;
}

} // namespace

bool AddBuiltIn(const DialogTemplate& dialog) {
    Dialogs().push_back(&dialog);
    return true;
}

bool AddBuiltIn(const PictureResource& picture) {
    Pictures().push_back(&picture);
    return true;
}

const std::vector<const DialogTemplate*>& BuiltInDialogs() {
    return Dialogs();
}

const std::vector<const PictureResource*>& BuiltInPictures() {
    return Pictures();
}

} // namespace korvel::internal
