#include "korvel/qt/row_changes.h"
#include "support/table.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>

namespace korvel::internal {
namespace {

struct Change {
    int first;
    int removed;
    int inserted;
};
using Sequence = std::vector<Change>;

RowChanges Log(const Sequence& changes) {
    RowChanges log;
    for (const Change& change : changes)
        log.Add(change.first, change.removed, change.inserted);
    return log;
}

TEST(RowChangesTest, ChangesThatAdjoinAreOne) {
    for (const auto& [border, changes, count] : Table<Sequence, std::size_t>{
             {"leaving from the last up", {{9, 1, 0}, {8, 1, 0}, {7, 1, 0}}, 1},
             {"leaving at one place", {{7, 1, 0}, {7, 1, 0}}, 1},
             {"coming one after the other", {{3, 0, 1}, {4, 0, 1}}, 1},
             {"coming one before the other", {{3, 0, 1}, {3, 0, 1}}, 1},
             {"what came goes again", {{3, 0, 5}, {4, 2, 0}}, 1},
             {"with rows around it", {{3, 0, 2}, {1, 6, 0}}, 1},
             {"with what left before the last", {{3, 1, 0}, {9, 1, 0}, {3, 1, 0}}, 2},
             {"what lies between two", {{9, 1, 0}, {5, 1, 0}, {5, 3, 0}}, 1},
             {"one row between", {{3, 0, 1}, {5, 1, 0}}, 2},
             {"one row before", {{3, 1, 0}, {1, 1, 0}}, 2}})
        EXPECT_EQ(Log(changes).Count(), count) << border;
}

TEST(RowChangesTest, EachRowIsFollowedAsInAListThatChanges) {
    constexpr int Rows = 60;
    std::mt19937 random(11);
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    for (int run = 0; run < 500; ++run) {
        std::vector<int> rows(Rows); // the former number of each; -1: new
        std::iota(rows.begin(), rows.end(), 0);
        RowChanges log;
        for (int step = 0; step < 12; ++step) {
            const int first = below(static_cast<int>(rows.size()) + 1);
            const int removed = below(std::min(4, static_cast<int>(rows.size()) - first + 1));
            const int inserted = below(4);
            log.Add(first, removed, inserted);
            rows.erase(rows.begin() + first, rows.begin() + first + removed);
            rows.insert(rows.begin() + first, static_cast<std::size_t>(inserted), -1);
        }
        for (int row = 0; row < Rows; ++row) {
            const auto found = std::find(rows.begin(), rows.end(), row);
            const auto expected =
                found == rows.end() ? std::nullopt : std::optional(static_cast<int>(found - rows.begin()));
            ASSERT_EQ(log.Follow(row), expected) << "run " << run << ", row " << row;
        }
    }
}

} // namespace
} // namespace korvel::internal
