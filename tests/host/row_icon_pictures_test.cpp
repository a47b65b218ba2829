#include "editing/row_icon_pictures.h"
#include "korvel/window/base/color.h"
#include "landxml/row_icon.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <set>

namespace korvel::inspector {
namespace {

// How many pixels of an icon, drawn at its own size, can be told from the ground by a contrast of 3.
int PixelsThatStandOut(const Image& icon, COLORREF ground) {
    int count = 0;
    for (const std::uint32_t pixel : icon.pixels) {
        const std::uint32_t opacity = pixel >> 24;
        const auto over = [&](int shift, std::uint32_t below) {
            return ((pixel >> shift & 0xFF) * opacity + below * (0xFF - opacity)) / 0xFF;
        };
        const COLORREF seen =
            RGB(over(16, GetRValue(ground)), over(8, GetGValue(ground)), over(0, GetBValue(ground)));
        count += internal::ContrastOf(seen, ground) >= 3;
    }
    return count / 4; // four pixels of the picture are one
}

TEST(RowIconPictures, EachIconHasOneOfItsOwnThatStandsOutFromEveryGround) {
    constexpr int Enough = 16; // of 256: a line across
    const CImageList& pictures = RowIconPictures();
    ASSERT_EQ(pictures.GetImageCount(), static_cast<int>(RowIcon::Count));
    std::set<std::vector<std::uint32_t>> different;
    for (int i = 0; i < pictures.GetImageCount(); ++i) {
        const Image& icon = *pictures.GetImage(i);
        EXPECT_TRUE(different.insert(icon.pixels).second) << i;
        for (const auto& [ground, color] : Table<COLORREF>{{"light", RGB(255, 255, 255)},
                                                           {"dark", RGB(30, 30, 30)},
                                                           {"selected", RGB(42, 111, 201)},
                                                           {"selected in a dark window", RGB(64, 64, 64)}})
            EXPECT_GE(PixelsThatStandOut(icon, color), Enough) << ground << " " << i;
    }
}

} // namespace
} // namespace korvel::inspector
