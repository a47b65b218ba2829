#pragma once

#include "korvel/grid/branch_copies.h"
#include "korvel/grid/tree_rows.h"
#include "support/plain_rows.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace korvel {

/// A tree whose rows are in a plain vector.
class TreeRowsTest : public testing::Test {
protected:
    using CTreeItem = grid::CTreeItem;

    CTreeItem* Add(CTreeItem* parent, int position = -1) {
        CTreeItem* node = tree.Link(parent, nullptr, position);
        tree.Show(node);
        return node;
    }
    /// The caller's part of a removal, as the contract leaves it to the caller.
    void RemoveByHand(CTreeItem* node) {
        if (const int row = tree.RowOf(node); row >= 0) {
            tree.Hide(node, row + 1);
            list.RemoveQuietly(row, row + 1);
        }
        EXPECT_TRUE(tree.Unlink(node));
        tree.RebuildIfNeeded();
    }
    int Below(std::size_t bound) { return static_cast<int>(random() % bound); }
    CTreeItem* Some() {
        std::vector<CTreeItem*> nodes;
        Collect(tree.Roots(), nodes);
        return nodes.empty() ? nullptr : nodes[random() % nodes.size()];
    }

    /// The shown nodes have their rows, in order; the others have none.
    void ExpectRows() {
        std::vector<CTreeItem*> shown;
        ASSERT_NO_FATAL_FAILURE(Walk(tree.Roots(), true, shown));
        for (CTreeItem* node : shown)
            ASSERT_EQ(list.At(tree.RowOf(node)), node);
        ASSERT_TRUE(std::is_sorted(shown.begin(), shown.end(), [&](CTreeItem* left, CTreeItem* right) {
            return tree.RowOf(left) < tree.RowOf(right);
        }));
        shownCount = static_cast<int>(shown.size());
    }
    void ExpectRowsAlone() {
        ASSERT_NO_FATAL_FAILURE(ExpectRows());
        ASSERT_EQ(list.Count(), shownCount);
    }

    PlainRows list;
    internal::TreeRows tree{list};
    internal::BranchCopies copies{tree, list};
    std::mt19937 random{7};
    int shownCount = 0;

private:
    static void Collect(const ChildList& family, std::vector<CTreeItem*>& nodes) {
        for (CTreeItem* node : family) {
            nodes.push_back(node);
            Collect(node->children(), nodes);
        }
    }
    void Walk(const ChildList& family, bool isShown, std::vector<CTreeItem*>& shown) {
        for (CTreeItem* node : family) {
            if (isShown)
                shown.push_back(node);
            else
                ASSERT_EQ(tree.RowOf(node), -1);
            ASSERT_NO_FATAL_FAILURE(Walk(node->children(), isShown && !node->collapsed(), shown));
        }
    }
};

} // namespace korvel
