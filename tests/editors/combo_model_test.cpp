// What a list decides, without a window.

#include "korvel/editors/combo_write_back.h"
#include "korvel/editors/drop_down_height.h"
#include "support/combo_fixture.h"
#include "support/make_value.h"
#include "support/table.h"
#include "support/wilful_object.h"

namespace korvel {
namespace {

using internal::ComboBinding;
using internal::ComboWriteBack;
using internal::DropDownContent;

// Keeps rows as a control would: by what it is told.
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

class ComboModelTest : public testing::Test {
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

TEST_F(ComboModelTest, NamesThatTheHostChanges) {
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

TEST_F(ComboModelTest, ANameThatIsNoTextIsRenamedByTheTextThatWasTyped) {
    for (const auto& [border, name, type] :
         Table<CVariantValue, EDataTyps>{{"a text", TextValue("old"), DT_String},
                                         {"a file", MakeValue(DT_FileName, "old"), DT_FileName},
                                         {"a number", MakeValue(DT_Double, 3.5), DT_String}}) {
        TestEnumeration shown({"replaced"});
        shown.entries.front().name = name;
        Open(shown, eDesignFlat);
        EXPECT_TRUE(ComboNames(*model).RenameLabel(*model->Tree().FindValue(1), "7 m")) << border;
        EXPECT_EQ(shown.entries.front().name.Type, type) << border;
        EXPECT_EQ(shown.entries.front().name.Text, "7 m") << border;
        EXPECT_EQ(Rows(), "7 m") << border;
    }
}

TEST_F(ComboModelTest, UniqueNames) {
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

TEST_F(ComboModelTest, RowsThatAreAddedHiddenAndRemoved) {
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

class ComboWriteBackTest : public testing::Test {
protected:
    ComboWriteBackTest() {
        object.AddMember("m", true, shown.ValueOf(",1,"));
        binding.SetValue(shown.ValueOf(",1,"));
        binding.Open();
        writeBack.SetMember(&object, "m");
    }
    std::string Write(IObserverGrid* observer) {
        object.log.clear();
        writeBack.Write(observer);
        return object.log;
    }

    TestEnumeration shown{{"a", "b"}};
    WilfulObject object;
    ComboBinding binding{eDropDown};
    ComboWriteBack writeBack{binding};
};

TEST_F(ComboWriteBackTest, WritesNotifiesAndReadsBack) {
    EXPECT_FALSE(writeBack.IsDirty());
    binding.Value() = shown.ValueOf(",2,");
    EXPECT_TRUE(writeBack.IsDirty());
    EXPECT_EQ(Write(&object), "set ,2, changed m ,2, get ");
    EXPECT_FALSE(writeBack.IsDirty());
    object.correction = "!";
    EXPECT_EQ(Write(&object), "set ,2, changed m ,2, get changed m ,2,! ");
    EXPECT_EQ(binding.Value().Text, ",2,!");
    EXPECT_EQ(Write(nullptr), "set ,2,! get ");
    binding.Value() = shown.ValueOf(",1,");
    const bool& isDirty = writeBack.IsDirty();
    EXPECT_TRUE(isDirty); // for hosts that keep the reference
    writeBack.Forget();
    EXPECT_FALSE(isDirty);
    EXPECT_EQ(Write(&object), ""); // no object: written nowhere
    EXPECT_FALSE(writeBack.IsDirty());
}

TEST_F(ComboWriteBackTest, WhatTheObjectDoesMeanwhile) {
    object.inside = [&] {
        EXPECT_TRUE(writeBack.IsWriting());
        writeBack.Write(&object);
        EXPECT_FALSE(writeBack.IsDirty());
    };
    EXPECT_EQ(Write(&object), "set ,1, changed m ,1, get ");
    object.inside = [] { throw Error("no"); };
    EXPECT_THROW(Write(&object), Error);
    EXPECT_FALSE(writeBack.IsWriting());
    EXPECT_EQ(binding.Value().Text, ",1,");
    object.correction = "!";
    object.inside = [&] { binding.Close(), writeBack.Forget(); };
    EXPECT_EQ(Write(&object), "set ,1, ") << "an object that is no longer bound is neither told of nor read";
    EXPECT_EQ(binding.Value().Text, ",1,"); // that of another binding by now
}

TEST(DropDownHeight, WholeRowsOnly) {
    const Table<DropDownContent, int> rows = {
        {"as many as there are", {5, 20, 2, 900}, 102},
        {"at most 150 pixels", {50, 20, 2, 900}, 142},
        {"with a header", {50, 20, 26, 900}, 146},
        {"the screen ends", {50, 20, 2, 121}, 102},
        {"and leaves too little for three", {50, 20, 2, 61}, 62},
        {"none: as high as one", {0, 20, 2, 900}, 22},
        {"no height of rows", {9, 0, 2, 900}, 11},
    };
    for (const auto& [name, content, height] : rows)
        EXPECT_EQ(DropDownHeight(content), height) << name;
}

} // namespace
} // namespace korvel
