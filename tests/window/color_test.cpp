#include "korvel/window/base/color.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace korvel::internal {
namespace {

TEST(Colors, OfTextsAreLegibleOnTheirGrounds) {
    EXPECT_NEAR(ContrastOf(RGB(0, 0, 0), RGB(255, 255, 255)), 21, 1e-9);
    EXPECT_NEAR(ContrastOf(RGB(255, 0, 0), RGB(0, 0, 255)), 2.15, 0.005);
    constexpr COLORREF White = RGB(255, 255, 255);
    for (const auto& [border, wanted, clear, ground] : Table<COLORREF, COLORREF, COLORREF>{
             {"grey on a dark ground", RGB(80, 80, 80), White, RGB(45, 45, 45)},
             {"on a highlight that white is not clear on", RGB(151, 197, 227), White, RGB(48, 140, 198)},
             {"on a color of its own", RGB(255, 255, 0), White, RGB(255, 255, 0)}})
        EXPECT_GE(ContrastOf(Legible(wanted, clear, ground), ground), 4.5) << border;
    EXPECT_EQ(Legible(RGB(100, 100, 100), RGB(0, 0, 0), RGB(255, 255, 255)), RGB(100, 100, 100))
        << "is clear enough";
}

} // namespace
} // namespace korvel::internal
