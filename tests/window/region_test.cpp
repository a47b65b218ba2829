#include "korvel/window/core/dc.h"
#include "korvel/window/display/recording_surface.h"
#include "support/table.h"

#include <gmock/gmock.h>
#include <random>

namespace korvel {
namespace {

constexpr int Side = 12; // pixels of a random region

CRgn RegionOf(const std::vector<CRect>& rectangles) {
    CRgn region;
    for (const CRect& rect : rectangles) {
        CRgn one;
        one.CreateRectRgn(rect);
        region.CombineRgn(region, one, RGN_OR);
    }
    return region;
}

TEST(Region, CombinesAsItsPixelsDo) {
    const Table<int, bool (*)(bool, bool)> modes = {
        {"and", RGN_AND, [](bool a, bool b) { return a && b; }},
        {"or", RGN_OR, [](bool a, bool b) { return a || b; }},
        {"xor", RGN_XOR, [](bool a, bool b) { return a != b; }},
        {"diff", RGN_DIFF, [](bool a, bool b) { return a && !b; }},
        {"copy", RGN_COPY, [](bool a, bool) { return a; }},
    };
    std::mt19937 random(1);
    std::uniform_int_distribution edge(0, Side);
    const auto randomRegion = [&] {
        std::vector<CRect> rectangles(static_cast<std::size_t>(edge(random) / 2));
        for (CRect& rect : rectangles)
            rect = {edge(random), edge(random), edge(random), edge(random)};
        return RegionOf(rectangles);
    };
    for (int round = 0; round < 40; ++round) {
        const CRgn a = randomRegion();
        const CRgn b = randomRegion();
        for (const auto& [name, mode, holds] : modes) {
            CRgn result;
            const int kind = result.CombineRgn(a, b, mode);
            int pixels = 0;
            std::vector<CRect> singles;
            for (int y = 0; y < Side; ++y)
                for (int x = 0; x < Side; ++x) {
                    const bool inside = holds(a.PtInRegion({x, y}), b.PtInRegion({x, y}));
                    ASSERT_EQ(result.PtInRegion({x, y}), inside) << name << " at " << x << "," << y;
                    if (inside)
                        singles.push_back({x, y, x + 1, y + 1});
                }
            for (const CRect& rect : result.Rectangles())
                pixels += rect.Width() * rect.Height();
            EXPECT_EQ(pixels, static_cast<int>(singles.size())) << name << ": they overlap or are empty";
            EXPECT_EQ(result, RegionOf(singles)) << name << ": equal sets, other rectangles";
            EXPECT_EQ(kind, singles.empty()                   ? NULLREGION
                            : result.Rectangles().size() == 1 ? SIMPLEREGION
                                                              : COMPLEXREGION);
        }
    }
}

TEST(Region, Borders) {
    CRgn region;
    region.CreateRectRgn(5, 7, 1, 2);
    EXPECT_EQ(region.GetRgnBox(), (CRect{1, 2, 5, 7})) << "corners in any order";
    EXPECT_EQ(region.CombineRgn(region, region, 0), RGN_ERROR);
    EXPECT_EQ(region.CombineRgn(region, region, 6), RGN_ERROR);
    EXPECT_EQ(region.GetRgnBox(), (CRect{1, 2, 5, 7})) << "as it was";
    EXPECT_EQ(region.CombineRgn(region, region, RGN_XOR), NULLREGION) << "with itself, into itself";
    region.CreateRectRgn(3, 3, 3, 9);
    EXPECT_EQ(region, CRgn()) << "no pixel wide";
}

TEST(Region, ClipsADeviceContext) {
    internal::RecordingSurface surface;
    CDC dc(surface, {0, 0, 9, 9});
    const CRgn region = RegionOf({{0, 0, 9, 2}, {4, 4, 6, 9}});
    dc.SelectClipRgn(&region);
    dc.SelectClipRgn(nullptr);
    ASSERT_EQ(surface.calls.size(), 2u);
    EXPECT_EQ(surface.calls[0].rect, (CRect{0, 0, 9, 9}));
    EXPECT_EQ(surface.calls[0].region, region.Rectangles());
    EXPECT_TRUE(surface.calls[1].region.empty());
}

} // namespace
} // namespace korvel
