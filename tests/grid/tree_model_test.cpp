#include "support/grid_fixture.h"

#include <random>

namespace korvel {
namespace {

class TreeModel : public GridTest {
protected:
    TreeModel() { MakeBare(grid); }

    CTreeItem* Add(CTreeItem* parent, const std::string& text, std::vector<std::string> cells = {},
                   int position = -1) {
        return GridTest::Add(grid, parent, text, std::move(cells), position);
    }
    const ChildList& FamilyOf(const CTreeItem* parent) {
        return parent ? parent->children() : grid.rootItems();
    }

    // The caller's part of a removal, as the operations leave it to the caller.
    void RemoveWithRows(CTreeItem* node) {
        if (const int row = grid.RowOfNode(node); row >= 0) {
            grid.HideSubtree(node, 0, row + 1);
            grid.DeleteItem(row);
        }
        EXPECT_EQ(1, node->parent() ? grid.RemoveNode(node) : grid.RemoveRootNode(node));
        grid.RenumberRows();
    }

    // The rows are what a walk meets that steps over the children of collapsed nodes.
    void ExpectRows() {
        all.clear();
        int row = 0;
        ASSERT_NO_FATAL_FAILURE(Walk(grid.rootItems(), true, row));
        ASSERT_EQ(row, grid.GetItemCount());
    }

    CSuperGridCtrl grid;
    std::vector<CTreeItem*> all; // nodes that the last walk met, and those that it stepped over

private:
    void Walk(const ChildList& family, bool isShown, int& row) {
        for (CTreeItem* node : family) {
            all.push_back(node);
            ASSERT_EQ(isShown ? row : -1, grid.RowOfNode(node));
            if (isShown) {
                ASSERT_EQ(node->indent(), grid.GetItemIndent(row));
                ASSERT_EQ(node, grid.NodeAtRow(row++));
            }
            ASSERT_NO_FATAL_FAILURE(Walk(node->children(), isShown && !node->collapsed(), row));
        }
    }
};

TEST_F(TreeModel, RowsAreThePreorderOfTheShownNodesThroughoutRandomOperations) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t bound) { return static_cast<int>(random() % bound); };
    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE(step);
        CTreeItem* some = all.empty() ? nullptr : all[random() % all.size()];
        const int kind = some ? below(12) : 0;
        if (kind < 6) {
            CTreeItem* parent = kind > 0 ? some : nullptr;
            const int size = FamilyOf(parent).size();
            const int position = below(4) ? -1 : below(static_cast<std::size_t>(size) + 1);
            CTreeItem* added = Add(parent, "", {}, position);
            ASSERT_EQ(added, FamilyOf(parent)[position < 0 ? size : position]);
        } else if (kind < 8) {
            const bool opens = some->collapsed() && some->CanExpand() && some->row() >= 0;
            grid.ExpandNode(some, grid.RowOfNode(some));
            ASSERT_TRUE(!opens || some->rows() == 1 + some->children().size()) << "grandchildren stay out";
        } else if (kind == 8 && some->row() >= 0) {
            grid.ExpandSubtree(some, nullptr);
        } else if (kind == 9) {
            grid.CollapseNode(some);
            ASSERT_TRUE(some->collapsed() || !some->CanExpand());
        } else if (kind > 9) {
            RemoveWithRows(some);
        }
        ASSERT_NO_FATAL_FAILURE(ExpectRows());
    }
    EXPECT_GT(all.size(), 100u);
}

// More children than one block takes, so that blocks are cut, emptied and counted.
TEST_F(TreeModel, LargeFamiliesKeepTheirOrder) {
    std::mt19937 random(11);
    CTreeItem* group = Add(nullptr, "group");
    std::vector<CTreeItem*> plain;
    const auto add = [&](std::size_t position) {
        plain.insert(plain.begin() + static_cast<int>(position),
                     Add(group, "", {}, static_cast<int>(position)));
    };
    for (int i = 0; i < 1500; ++i)
        add(random() % (plain.size() + 1));
    grid.ExpandNode(group, 0);
    ASSERT_NO_FATAL_FAILURE(ExpectRows());
    for (int i = 0; i < 1400; ++i) {
        const auto victim = plain.begin() + static_cast<int>(random() % plain.size());
        RemoveWithRows(*victim);
        plain.erase(victim);
        if (i % 3 == 0)
            add(0);
    }
    ASSERT_NO_FATAL_FAILURE(ExpectRows());
    EXPECT_EQ(plain, (std::vector<CTreeItem*>(group->children().begin(), group->children().end())));
    for (int i = 0; i < group->children().size(); ++i)
        ASSERT_EQ(plain[static_cast<std::size_t>(i)], group->children()[i]);
}

// An emptied group stays open; what comes into it while it is hidden must not come out unasked.
TEST_F(TreeModel, WhatWasLeftOpenBelowStaysOutWhenTheParentExpands) {
    CTreeItem* top = Add(nullptr, "top");
    CTreeItem* emptied = Add(top, "emptied");
    CTreeItem* only = Add(emptied, "only");
    int last = -1;
    grid.ExpandSubtree(top, &last);
    EXPECT_EQ(2, last);
    RemoveWithRows(only);
    grid.CollapseNode(top);
    Add(emptied, "late");
    emptied->SetCollapsed(false);
    EXPECT_EQ(1, grid.ExpandNode(top, 0));
    ExpectRows();
}

TEST_F(TreeModel, RebuildDropsRowsThatNoNodeHasAndRowsOfRemovedNodesAreHarmless) {
    Add(nullptr, "second", {"2"});
    CTreeItem* first = Add(nullptr, "first", {"1"}, 0);
    CTreeItem* below = Add(first, "below");
    grid.ExpandNode(first, 0);
    EXPECT_EQ(Lines({"first|1", " below|", "second|2"}), Rows(grid)) << "moved rows show their own texts";
    EXPECT_EQ(1, grid.RemoveNode(below));
    EXPECT_EQ(Lines({"first|1", " |", "second|2"}), Rows(grid)) << "the list is the caller's";
    display.PaintWindow(grid.m_hWnd);
    grid.RebuildRows();
    EXPECT_EQ(Lines({"first|1", "second|2"}), Rows(grid));
}

TEST_F(TreeModel, NodesThatDoNotFitAnOperationAreLeftAlone) {
    CTreeItem* top = Add(nullptr, "top");
    CTreeItem* child = Add(top, "child");
    CTreeItem* marked = Add(nullptr, "marked");
    marked->expandMarker = 0;
    CSuperGridCtrl other;
    CTreeItem* foreign = GridTest::Add(other, nullptr, "foreign");
    EXPECT_EQ(0, grid.RemoveNode(top) + grid.RemoveNode(nullptr));
    EXPECT_EQ(0, grid.RemoveRootNode(child) + grid.RemoveRootNode(foreign));
    EXPECT_EQ(-1, grid.RowOfNode(foreign));
    EXPECT_EQ(nullptr, grid.AddChildNode(nullptr, nullptr, 1, nullptr));
    grid.ExpandNode(top, 0);
    EXPECT_EQ(1, grid.ExpandNode(child, 1));
    EXPECT_EQ(2, grid.ExpandNode(marked, 2));
    EXPECT_TRUE(child->collapsed());
    EXPECT_FALSE(marked->collapsed()); // also without children
}

TEST_F(GridTest, CopiesAreCollapsedAndOnlyTheTopOneGetsARow) {
    HookedGrid grid;
    MakeBare(grid);
    CTreeItem* source = Add(grid, nullptr, "source", {"1"});
    CTreeItem* inner = Add(grid, source, "inner", {"2"});
    Add(grid, inner, "leaf", {"3"});
    CTreeItem* target = Add(grid, nullptr, "target");
    Add(grid, target, "here");
    grid.ExpandNode(target, 1);
    EXPECT_EQ(1, grid.CopyNodeUnder(target, source));
    EXPECT_EQ(Lines({"source|1", "target|", " here|", " source|1"}), Rows(grid));
    grid.ExpandSubtree(target->children().back(), nullptr);
    EXPECT_EQ(Lines({"source|1", "target|", " here|", " source|1", "  inner|2", "   leaf|3"}), Rows(grid));
    EXPECT_EQ(0, grid.CopyNodeUnder(nullptr, source) + grid.CopyNodeUnder(inner, source)); // no end

    grid.CollapseNode(target);
    grid.ExpandNode(target, 1);
    while (!target->children().empty())
        grid.RemoveNode(target->children().front());
    grid.RebuildRows();
    grid.CopySubtree(target, source);
    EXPECT_EQ(Lines({"source|1", "target|"}), Rows(grid)) << "below an open node without children, too";
    EXPECT_EQ(2, grid.ExpandNode(target, 1));
}

TEST_F(TreeModel, AChainDeeperThanTheStackIsFreedAndCollapsed) {
    CTreeItem* top = Add(nullptr, "");
    CTreeItem* node = top;
    for (int depth = 0; depth < 100000; ++depth) {
        node->InsertChild(-1, new CTreeItem(new CItemInfo));
        node = node->children().back();
    }
    grid.ExpandNode(top, 0);
    grid.CollapseNode(top);
    EXPECT_TRUE(CSuperGridCtrl::IsNodeInSubtree(top, node));
}

} // namespace
} // namespace korvel
