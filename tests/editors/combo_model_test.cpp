#include "support/combo_fixture.h"

#include <chrono>

namespace korvel {
namespace {

class ComboModelTest : public ComboTest {};

TEST_F(ComboModelTest, EntriesThatTheHostReports) {
    TestEnumeration shown({"g/a", "b"}, ENF_Tree), other({"x"});
    Show(shown, eDesignTree);
    shown.entries.push_back({9, TextValue("g/h/new")});
    list->OnAddEnumValue(&other, 9); // not this list's
    EXPECT_EQ(Rows(), "+g|b");
    list->GetEnumSink().OnAddEnumValue(&shown, 9);
    EXPECT_EQ(Rows(), "-g|  a|  -h|    new|b");
    EXPECT_EQ(Current(), "new");
    list->OnAddEnumValue(&shown, 77); // not known to the enumeration
    list->OnDestroyEnumValue(&shown, 77);
    list->OnRenameEnumValue(&shown, 77, {});
    list->OnDestroyEnumValue(&shown, 9);
    EXPECT_EQ(Rows(), "-g|  a|  h|b"); // an emptied group stays
    TestEnumeration parents({"a", "p", "p/c"}, ENF_Tree);
    Show(parents, eDesignTree);
    for (const long id : {2, 1})
        list->OnDestroyEnumValue(&parents, id);
    EXPECT_EQ(Rows(), "+p"); // a group from now on
}

// Keeps rows as a control would: by what it hears.
struct RowKeeper final : internal::ComboRowSink {
    void OnRowsAdded(ComboTree::RowRange range) override {
        for (int row = range.first; row < range.first + range.count; ++row)
            rows.insert(rows.begin() + row, model->Tree().ItemAt(row));
    }
    void OnRowsHidden(ComboTree::RowRange range) override {
        rows.erase(rows.begin() + range.first, rows.begin() + range.first + range.count);
    }
    void OnRowsRemoved(ComboTree::RowRange range) override { OnRowsHidden(range); }
    void OnItemMoved(const ComboTreeItem&, ComboTreeItem&) override {}

    const ComboModel* model = nullptr;
    std::vector<const ComboTreeItem*> rows;
};

// Without a window.
class PlainModelTest : public testing::Test {
protected:
    ComboModel& Open(TestEnumeration& shown, EComboListMode mode, const std::string& selection = {}) {
        model = std::make_unique<ComboModel>(mode, keeper);
        keeper.model = model.get();
        keeper.rows.clear();
        model->Binding().SetValue(shown.ValueOf(selection));
        model->Open();
        model->InsertEntries();
        keeper.OnRowsAdded({0, model->Tree().RowCount()});
        return *model;
    }
    std::string Rows() const {
        std::vector<const ComboTreeItem*> rows;
        Recount(model->Tree().Root(), true, rows);
        EXPECT_EQ(keeper.rows, rows);
        return RowsOf(model->Tree());
    }

    RowKeeper keeper;
    std::unique_ptr<ComboModel> model;
};

TEST_F(PlainModelTest, NamesThatTheHostChanges) {
    const std::tuple<const char*, long, const char*, const char*> cases[] = {
        {"the last part", 1, "g/h/new", "-g|  -h|    xnew|    b|c"},
        {"labels above follow, for the others too", 1, "k/h/a", "-k|  -h|    xa|    b|c"},
        {"a shorter path stays in its group", 1, "z", "-g|  -h|    xz|    b|c"},
        {"a longer one moves the entry", 3, "g/h/i/c", "-g|  -h|    xa|    b|    +i"},
        {"no part at all", 3, "/", "-g|  -h|    xa|    b|/"},
    };
    for (const auto& [name, id, newName, rows] : cases) {
        TestEnumeration shown({"g/h/a", "g/h/b", "c"}, ENF_Tree | ENF_CheckBoxes);
        Open(shown, eDesignTree, ",1,");
        shown.Find(id)->name = TextValue(newName);
        ComboNames(*model).EntryRenamed(id);
        EXPECT_EQ(Rows(), rows) << name;
    }
}

TEST_F(PlainModelTest, UniqueNames) {
    TestEnumeration shown({"new value", "new value1", "x/y"}, ENF_Tree);
    const auto unique = [&](const char* base) {
        return ComboNames(*model).UniqueNameUnder(model->Tree().Root(), base);
    };
    Open(shown, eDesignTree);
    EXPECT_EQ(unique("new value"), "new value2");
    EXPECT_EQ(unique("y"), "y");
    Open(shown, eDesignFlat); // labels are whole paths: their first part counts
    EXPECT_EQ(unique("x"), "x1");
}

TEST_F(PlainModelTest, FormatsThatChangeRewriteLabels) {
    TestEnumeration shown({"g/a"}, ENF_Tree);
    ComboTree& tree = Open(shown, eDropDown, ",1,").Tree();
    tree.SetLabel(*tree.ItemAt(1), 0, "out of date");
    ComboNames(*model).RefreshLabels();
    EXPECT_EQ(Rows(), "-g|  xa"); // groups keep theirs
}

TEST_F(PlainModelTest, RowsThatAreAddedHiddenAndRemoved) {
    TestEnumeration shown({"g/a", "g/h/b", "c"}, ENF_Tree);
    ComboTree& tree = Open(shown, eDropDown).Tree();
    const ComboTreeItem& a = *tree.FindValue(1);
    EXPECT_EQ(a.GetRow(), 0); // its parent's: it was added to a closed group
    model->ExpandParent(tree.FindValue(2)->GetParent());
    EXPECT_EQ(Rows(), "-g|  a|  -h|    b|c");
    EXPECT_EQ(tree.ItemAt(0)->GetLastVisibleRow(), 3);
    model->Collapse(*tree.ItemAt(0));
    EXPECT_EQ(Rows(), "+g|c");
    EXPECT_EQ(a.GetRow(), -1);
    model->Expand(*tree.ItemAt(0)); // what was open in it is shown again
    ComboChoice(*model).SetCheck(*tree.ItemAt(0), true);
    EXPECT_EQ(Rows(), "-g|  xa|  -h|    xb|c");
    model->DestroySubTree(*tree.ItemAt(2));
    EXPECT_EQ(Rows(), "-g|  xa|c");
    EXPECT_EQ(model->AddValue("new", "g/k")->GetLabel(), "new");
    EXPECT_EQ(Rows(), "-g|  xa|  -k|    new|c");
}

TEST_F(ComboModelTest, NamesOfAMegabyte) {
    std::string deep;
    while (deep.size() < 1'000'000)
        deep += "a/";
    TestEnumeration shown({std::string(1'000'000, 'x'), deep + "b", deep + "c"}, ENF_Tree | ENF_CheckBoxes);
    Show(shown, eDesignTree, ",2,");
    EXPECT_EQ(list->GetItemCount(), 500'003);
    EXPECT_EQ(list->GetPath(*Item("b")), deep + "b");
    EXPECT_EQ(list->GetRootItem().GetChecked(), 1);
    list->Collapse(list->GetTreeItem(1));
    EXPECT_EQ(list->GetItemCount(), 2);
    list->GetModel().DestroySubTree(*list->GetTreeItem(1));
    EXPECT_EQ(list->GetItemCount(), 1);
    EXPECT_EQ(list->GetRootItem().GetChecked(), 0);
}

// A hundred thousand entries: what is linear takes a fraction of a second, what is not would take minutes.
TEST_F(ComboModelTest, NoStepGrowsWithTheSquareOfTheEntries) {
    struct Quick : TestEnumeration {
        bool GetName(long id, CVariantValue& name) override {
            name = entries[static_cast<std::size_t>(id) - 1].name;
            return true;
        }
        void Select(long, CVariantValue&) override {}
        void RemoveValue(long) override {}
    } shown;
    shown.flags = ENF_Tree | ENF_CheckBoxes;
    for (long id = 1; id <= 100'000; ++id)
        shown.entries.push_back({id, TextValue("group " + std::to_string(id % 1000) + "/entry")});
    const auto begin = std::chrono::steady_clock::now();
    Show(shown, eDesignTree);
    EXPECT_EQ(list->GetItemCount(), 1000);
    for (int row = 999; row >= 0; --row)
        list->Expand(list->GetTreeItem(row));
    EXPECT_EQ(list->GetItemCount(), 101'000);
    ComboChoice(list->GetModel()).SetCheck(const_cast<ComboTreeItem&>(list->GetRootItem()), true);
    EXPECT_EQ(list->GetRootItem().GetChecked(), 100'000);
    ExpectConsistent(*list);
    list->Collapse(list->GetTreeItem(505)); // group 6 of 101 rows each
    for (long id = 2; id <= 100'000; id += 2)
        list->OnDestroyEnumValue(&shown, id);
    ExpectConsistent(*list);
    list->GetModel().DestroySubTree(*list->GetTreeItem(0));
    for (int row = list->GetItemCount() - 1; row >= 0; --row)
        list->Collapse(list->GetTreeItem(row));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

} // namespace
} // namespace korvel
