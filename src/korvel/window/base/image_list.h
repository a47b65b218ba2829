#pragma once

#include "korvel/window/base/types.h"

#include <cstdint>
#include <vector>

namespace korvel {

/// A picture in memory: rows from the top, each pixel 0xAARRGGBB, not premultiplied.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// Pictures of one size, drawn by index. On the thread of the windows that show them, which it must
/// outlive.
///
///     CImageList images(16, 16);
///     const int index = images.Add(picture);   // 0
///     images.GetImage(1);                      // null
class KORVEL_API CImageList {
public:
    CImageList(int width, int height) : m_size{width, height} {}

    /// Takes a picture of the list's size (scaled by the display when it differs) and returns its index; -1
    /// for a picture whose pixels are not width times height.
    int Add(Image image);
    int GetImageCount() const { return static_cast<int>(m_images.size()); }
    CSize GetImageSize() const { return m_size; }
    /// Null for an index outside the list.
    const Image* GetImage(int index) const;

private:
    CSize m_size;
    std::vector<Image> m_images;
};

} // namespace korvel
