#include "korvel/window/controls/mfc_button.h"

#include "korvel/window/app/find_resource.h"

namespace korvel {

bool CMFCButton::SetImage(UINT pictureId) {
    const PictureResource* found = FindPicture(pictureId);
    Image picture;
    if (found) {
        const auto count = static_cast<std::size_t>(found->width) * static_cast<std::size_t>(found->height);
        picture = {found->width, found->height, {found->pixels, found->pixels + count}};
    }
    SendMessageA(BM_SETIMAGE, 0, reinterpret_cast<LPARAM>(found ? &picture : nullptr));
    return found != nullptr;
}

} // namespace korvel
