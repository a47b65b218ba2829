#include "korvel/platform/first_failure.h"
#include "support/table.h"
#include "support/tree_rows_fixture.h"

#include <functional>
#include <stdexcept>

namespace korvel {
namespace {

using internal::FirstFailure;
using internal::TreeRows;

// Also while rows leave, when the host throws, and where it removes rows by itself.
TEST_F(TreeRowsTest, RowsAreThoseOfTheTreeThroughoutRandomChanges) {
    int depth = 0;
    int heard = 0;
    bool isInLine = true; // the host has kept the list up with the tree
    const std::function<void(CTreeItem*)> changes[] = {
        [&](CTreeItem* some) { Add(Below(3) ? some : nullptr, Below(4) ? -1 : Below(5)); },
        [&](CTreeItem* some) { Add(some, Below(2) - 1); },
        [&](CTreeItem* some) { tree.ExpandAll(some, nullptr); },
        [&](CTreeItem* some) { tree.Expand(some, 0); },
        [&](CTreeItem* some) { tree.Collapse(some); },
        [&](CTreeItem* some) { tree.Remove(some); },
        [&](CTreeItem* some) { isInLine = !tree.Unlink(some); },
        [&](CTreeItem* some) { copies.CopyUnder(some, Some()); },
        [&](CTreeItem* some) {
            isInLine = isInLine && Below(2);
            tree.Hide(some, tree.RowOf(some) + (isInLine ? 1 : 0)); // its own row is wrong
        },
        [&](CTreeItem*) { Below(20) ? void() : tree.Clear(); },
    };
    const auto change = [&] {
        CTreeItem* some = Some();
        changes[some ? Below(std::size(changes)) : 0](some);
    };
    list.onLeaving = [&](int) {
        ++heard;
        if (isInLine)
            ASSERT_NO_FATAL_FAILURE(ExpectRows()) << "while others leave";
        if (depth == 3 || Below(3))
            return;
        ++depth;
        FirstFailure failure;
        failure.Try([&] { change(), change(); });
        --depth;
        failure.Rethrow();
        if (Below(6) == 0)
            throw std::runtime_error("a handler fails");
    };
    for (int step = 0; step < 6000; ++step) {
        SCOPED_TRACE(step);
        if (tree.Roots().size() < 8)
            Add(nullptr);
        const int row = Below(static_cast<std::size_t>(list.Count()));
        isInLine = Below(6);
        depth = isInLine ? 0 : 3; // handlers count on what the host says of the list
        if (!isInLine)
            list.RemoveQuietly(row, row + 1);
        FirstFailure ofAHandler;
        ofAHandler.Try(change);
        ofAHandler.Try([&] { tree.RebuildIfNeeded(); });
        ASSERT_FALSE(HasFailure());
        ASSERT_NO_FATAL_FAILURE(ExpectRowsAlone());
    }
    EXPECT_GT(heard, 500);
}

TEST_F(TreeRowsTest, ARowThatLeavesLeadsToNoNodeThatIsGone) {
    CTreeItem* group = Add(nullptr);
    Add(group);
    Add(group);
    tree.Expand(group, 0);
    std::vector<bool> leadsToANode;
    list.onLeaving = [&](int row) {
        leadsToANode.push_back(tree.NodeAt(row));
        if (leadsToANode.size() == 1)
            tree.Remove(group);
    };
    tree.Collapse(group);
    ASSERT_EQ(leadsToANode.size(), 3u);
    EXPECT_TRUE(leadsToANode.front());
    EXPECT_FALSE(leadsToANode.back());
    EXPECT_EQ(list.Count(), 0);

    CTreeItem* alone = Add(nullptr);
    list.onLeaving = [&](int row) { EXPECT_EQ(tree.NodeAt(row), nullptr) << "its node has left the tree"; };
    tree.Remove(alone);
}

TEST_F(TreeRowsTest, RowsOfRemovedNodesLeadNowhereUntilTheListIsInLine) {
    const auto unlink = [&](CTreeItem* node) { tree.Unlink(node); };
    const auto removeNode = [&](CTreeItem* node) { tree.Remove(node); };
    const auto hide = [&](CTreeItem* node) { tree.Hide(node, 0), tree.Unlink(node->children().front()); };
    for (const auto& [border, removeRow, remove] :
         Table<int, std::function<void(CTreeItem*)>>{{"unlinked", -1, unlink},
                                                     {"unlinked after the host removed a row", 0, unlink},
                                                     {"removed after it", 0, removeNode},
                                                     {"hidden at another row, then unlinked", -1, hide}}) {
        SCOPED_TRACE(border);
        tree.Clear();
        Add(nullptr);
        CTreeItem* group = Add(nullptr);
        Add(group);
        Add(nullptr);
        tree.Expand(group, 1);
        if (removeRow >= 0)
            list.RemoveQuietly(removeRow, removeRow + 1);
        remove(group);
        for (int row = 0; row < list.Count(); ++row)
            if (const CTreeItem* node = tree.NodeAt(row); node)
                EXPECT_NE(node->Top(), node) << "it was removed";
        tree.RebuildIfNeeded();
        ExpectRowsAlone();
    }
    EXPECT_FALSE(tree.Unlink(CTreeItem::MakeForest().get()));
}

// More children than one block takes, so that blocks are cut, emptied and counted.
TEST_F(TreeRowsTest, LargeFamiliesKeepTheirOrder) {
    CTreeItem* group = Add(nullptr);
    std::vector<CTreeItem*> plain;
    for (int i = 0; i < 2100; ++i) {
        const int place = i < 600 ? 0 : Below(plain.size() + 1);
        plain.insert(plain.begin() + place, Add(group, place));
    }
    tree.Expand(group, 0);
    Add(plain[1700]);
    tree.Expand(plain[1700], 0);
    ASSERT_NO_FATAL_FAILURE(ExpectRowsAlone());
    for (int i = 0; i < 2050; ++i) {
        const auto victim = plain.begin() + (i % 3 ? Below(plain.size()) : 0);
        RemoveByHand(*victim);
        plain.erase(victim);
        if (i % 5 == 0)
            plain.push_back(Add(group));
    }
    ASSERT_NO_FATAL_FAILURE(ExpectRowsAlone());
    EXPECT_EQ(std::vector<CTreeItem*>(group->children().begin(), group->children().end()), plain);
    for (int i = 0; i < group->children().size(); ++i)
        ASSERT_EQ(group->children()[i], plain[static_cast<std::size_t>(i)]);
    EXPECT_FALSE(plain.front()->IsLastChild());
    EXPECT_TRUE(plain.back()->IsLastChild());
}

// What comes into an emptied group, which stays open, must not come out unasked.
TEST_F(TreeRowsTest, ExpandingShowsTheChildrenCollapsedAndExpandingAllSaysWhereItEnds) {
    CTreeItem* top = Add(nullptr);
    CTreeItem* open = Add(top);
    CTreeItem* only = Add(open);
    tree.ExpandAll(top, nullptr);
    RemoveByHand(only);
    tree.Collapse(top);
    Add(open);
    open->SetCollapsed(false);
    EXPECT_EQ(tree.Expand(top, 0), 1);
    ASSERT_NO_FATAL_FAILURE(ExpectRowsAlone());

    CTreeItem* closed = Add(top);
    Add(Add(closed));
    tree.Expand(open, 1);
    for (const auto& [border, node, row] :
         Table<CTreeItem*, int>{{"nothing to expand", open->children().front(), -7},
                                {"a family below one that comes", top, 5},
                                {"what is open already counts as its own row", top, 4},
                                {"a hidden family", nullptr, -1}}) {
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
    EXPECT_TRUE(copies.CopyUnder(target, source));
    EXPECT_EQ(list.Count(), 4);
    tree.ExpandAll(target->children().back(), nullptr);
    EXPECT_EQ(list.Count(), 6);
    EXPECT_EQ(list.At(5)->info->text, "leaf");
    EXPECT_EQ(list.At(5)->indent(), 4);
    EXPECT_FALSE(copies.CopyUnder(nullptr, source));
    EXPECT_FALSE(copies.CopyUnder(inner, source)); // no end

    while (!target->children().empty())
        tree.Remove(target->children().front());
    copies.CopyBelow(target, source);
    EXPECT_EQ(list.Count(), 2) << "below an open node without children, too";
    EXPECT_EQ(tree.Expand(target, 1), 2);

    for (CTreeItem* gone : {target, source}) {
        list.onCopying = [&] { tree.Remove(std::exchange(gone, nullptr)); };
        EXPECT_FALSE(copies.CopyUnder(target, source)) << "the host removes what is copied";
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
