#include "korvel/editors/drop_down_height.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace korvel::internal {
namespace {

TEST(DropDownHeight, WholeRowsOnly) {
    const Table<DropDownContent, int> rows = {
        {"as many as there are", {5, 20, 2, 900}, 102},
        {"at most 150 pixels", {50, 20, 2, 900}, 142},
        {"150 exactly", {50, 37, 2, 900}, 150},
        {"with a header", {50, 20, 26, 900}, 146},
        {"the screen ends", {50, 20, 2, 121}, 102},
        {"and leaves too little for three", {50, 20, 2, 61}, 62},
        {"nothing at all", {50, 20, 2, 0}, 62},
        {"two of two", {2, 20, 2, 10}, 42},
        {"none: as high as one", {0, 20, 2, 900}, 22},
        {"rows higher than all that", {9, 200, 2, 900}, 602},
        {"no height of rows", {9, 0, 2, 900}, 11},
    };
    for (const auto& [name, content, height] : rows)
        EXPECT_EQ(DropDownHeight(content), height) << name;
}

} // namespace
} // namespace korvel::internal
