#include "korvel/grid/tree_rows.h"
#include "support/plain_rows.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <stdexcept>

namespace korvel {
namespace {

using grid::CTreeItem;
using internal::TreeRows;

class TreeRowsTest : public testing::Test {
protected:
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
    TreeRows tree{list};
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

/// What a tree does, in the plainest way.
struct PlainNode {
    PlainNode* parent = nullptr;
    CTreeItem* node = nullptr;
    bool isOpen = false;
    std::vector<std::unique_ptr<PlainNode>> children;

    bool IsShown() const { return !parent || (parent->isOpen && parent->IsShown()); }
    void CloseBelow() {
        for (auto& child : children) {
            child->isOpen = false;
            child->CloseBelow();
        }
    }
    void Open() {
        if (!isOpen && !children.empty() && IsShown()) {
            CloseBelow();
            isOpen = true;
        }
    }
    void OpenAll() {
        Open();
        for (auto& child : children)
            child->OpenAll();
    }
    void Rows(std::vector<CTreeItem*>& rows) const {
        for (const auto& child : children) {
            rows.push_back(child->node);
            if (child->isOpen)
                child->Rows(rows);
        }
    }
    void All(std::vector<PlainNode*>& all) {
        for (auto& child : children) {
            all.push_back(child.get());
            child->All(all);
        }
    }
};

TEST_F(TreeRowsTest, RowsAreThoseOfAPlainModelThroughoutRandomOperations) {
    PlainNode plain;
    plain.isOpen = true;
    const auto remove = [&](PlainNode* victim) {
        auto& family = victim->parent->children;
        family.erase(std::find_if(family.begin(), family.end(),
                                  [=](const auto& child) { return child.get() == victim; }));
    };
    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE(step);
        std::vector<PlainNode*> all;
        plain.All(all);
        PlainNode* some = all.empty() ? &plain : all[random() % all.size()];
        const int kind = all.empty() ? 0 : Below(14);
        if (kind < 6) {
            PlainNode* parent = kind > 0 ? some : &plain;
            const int size = static_cast<int>(parent->children.size());
            const int position = Below(4) ? -1 : Below(parent->children.size() + 1);
            auto added = std::make_unique<PlainNode>();
            added->parent = parent;
            added->node = Add(parent->node, position);
            parent->children.insert(parent->children.begin() + (position < 0 ? size : position),
                                    std::move(added));
        } else if (kind < 8) {
            tree.Expand(some->node, 0);
            some->Open();
        } else if (kind == 8) {
            tree.ExpandAll(some->node, nullptr);
            some->OpenAll();
        } else if (kind < 11) {
            tree.Collapse(some->node);
            if (!some->children.empty() && some->isOpen) {
                some->isOpen = false;
                some->CloseBelow();
            }
        } else if (kind == 11) {
            RemoveByHand(some->node);
            remove(some);
        } else if (kind == 12) {
            tree.Remove(some->node);
            remove(some);
        } else if (Below(10) == 0) {
            tree.Unlink(some->node); // rows may stay meanwhile
            remove(some);
            tree.Rebuild();
        }
        std::vector<CTreeItem*> rows;
        plain.Rows(rows);
        ASSERT_EQ(list.Count(), static_cast<int>(rows.size()));
        for (int row = 0; row < list.Count(); ++row) {
            ASSERT_EQ(list.At(row), rows[static_cast<std::size_t>(row)]);
            ASSERT_EQ(tree.RowOf(list.At(row)), row);
        }
    }
}

TEST_F(TreeRowsTest, WhoeverHearsOfARowMayChangeTheTreeOrThrow) {
    int depth = 0;
    int heard = 0;
    const auto change = [&] {
        CTreeItem* some = Some();
        switch (some ? Below(9) : 0) {
        case 0:
        case 1:
            Add(Below(3) ? some : nullptr, Below(2) - 1);
            break;
        case 2:
            tree.ExpandAll(some, nullptr);
            break;
        case 3:
            tree.Expand(some, 0);
            break;
        case 4:
            tree.Collapse(some);
            break;
        case 5:
            tree.Remove(some);
            break;
        case 6:
            tree.Unlink(some);
            break;
        case 7:
            tree.CopyUnder(some, Some());
            break;
        default:
            if (Below(20) == 0)
                tree.Clear();
        }
    };
    list.onLeaving = [&](int) {
        ++heard;
        if (depth == 3 || Below(3))
            return;
        ++depth;
        try {
            change();
            change();
        } catch (...) {
            --depth;
            throw;
        }
        --depth;
        if (Below(6) == 0)
            throw std::runtime_error("a handler fails");
    };
    for (int step = 0; step < 4000; ++step) {
        SCOPED_TRACE(step);
        if (tree.Roots().size() < 8)
            Add(nullptr);
        // The second one brings the list in line after an Unlink.
        for (const auto& act :
             {std::function<void()>(change), std::function<void()>([&] { tree.RebuildIfNeeded(); })})
            try {
                act();
            } catch (const std::runtime_error&) {
            }
        ASSERT_EQ(depth, 0);
        ASSERT_NO_FATAL_FAILURE(ExpectRowsAlone());
    }
    EXPECT_GT(heard, 500);
}

// A handler finds each shown node at its row, although the rows that leave are in the list still.
TEST_F(TreeRowsTest, RowsAreFoundWhileOthersLeave) {
    CTreeItem* first = Add(nullptr);
    CTreeItem* second = Add(nullptr);
    for (CTreeItem* group : {first, second})
        for (int i = 0; i < 3; ++i)
            Add(Add(group));
    tree.ExpandAll(nullptr, nullptr);
    std::vector<int> left;
    list.onLeaving = [&](int row) {
        left.push_back(row);
        ASSERT_NO_FATAL_FAILURE(ExpectRows());
        if (left.size() == 2)
            Add(second, 0); // below the rows that leave
        if (left.size() == 3)
            Add(nullptr, 0); // above them
        ASSERT_NO_FATAL_FAILURE(ExpectRows());
    };
    tree.Collapse(first);
    EXPECT_EQ(left, (std::vector<int>{6, 5, 4, 4, 3, 2}));
    ExpectRowsAlone();
}

TEST_F(TreeRowsTest, ARowThatLeavesLeadsToNoNodeThatIsGone) {
    CTreeItem* group = Add(nullptr);
    Add(group);
    Add(group);
    tree.Expand(group, 0);
    std::vector<CTreeItem*> met;
    list.onLeaving = [&](int row) {
        met.push_back(tree.NodeAt(row));
        if (met.size() == 1)
            tree.Remove(group);
    };
    tree.Collapse(group);
    ASSERT_EQ(met.size(), 3u);
    EXPECT_NE(met.front(), nullptr);
    EXPECT_EQ(met.back(), nullptr);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(TreeRowsTest, RowsOfUnlinkedNodesLeadNowhereUntilARebuild) {
    CTreeItem* first = Add(nullptr);
    CTreeItem* second = Add(nullptr);
    CTreeItem* third = Add(nullptr);
    EXPECT_TRUE(tree.Unlink(first));
    EXPECT_TRUE(tree.Unlink(second)); // its row is not where the tree counts it any more
    EXPECT_FALSE(tree.Unlink(CTreeItem::MakeForest().get()));
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(tree.NodeAt(0), nullptr);
    EXPECT_EQ(tree.NodeAt(1), nullptr);
    EXPECT_EQ(tree.NodeAt(2), third);
    tree.Rebuild();
    ExpectRowsAlone();
}

// More children than one block takes, so that blocks are cut, emptied and counted.
TEST_F(TreeRowsTest, LargeFamiliesKeepTheirOrder) {
    CTreeItem* group = Add(nullptr);
    std::vector<CTreeItem*> plain;
    const auto add = [&](std::size_t position) {
        plain.insert(plain.begin() + static_cast<int>(position), Add(group, static_cast<int>(position)));
    };
    for (int i = 0; i < 600; ++i)
        add(0);
    for (int i = 0; i < 1500; ++i)
        add(random() % (plain.size() + 1));
    tree.Expand(group, 0);
    Add(plain[1700]);
    tree.Expand(plain[1700], 0);
    ASSERT_NO_FATAL_FAILURE(ExpectRowsAlone());
    for (int i = 0; i < 2050; ++i) {
        const auto victim = plain.begin() + (i % 3 ? Below(plain.size()) : 0);
        RemoveByHand(*victim);
        plain.erase(victim);
        if (i % 5 == 0)
            add(plain.size());
    }
    ASSERT_NO_FATAL_FAILURE(ExpectRowsAlone());
    EXPECT_EQ(std::vector<CTreeItem*>(group->children().begin(), group->children().end()), plain);
    for (int i = 0; i < group->children().size(); ++i)
        ASSERT_EQ(group->children()[i], plain[static_cast<std::size_t>(i)]);
    EXPECT_EQ(group->children().back(), plain.back());
    EXPECT_FALSE(plain.front()->IsLastChild());
    EXPECT_TRUE(plain.back()->IsLastChild());
}

// An emptied group stays open; what comes into it while it is hidden must not come out unasked.
TEST_F(TreeRowsTest, WhatWasLeftOpenBelowStaysOutWhenTheParentExpands) {
    CTreeItem* top = Add(nullptr);
    CTreeItem* emptied = Add(top);
    CTreeItem* only = Add(emptied);
    int last = -1;
    tree.ExpandAll(top, &last);
    EXPECT_EQ(last, 2);
    RemoveByHand(only);
    tree.Collapse(top);
    Add(emptied);
    emptied->SetCollapsed(false);
    EXPECT_EQ(tree.Expand(top, 0), 1);
    ExpectRowsAlone();
}

TEST_F(TreeRowsTest, ExpandingAllSaysWhereTheLastFamilyEnds) {
    CTreeItem* top = Add(nullptr);
    CTreeItem* open = Add(top);
    Add(open);
    CTreeItem* closed = Add(top);
    Add(Add(closed));
    tree.Expand(top, 0);
    tree.Expand(open, 1);
    const struct {
        const char* border;
        CTreeItem* node;
        int row;
    } rows[] = {{"nothing to expand", open->children().front(), -7},
                {"a family below one that comes", top, 5},
                {"what is open already counts as its own row", top, 4},
                {"a hidden family", nullptr, -1}};
    for (const auto& [border, node, row] : rows) {
        int last = -7;
        if (!node)
            tree.Collapse(top);
        tree.ExpandAll(node ? node : closed, &last);
        EXPECT_EQ(last, row) << border;
    }
}

TEST_F(TreeRowsTest, NodesThatDoNotFitAnOperationAreLeftAlone) {
    CTreeItem* top = Add(nullptr);
    CTreeItem* child = Add(top);
    CTreeItem* marked = Add(nullptr);
    marked->expandMarker = 0;
    PlainRows otherList;
    TreeRows other(otherList);
    CTreeItem* foreign = other.Link(nullptr, nullptr, -1);
    EXPECT_EQ(tree.RowOf(foreign), -1);
    EXPECT_EQ(tree.Expand(foreign, 3), -1);
    tree.Remove(foreign);
    EXPECT_EQ(other.Roots().size(), 1);
    tree.Expand(top, 0);
    EXPECT_EQ(tree.Expand(child, 1), 1);
    EXPECT_EQ(tree.Expand(marked, 2), 2);
    EXPECT_TRUE(child->collapsed());
    EXPECT_FALSE(marked->collapsed()); // also without children
    tree.Collapse(marked);
    EXPECT_TRUE(marked->collapsed());
}

TEST_F(TreeRowsTest, CopiesAreCollapsedAndOnlyTheTopOneGetsARow) {
    CTreeItem* source = Add(nullptr);
    CTreeItem* inner = Add(source);
    Add(inner)->info->text = "leaf";
    CTreeItem* target = Add(nullptr);
    Add(target);
    tree.Expand(target, 1);
    EXPECT_TRUE(tree.CopyUnder(target, source));
    EXPECT_EQ(list.Count(), 4);
    tree.ExpandAll(target->children().back(), nullptr);
    EXPECT_EQ(list.Count(), 6);
    EXPECT_EQ(list.At(5)->info->text, "leaf");
    EXPECT_EQ(list.At(5)->indent(), 4);
    EXPECT_FALSE(tree.CopyUnder(nullptr, source));
    EXPECT_FALSE(tree.CopyUnder(inner, source)); // no end

    while (!target->children().empty())
        tree.Remove(target->children().front());
    tree.CopyBelow(target, source);
    EXPECT_EQ(list.Count(), 2) << "below an open node without children, too";
    EXPECT_EQ(tree.Expand(target, 1), 2);

    for (CTreeItem* gone : {target, source}) {
        list.onCopying = [&] { tree.Remove(std::exchange(gone, nullptr)); };
        EXPECT_FALSE(tree.CopyUnder(target, source)) << "the host removes what is copied";
        if (tree.Roots().size() == 1)
            target = Add(nullptr);
    }
    ExpectRowsAlone();
}

TEST_F(TreeRowsTest, AChainDeeperThanTheStackOpensInOneStepAndIsFreed) {
    CTreeItem* top = Add(nullptr);
    CTreeItem* node = top;
    for (int depth = 0; depth < 100000; ++depth)
        node = tree.Link(node, nullptr, -1);
    list.insertions = 0;
    tree.ExpandAll(top, nullptr);
    EXPECT_EQ(list.Count(), 100001);
    EXPECT_EQ(list.insertions, 1);
    EXPECT_EQ(tree.RowOf(node), 100000);
    tree.Collapse(top);
    EXPECT_EQ(list.Count(), 1);
}

} // namespace
} // namespace korvel
