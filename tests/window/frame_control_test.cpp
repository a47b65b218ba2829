#include "korvel/window/core/dc.h"
#include "korvel/window/display/recording_surface.h"
#include "support/recorded_window.h"

namespace korvel {
namespace {

std::vector<PaintCall> Draw(const CRect& rect, UINT type, UINT state) {
    internal::RecordingSurface surface;
    CDC(surface, {}).DrawFrameControl(rect, type, state);
    return surface.calls;
}

TEST(FrameControl, StaysInsideItsRectangleAtAnySize) {
    const HeadlessDisplay display;
    for (const auto& [type, state] :
         {std::pair(DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED), std::pair(DFC_BUTTON, DFCS_BUTTONPUSH),
          std::pair(DFC_SCROLL, DFCS_SCROLLDOWN), std::pair(DFC_SCROLL, DFCS_SCROLLUP),
          std::pair(DFC_SCROLL, DFCS_SCROLLLEFT), std::pair(DFC_SCROLL, DFCS_SCROLLRIGHT)})
        for (int side = 0; side < 35 * 35; side += 3) {
            const CRect rect{10, 20, 15 + side % 35, 25 + side / 35};
            for (const PaintCall& call : Draw(rect, type, state))
                EXPECT_EQ(call.rect.Intersected(rect), call.rect) << side;
        }
    EXPECT_THAT(Draw({5, 5, 5, 9}, DFC_BUTTON, 0), IsEmpty());
}

TEST(ImageList, RefusesAPictureThatLacksPixels) {
    CImageList images(2, 2);
    EXPECT_EQ(images.Add({2, 2, {1, 2, 3}}), -1);
    EXPECT_EQ(images.Add({-2, -2, {1, 2, 3, 4}}), -1);
    EXPECT_EQ(images.Add({2, 2, {1, 2, 3, 4}}), 0);
    EXPECT_NE(images.GetImage(0), nullptr);
    EXPECT_EQ(images.GetImage(1), nullptr);
    EXPECT_EQ(images.GetImage(-1), nullptr);
}

} // namespace
} // namespace korvel
