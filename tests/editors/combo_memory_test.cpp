// Wherever memory ends, a tree has the rows, counts and names of its items.

#include "support/combo_fixture.h"
#include "support/failing_memory.h"
#include "support/table.h"

#include <optional>

namespace korvel {
namespace {

/// Two open groups, one of them with more entries than a block of rows takes, and a closed one.
struct LargeTree {
    LargeTree() {
        for (const char* name : {"small", "large", "closed"})
            tree.AddGroup(tree.Root(), name);
        for (long id = 1; id <= 300; ++id)
            Add("large", id);
        for (const char* name : {"small", "closed"})
            Add(name, nextId);
        tree.Expand(Group("small"));
        tree.Expand(Group("large"));
    }
    ComboTreeItem& Group(const char* name) { return *tree.FindChild(tree.Root(), name); }
    ComboTreeItem& Add(const char* group, long id) {
        nextId = id + 1;
        return tree.AddValue(Group(group), id, TextValue("entry"),
                             "a label that is too long for a string itself");
    }
    ComboTree tree;
    long nextId = 0;
};

void ExpectAgreement(LargeTree& large) {
    std::vector<const ComboTreeItem*> rows;
    Recount(large.tree.Root(), true, rows);
    ASSERT_EQ(large.tree.RowCount(), static_cast<int>(rows.size()));
    for (int row = 0; row < large.tree.RowCount(); ++row)
        ASSERT_EQ(large.tree.ItemAt(row), rows[static_cast<std::size_t>(row)]);
    const ComboTreeItem& root = large.tree.Root();
    for (const ComboTreeItem* item = root.GetFirstChild(); item; item = item->GetNextUnder(root)) {
        if (item->HasRow())
            ASSERT_EQ(rows[static_cast<std::size_t>(item->GetRow())], item);
        if (item->IsValue())
            ASSERT_EQ(large.tree.FindValue(item->GetId()), item);
        else
            ASSERT_EQ(large.tree.FindChild(large.tree.Root(), item->GetLabel()), item);
    }
}

TEST(ComboTreeMemory, EachChangeIsWholeOrUndoneAndRemovalsNeedNone) {
    const Table<std::function<void(LargeTree&)>, bool> changes = {
        {"an entry among others", [](LargeTree& l) { l.Add("small", l.nextId); }, true},
        {"an entry in a full block", [](LargeTree& l) { l.Add("large", l.nextId); }, true},
        {"an entry that is not shown", [](LargeTree& l) { l.Add("closed", l.nextId); }, true},
        {"a group", [](LargeTree& l) { l.tree.AddGroup(l.tree.Root(), "new"); }, true},
        {"another label", [](LargeTree& l) { l.tree.SetLabel(l.Group("small"), 0, "new"); }, true},
        {"a search", [](LargeTree& l) { l.tree.FindValue(7); }, true},
        {"rows that come", [](LargeTree& l) { l.tree.Expand(l.Group("closed")); }, true},
        {"rows that go", [](LargeTree& l) { l.tree.Collapse(l.Group("large")); }, false},
        {"a group with all below", [](LargeTree& l) { l.tree.RemoveSubTree(l.Group("large")); }, false},
        {"all", [](LargeTree& l) { l.tree.Clear(); }, false},
    };
    for (const auto& [border, change, mayFail] : changes)
        for (const bool isKept : {false, true})
            for (int passing = 0;; ++passing) {
                SCOPED_TRACE(testing::Message() << border << ", after " << passing << " allocations");
                LargeTree large;
                if (std::string(border) != "a search")
                    large.tree.FindValue(1);
                bool hasFailed = false;
                try {
                    const std::optional<ComboTree::KeepItems> keep =
                        isKept ? std::optional<ComboTree::KeepItems>(std::in_place, large.tree)
                               : std::nullopt;
                    const FailingMemory memory(passing, hasFailed);
                    change(large);
                } catch (const std::bad_alloc&) {
                }
                ASSERT_NO_FATAL_FAILURE(ExpectAgreement(large));
                EXPECT_TRUE(mayFail || !hasFailed);
                if (!hasFailed || HasFatalFailure())
                    break;
            }
}

} // namespace
} // namespace korvel
