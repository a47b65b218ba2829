#include "grid_fixture.h"

#include <algorithm>
#include <random>

namespace korvel {
namespace {

using CTreeItem = CSuperGridCtrl::CTreeItem;

/// The tree as its definition tells it, without any of the grid's short cuts.
struct PlainNode {
    std::string name;
    std::vector<std::unique_ptr<PlainNode>> children;
    PlainNode* parent = nullptr;
    bool collapsed = true;
    CTreeItem* node = nullptr;
};

class PlainForest {
public:
    PlainNode top;

    PlainForest() { top.collapsed = false; }

    PlainNode* Insert(PlainNode* parent, int position, std::string name) {
        auto& family = parent->children;
        if (position < 0 || position > static_cast<int>(family.size()))
            position = static_cast<int>(family.size());
        auto node = std::make_unique<PlainNode>();
        node->name = std::move(name);
        node->parent = parent;
        PlainNode* raw = node.get();
        family.insert(family.begin() + position, std::move(node));
        return raw;
    }

    void Remove(PlainNode* node) {
        auto& family = node->parent->children;
        family.erase(std::find_if(family.begin(), family.end(), [&](auto& n) { return n.get() == node; }));
    }

    static void Collapse(PlainNode* node) {
        if (node->collapsed || node->children.empty())
            return;
        node->collapsed = true;
        for (auto& child : node->children)
            Collapse(child.get());
    }

    static bool IsShown(const PlainNode* node) {
        for (const PlainNode* above = node->parent; above; above = above->parent)
            if (above->collapsed)
                return false;
        return true;
    }

    static void Expand(PlainNode* node) {
        if (!IsShown(node) || node->children.empty() || !node->collapsed)
            return;
        for (auto& child : node->children)
            child->collapsed = true;
        node->collapsed = false;
    }

    static void ExpandAll(PlainNode* node) {
        Expand(node);
        for (auto& child : node->children)
            ExpandAll(child.get());
    }

    std::vector<const PlainNode*> Shown() const {
        std::vector<const PlainNode*> shown;
        Collect(top, shown);
        return shown;
    }

    std::vector<PlainNode*> All() {
        std::vector<PlainNode*> all;
        CollectAll(top, all);
        return all;
    }

private:
    static void Collect(const PlainNode& parent, std::vector<const PlainNode*>& shown) {
        for (const auto& child : parent.children) {
            shown.push_back(child.get());
            if (!child->collapsed)
                Collect(*child, shown);
        }
    }
    static void CollectAll(PlainNode& parent, std::vector<PlainNode*>& all) {
        for (const auto& child : parent.children) {
            all.push_back(child.get());
            CollectAll(*child, all);
        }
    }
};

/// The caller's part of a removal, as the operations leave it to the caller.
void RemoveWithRows(CSuperGridCtrl& grid, CTreeItem* node) {
    if (const int row = grid.RowOfNode(node); row >= 0) {
        grid.HideSubtree(node, 0, row + 1);
        grid.DeleteItem(row);
    }
    EXPECT_EQ(1, node->parent() ? grid.RemoveNode(node) : grid.RemoveRootNode(node));
    grid.RenumberRows();
}

class TreeModel : public GridTest {
protected:
    TreeModel() { MakeBare(grid); }

    void ExpectSameRows(const std::string& after) {
        const auto shown = plain.Shown();
        ASSERT_EQ(static_cast<int>(shown.size()), grid.GetItemCount()) << after;
        for (int row = 0; row < grid.GetItemCount(); ++row) {
            ASSERT_EQ(shown[static_cast<std::size_t>(row)]->node, grid.NodeAtRow(row))
                << after << ", row " << row;
            ASSERT_EQ(row, grid.RowOfNode(grid.NodeAtRow(row))) << after;
        }
        for (const PlainNode* node : plain.All())
            ASSERT_EQ(PlainForest::IsShown(node), grid.RowOfNode(node->node) >= 0) << after;
    }

    CSuperGridCtrl grid;
    PlainForest plain;
};

TEST_F(TreeModel, RowsAreThePreorderOfTheShownNodesThroughoutRandomOperations) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t bound) { return static_cast<int>(random() % bound); };
    for (int step = 0; step < 3000; ++step) {
        const auto all = plain.All();
        PlainNode* some = all.empty() ? nullptr : all[static_cast<std::size_t>(below(all.size()))];
        const int kind = below(12);
        if (!some || kind < 6) {
            PlainNode* parent = some && kind > 0 ? some : &plain.top;
            const int position = below(4) ? -1 : below(parent->children.size() + 1);
            PlainNode* added = plain.Insert(parent, position, "node " + std::to_string(step));
            added->node = parent == &plain.top
                              ? grid.AddRootNode(Info(added->name), &position)
                              : grid.AddChildNode(parent->node, Info(added->name), 1, &position);
        } else if (kind < 8) {
            PlainForest::Expand(some);
            grid.ExpandNode(some->node, grid.RowOfNode(some->node));
        } else if (kind == 8) {
            if (PlainForest::IsShown(some)) {
                PlainForest::ExpandAll(some);
                grid.ExpandSubtree(some->node, nullptr);
            }
        } else if (kind == 9) {
            PlainForest::Collapse(some);
            grid.CollapseNode(some->node);
        } else {
            RemoveWithRows(grid, some->node);
            plain.Remove(some);
        }
        ASSERT_NO_FATAL_FAILURE(ExpectSameRows("step " + std::to_string(step)));
    }
    EXPECT_GT(plain.All().size(), 100u);
}

// More children than one block takes, so that blocks are cut, emptied and counted.
TEST_F(TreeModel, LargeFamiliesKeepTheirOrder) {
    std::mt19937 random(11);
    PlainNode* group = plain.Insert(&plain.top, -1, "group");
    group->node = grid.AddRootNode(Info("group"), nullptr);
    const auto add = [&](int position) {
        PlainNode* added = plain.Insert(group, position, "");
        added->node = grid.AddChildNode(group->node, nullptr, 1, &position);
    };
    for (int i = 0; i < 1500; ++i)
        add(static_cast<int>(random() % (group->children.size() + 1)));
    PlainForest::Expand(group);
    grid.ExpandNode(group->node, 0);
    ASSERT_NO_FATAL_FAILURE(ExpectSameRows("expanded"));
    for (int i = 0; i < 1400; ++i) {
        PlainNode* victim = group->children[random() % group->children.size()].get();
        RemoveWithRows(grid, victim->node);
        plain.Remove(victim);
        if (i % 3 == 0)
            add(0);
    }
    ASSERT_NO_FATAL_FAILURE(ExpectSameRows("thinned out"));
    const ChildList& family = group->node->children();
    for (int i = 0; i < family.size(); ++i)
        ASSERT_EQ(group->children[static_cast<std::size_t>(i)]->node, family[i]);
}

TEST_F(TreeModel, CollapsingClosesTheGrandchildrenToo) {
    auto* root = grid.AddRootNode(Info("root"), nullptr);
    auto* child = grid.AddChildNode(root, Info("child"), 1, nullptr);
    grid.AddChildNode(child, Info("grandchild"), 1, nullptr);
    int last = -1;
    grid.ExpandSubtree(root, &last);
    EXPECT_EQ(2, last);
    grid.CollapseNode(root);
    EXPECT_EQ(Lines({"root|"}), Rows(grid));
    EXPECT_EQ(1, grid.ExpandNode(root, 0));
    EXPECT_EQ(Lines({"root|", " child|"}), Rows(grid));
}

TEST_F(TreeModel, ANodeWithoutChildrenExpandsOnlyWhenMarked) {
    auto* plainNode = grid.AddRootNode(nullptr, nullptr);
    auto* marked = grid.AddRootNode(nullptr, nullptr);
    marked->expandMarker = 0;
    EXPECT_EQ(0, grid.ExpandNode(plainNode, 0));
    EXPECT_TRUE(plainNode->collapsed());
    EXPECT_EQ(1, grid.ExpandNode(marked, 1));
    EXPECT_FALSE(marked->collapsed());
    EXPECT_EQ(2, grid.GetItemCount());
}

// An emptied group stays open; what comes into it while it is hidden must not come out unasked.
TEST_F(TreeModel, WhatWasLeftOpenBelowStaysOutWhenTheParentExpands) {
    auto* root = grid.AddRootNode(Info("root"), nullptr);
    auto* emptied = grid.AddChildNode(root, Info("emptied"), 1, nullptr);
    auto* only = grid.AddChildNode(emptied, Info("only"), 1, nullptr);
    grid.ExpandSubtree(root, nullptr);
    RemoveWithRows(grid, only);
    grid.CollapseNode(root);
    grid.AddChildNode(emptied, Info("late"), 1, nullptr);
    grid.ExpandNode(root, 0);
    EXPECT_EQ(Lines({"root|", " emptied|"}), Rows(grid));
}

TEST_F(TreeModel, RowsMovedByAnInsertAtAPositionShowTheirOwnTexts) {
    grid.AddRootNode(Info("b", {"2"}), nullptr);
    grid.AddRootNode(Info("c", {"3"}), nullptr);
    const int front = 0;
    grid.AddRootNode(Info("a", {"1"}), &front);
    const int behindFirst = 1;
    grid.AddRootNode(Info("a2", {"1.5"}), &behindFirst);
    EXPECT_EQ(Lines({"a|1", "a2|1.5", "b|2", "c|3"}), Rows(grid));
}

TEST_F(TreeModel, RebuildDropsRowsThatNoNodeHasAndRowsOfRemovedNodesAreHarmless) {
    auto* first = grid.AddRootNode(Info("first"), nullptr);
    grid.AddChildNode(first, Info("below"), 1, nullptr);
    grid.AddRootNode(Info("second"), nullptr);
    grid.ExpandNode(first, 0);
    EXPECT_EQ(1, grid.RemoveRootNode(first));
    EXPECT_EQ(3, grid.GetItemCount()); // the list is the caller's
    EXPECT_EQ("", grid.GetItemText(0, 0));
    display.PaintWindow(grid.m_hWnd);
    grid.RebuildRows();
    EXPECT_EQ(Lines({"second|"}), Rows(grid));
}

TEST_F(TreeModel, RemovingLooksForChildrenAndRootsApart) {
    auto* root = grid.AddRootNode(nullptr, nullptr);
    auto* child = grid.AddChildNode(root, nullptr, 1, nullptr);
    CSuperGridCtrl other;
    auto* foreign = other.AddRootNode(nullptr, nullptr);
    EXPECT_EQ(0, grid.RemoveNode(root));
    EXPECT_EQ(0, grid.RemoveRootNode(child));
    EXPECT_EQ(0, grid.RemoveRootNode(foreign));
    EXPECT_EQ(0, grid.RemoveNode(nullptr));
    EXPECT_EQ(-1, grid.RowOfNode(foreign));
    EXPECT_EQ(nullptr, grid.AddChildNode(nullptr, nullptr, 1, nullptr));
}

class CopyingGrid : public CSuperGridCtrl {
public:
    CItemInfo* CopyItemInfo(const CItemInfo* source) override { return new CItemInfo(*source); }
};

TEST_F(GridTest, CopiesAreCollapsedAndOnlyTheTopOneGetsARow) {
    CopyingGrid grid;
    MakeBare(grid);
    auto* source = grid.AddRootNode(Info("source", {"1"}), nullptr);
    auto* inner = grid.AddChildNode(source, Info("inner", {"2"}), 1, nullptr);
    grid.AddChildNode(inner, Info("leaf", {"3"}), 1, nullptr);
    auto* target = grid.AddRootNode(Info("target"), nullptr);
    grid.AddChildNode(target, Info("here"), 1, nullptr);
    grid.ExpandNode(target, 1);
    EXPECT_EQ(1, grid.CopyNodeUnder(target, source));
    EXPECT_EQ(Lines({"source|1", "target|", " here|", " source|1"}), Rows(grid));
    grid.ExpandSubtree(target->children().back(), nullptr);
    EXPECT_EQ(Lines({"source|1", "target|", " here|", " source|1", "  inner|2", "   leaf|3"}), Rows(grid));
    EXPECT_EQ(0, grid.CopyNodeUnder(nullptr, source));
    EXPECT_EQ(0, grid.CopyNodeUnder(inner, source)); // would have no end
}

TEST_F(GridTest, CopiesBelowANodeThatLostItsChildrenGetNoRows) {
    CopyingGrid grid;
    MakeBare(grid);
    auto* source = grid.AddRootNode(Info("source"), nullptr);
    grid.AddChildNode(source, Info("inner"), 1, nullptr);
    auto* target = grid.AddRootNode(Info("target"), nullptr);
    grid.AddChildNode(target, Info("old"), 1, nullptr);
    grid.ExpandNode(target, 1);
    grid.RemoveNode(target->children().front());
    grid.RebuildRows();
    grid.CopySubtree(target, source);
    EXPECT_EQ(Lines({"source|", "target|"}), Rows(grid));
    EXPECT_EQ(2, grid.ExpandNode(target, 1));
    EXPECT_EQ(Lines({"source|", "target|", " inner|"}), Rows(grid));
}

TEST_F(TreeModel, AChainDeeperThanTheStackIsFreedAndCollapsed) {
    auto* root = grid.AddRootNode(nullptr, nullptr);
    CTreeItem* node = root;
    for (int depth = 0; depth < 100000; ++depth) {
        CTreeItem* child = new CTreeItem(new CItemInfo);
        node->InsertChild(-1, child);
        node = child;
    }
    EXPECT_EQ(100001, node->indent());
    grid.ExpandNode(root, 0);
    grid.CollapseNode(root);
    EXPECT_TRUE(CSuperGridCtrl::IsNodeInSubtree(root, node));
}

} // namespace
} // namespace korvel
