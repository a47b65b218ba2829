#include "korvel/platform/error.h"
#include "korvel/window/list/row_blocks.h"

#include <gtest/gtest.h>
#include <random>
#include <utility>
#include <vector>

namespace korvel::internal {
namespace {

RowBlocks::Maker CountedFrom(LPARAM first, int failing = -1) {
    return [=](RowRecord& row, int index) {
        row.data = first + (index == failing ? throw Error("no memory") : index);
    };
}

// The same rows in a plain vector, data and whether selected: what the blocks must not differ from.
using Model = std::vector<std::pair<LPARAM, bool>>;

void ExpectSame(const RowBlocks& blocks, const Model& model) {
    ASSERT_EQ(blocks.Size(), static_cast<int>(model.size()));
    int selected = 0;
    int nextSelected = -1;
    for (int row = blocks.Size() - 1; row >= 0; --row) {
        ASSERT_EQ(blocks.At(row).data, model[row].first) << "row " << row;
        ASSERT_EQ(blocks.At(row).IsSelected(), model[row].second) << "row " << row;
        selected += model[row].second;
        nextSelected = model[row].second ? row : nextSelected;
        if (row % 50 == 0)
            ASSERT_EQ(blocks.FindSelected(row), nextSelected) << "from " << row;
    }
    ASSERT_EQ(blocks.SelectedCount(), selected);
}

TEST(RowBlocks, StayEqualToAPlainVector) {
    struct Mixture {
        const char* name;
        int longestInsert;
        int longestErase;
    };
    for (const auto& [name, longestInsert, longestErase] :
         {Mixture{"single rows", 1, 1}, Mixture{"rows inside one block", 100, 100},
          Mixture{"rows over several blocks", 1500, 1500}, Mixture{"grows and is emptied", 40, 4000},
          Mixture{"single erases from long runs", 300, 1}}) {
        SCOPED_TRACE(name);
        std::mt19937 random(4711);
        RowBlocks blocks;
        Model model;
        LPARAM next = 0;
        int lastErased = 0;
        const auto upTo = [&](int bound) { return static_cast<int>(random() % (bound + 1)); };
        for (int step = 0; step < 3000; ++step) {
            const int size = blocks.Size();
            if (size == 0 || random() % 2 == 0) {
                const int row = upTo(size);
                const int count = 1 + upTo(longestInsert - 1);
                EXPECT_THROW(blocks.Insert(row, count, CountedFrom(0, upTo(count - 1))), Error);
                blocks.Insert(row, count, CountedFrom(next));
                model.insert(model.begin() + row, count, {});
                for (int added = 0; added < count; ++added)
                    model[row + added].first = next++;
            } else {
                // Every other time next to what was erased before, as a list removes a range row by row.
                const int last = 1 + (random() % 2 == 0 ? upTo(size - 1) : std::min(lastErased, size - 1));
                const int first = std::max(0, last - 1 - upTo(longestErase - 1));
                lastErased = std::max(0, first - static_cast<int>(random() % 2));
                blocks.Erase(first, last);
                model.erase(model.begin() + first, model.begin() + last);
            }
            if (blocks.Size() > 0) {
                const int row = upTo(blocks.Size() - 1);
                model[row].second = !model[row].second;
                blocks.Select(row, model[row].second);
            }
            if (step % 50 == 49)
                ASSERT_NO_FATAL_FAILURE(ExpectSame(blocks, model));
        }
    }
}

} // namespace
} // namespace korvel::internal
