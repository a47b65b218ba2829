#include "korvel/layout/scroll_step.h"
#include "korvel/window/base/messages.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <limits>

namespace korvel::internal {
namespace {

constexpr int Highest = std::numeric_limits<int>::max();

TEST(ScrollStep, GoesWhereTheCodeSays) {
    // Of 210 pixels a page is 200 and a line 20.
    const Table<ScrollStep, int> rows = {
        {"a line up", {SB_LINEUP, 500, 7, 210, 0, 900}, 480},
        {"a line down", {SB_LINEDOWN, 500, 7, 210, 0, 900}, 520},
        {"kept: the top is a line up", {SB_TOP, 500, 7, 210, 0, 900}, 480},
        {"kept: the bottom is a line down", {SB_BOTTOM, 500, 7, 210, 0, 900}, 520},
        {"the thumb where it is", {SB_THUMBTRACK, 500, 7, 210, 0, 900}, 7},
        {"the end of scrolling", {SB_ENDSCROLL, 500, 7, 210, 0, 900}, 500},
        {"no farther than the end", {SB_PAGEDOWN, 800, 7, 210, 0, 900}, 900},
        {"no farther than the beginning", {SB_PAGEUP, 100, 7, 210, 0, 900}, 0},
        {"kept: below the minimum is 0", {SB_PAGEUP, -600, 7, 210, -700, 900}, 0},
        {"and then no farther than the maximum", {SB_PAGEUP, -600, 7, 210, -700, -650}, -650},
        {"10 pixels have no page", {SB_PAGEDOWN, 500, 7, 10, 0, 900}, 500},
        {"numbers at their end", {SB_PAGEDOWN, Highest - 1, 7, 210, 0, Highest}, Highest},
    };
    for (const auto& [name, step, expected] : rows)
        EXPECT_EQ(NextPosition(step), expected) << name;
}

} // namespace
} // namespace korvel::internal
