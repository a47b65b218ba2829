#include "korvel/window/core/dc.h"
#include "korvel/window/display/recording_surface.h"
#include "support/recorded_window.h"

namespace korvel {
namespace {

class FrameControlTest : public WindowTest {
protected:
    std::vector<PaintCall> Draw(const CRect& rect, UINT type, UINT state) {
        internal::RecordingSurface surface;
        CDC dc(surface, {});
        dc.DrawFrameControl(rect, type, state);
        return surface.calls;
    }
};

TEST_F(FrameControlTest, StaysInsideItsRectangleAtAnySize) {
    for (const auto& [type, state] :
         {std::pair(DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED), std::pair(DFC_BUTTON, DFCS_BUTTONPUSH),
          std::pair(DFC_SCROLL, DFCS_SCROLLDOWN)})
        for (int width = 5; width < 40; width += 3)
            for (int height = 5; height < 40; height += 3)
                for (const PaintCall& call : Draw({10, 20, 10 + width, 20 + height}, type, state)) {
                    EXPECT_TRUE(call.rect.left >= 10 && call.rect.right <= 10 + width) << width;
                    EXPECT_TRUE(call.rect.top >= 20 && call.rect.bottom <= 20 + height) << height;
                }
    EXPECT_THAT(Draw({5, 5, 5, 9}, DFC_BUTTON, 0), IsEmpty());
}

TEST(ImageList, RefusesAPictureThatLacksPixels) {
    CImageList images(2, 2);
    EXPECT_EQ(images.Add({2, 2, {1, 2, 3}}), -1);
    EXPECT_EQ(images.Add({-2, -2, {1, 2, 3, 4}}), -1);
    EXPECT_EQ(images.Add({2, 2, {1, 2, 3, 4}}), 0);
    EXPECT_EQ(images.GetImage(1), nullptr);
    EXPECT_EQ(images.GetImage(-1), nullptr);
}

} // namespace
} // namespace korvel
