#include "korvel/window/base/image_list.h"

#include <utility>

namespace korvel {

int CImageList::Add(Image image) {
    if (image.width <= 0 || image.height <= 0 ||
        image.pixels.size() != static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height))
        return -1;
    m_images.push_back(std::move(image));
    return GetImageCount() - 1;
}

const Image* CImageList::GetImage(int index) const {
    return index >= 0 && index < GetImageCount() ? &m_images[static_cast<std::size_t>(index)] : nullptr;
}

} // namespace korvel
