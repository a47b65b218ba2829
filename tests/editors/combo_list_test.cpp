#include "korvel/values/member_dispatch_imp.h"
#include "support/combo_fixture.h"

namespace korvel {
namespace {

using namespace std::chrono_literals;

class ComboListTest : public ComboTest {};

TEST_F(ComboListTest, RowsAndSelectionAtTheStart) {
    struct Case {
        const char* name;
        EComboListMode mode;
        std::uint32_t flags;
        Strings names;
        std::string selection, rows, current;
    };
    const Strings deep = {"g/a", "g/h/b", "g/c", "k/d"};
    const Case cases[] = {
        {"no entries", eDropDown, 0, {}, "", "", ""},
        {"a flat list splits nothing", eDropDown, 0, {"a/b", "/"}, ",1,", "xa/b|/", "a/b"},
        {"mode 0 stays flat", eDesignFlat, ENF_Tree, {"a/b"}, "", "a/b", ""},
        {"groups are closed", eDesignTree, ENF_Tree, {"g/a", "g/b", "c"}, "", "+g|c", ""},
        {"repeated and leading separators", eDropDown, ENF_Tree, {"/a", "g//b"}, "", "a|+g", ""},
        {"a separator behind a backslash", eDropDown, ENF_Tree, {"a\\/b"}, "", "a\\/b", ""},
        {"no segment at all", eDropDown, ENF_Tree, {"", "///"}, "", "|///", ""},
        {"an entry that others stand under", eDropDown, ENF_Tree, {"a", "a/b"}, "", "+a", ""},
        {"a group before the entry of its name", eDropDown, ENF_Tree, {"a/b", "a"}, "", "+a|a", ""},
        {"bytes above 127", eDropDown, ENF_Tree, {"\xC4\xFF/\xB2"}, "", "+\xC4\xFF", ""},
        {"the last match leads", eDropDown, ENF_Tree, deep, ",1,,2,", "-g|  xa|  -h|    xb|  c|+k", "b"},
        {"no match", eDropDown, ENF_Tree, deep, ",99,", "+g|+k", ""},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown(row.names, row.flags);
        Show(shown, row.mode, row.selection);
        EXPECT_EQ(Rows(), row.rows);
        EXPECT_EQ(Current(), row.current);
        EXPECT_NE(list->GetInputState(), nullptr);
        ExpectConsistent(*list);
    }
}

TEST_F(ComboListTest, RowNumbersOfItemsThatAreNotShown) {
    TestEnumeration shown({"x", "g/a", "g/h/b"}, ENF_Tree);
    Show(shown);
    ComboTreeItem& group = *Item("g");
    const ComboTreeItem& entry = *group.GetFirstChild();
    ComboTreeItem& inner = *entry.GetNextSibling();
    EXPECT_EQ(entry.GetRow(), 1); // its parent's: it came under a closed group
    list->ExpandParent(&inner);
    EXPECT_EQ(Rows(), "x|-g|  a|  -h|    b");
    EXPECT_EQ(entry.GetRow(), 2);
    EXPECT_EQ(group.GetLastVisibleRow(), 4);
    list->Collapse(&group);
    EXPECT_EQ(entry.GetRow(), -1);
    list->Expand(&group); // what was open in it comes back
    EXPECT_EQ(Rows(), "x|-g|  a|  -h|    b");
    ExpectConsistent(*list);
}

TEST_F(ComboListTest, TableHasAColumnForEachMember) {
    TMemberDispatchImp<int> pattern("pattern"), first("first"), second("second");
    pattern.AddMember("height", true, TextValue(""));
    pattern.AddMember("width", true, TextValue(""));
    first.AddMember("width", true, TextValue("7"));
    const auto group = [](IMemberDispatch& object) {
        CVariantValue value;
        value.Type = DT_Group;
        value.Value.Dispatch = &object;
        return value;
    };
    TestEnumeration shown;
    shown.type = DT_Group;
    shown.entries = {{1, group(first)}, {2, group(second)}, {3, CVariantValue()}};
    const CVariantValue patternValue = group(pattern);
    shown.pattern = &patternValue;
    Show(shown, eDesignFlat);
    EXPECT_EQ(list->GetColumnCount(), 3);
    EXPECT_EQ(list->GetColumnTitle(0), "Bezeichnung");
    EXPECT_EQ(list->GetColumnTitle(2), "width");
    EXPECT_EQ(list->GetColumnWidth(1), 66); // 200 / 3
    EXPECT_EQ(list->GetItemText(0, 0), "first");
    EXPECT_EQ(list->GetItemText(0, 2), "7");
    EXPECT_EQ(list->GetItemText(0, 1), "");
    EXPECT_EQ(list->GetSinkTypes(), std::set<EDataTyps>{DT_String});

    // Objects compare equal whatever they are: here they must be the same.
    Mouse(WM_LBUTTONDOWN, {10, 24 + 30});
    EXPECT_EQ(shown.calls, "select 2");

    TestEnumeration flat({"a"});
    list->Initialize("value", flat.ValueOf("")); // the header goes again
    EXPECT_EQ(list->GetColumnCount(), 1);
    EXPECT_EQ(list->GetColumnWidth(0), 200);
    EXPECT_TRUE(list->GetStyle() & LVS_NOCOLUMNHEADER);
}

TEST_F(ComboListTest, AnotherBindingWritesToTheNewObject) {
    TestEnumeration shown({"a", "b"});
    TMemberDispatchImp<int> one("one"), two("two");
    one.AddMember("m", true, shown.ValueOf(",1,"));
    two.AddMember("n", true, shown.ValueOf(",2,"));
    Make(eDropDown);
    list->Initialize(&one, "m");
    EXPECT_EQ(Current(), "a");
    list->Initialize(&two, "n");
    EXPECT_EQ(Current(), "b");
    EXPECT_EQ(list->GetDisp(), &two);
    EXPECT_EQ(list->GetMemberName(), "n");

    list->Initialize(&one, "absent"); // nothing to show: the rows stay
    EXPECT_EQ(Rows(), "a|xb");
    EXPECT_EQ(list->GetMemberName(), "absent");
    list->Initialize(&two, list->GetMemberName()); // its own name
    list->UnIntialize();
    EXPECT_EQ(list->GetItemCount(), 0);
    EXPECT_EQ(list->GetDisp(), nullptr);
    EXPECT_THROW(list->Initialize(), Error); // the enumeration is forgotten
    EXPECT_THROW(list->Initialize("value", TextValue("plain")), Error);
}

// An object that makes something else of what it is given, and the observer of its changes.
class WilfulObject : public TMemberDispatchImp<int>, public IObserverGrid {
public:
    WilfulObject() : TMemberDispatchImp("object") {}
    std::string log;
    std::string correction;
    std::function<void()> inside;

    bool SetMember(const std::string& name, const CVariantValue& value) override {
        log += "set " + value.Text + " ";
        if (inside)
            inside();
        CVariantValue taken = value;
        taken.Text += correction;
        return TMemberDispatchImp::SetMember(name, taken);
    }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        log += "get ";
        return TMemberDispatchImp::GetMember(name, value);
    }
    void OnChange(IMemberDispatch*, void*, const std::string& name, const CVariantValue& value) override {
        log += "changed " + name + " " + value.Text + " ";
    }
    void AddSink(IMemberDispatch*, IObserverGridSink*) override {}
    void RemoveSink(IMemberDispatch*, IObserverGridSink*) override {}
    void OnRemove(IMemberDispatch*, void*, const std::string&) override {}
    void OnRename(IMemberDispatch*, void*, const std::string&, const std::string&) override {}
    void OnAdd(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnChangeEditFlag(IMemberDispatch*, void*, const std::string&, const bool&) override {}
    void OnChangeType(IMemberDispatch*, void*, const std::string&, EDataTyps, const CVariantValue&) override {
    }
};

class UpdateDispTest : public ComboTest {
protected:
    void SetUp() override {
        ComboTest::SetUp();
        object.AddMember("m", true, shown.ValueOf(",1,"));
        Make(eDropDown).Initialize(&object, "m");
    }
    std::string Update(IObserverGrid* observer) {
        object.log.clear();
        list->UpdateDisp(observer);
        return object.log;
    }

    TestEnumeration shown{{"a", "b"}};
    WilfulObject object;
};

TEST_F(UpdateDispTest, WritesTellsAndReadsBack) {
    Do("down");
    EXPECT_TRUE(list->IsDirty());
    EXPECT_EQ(Update(&object), "set ,2, changed m ,2, get ");
    EXPECT_FALSE(list->IsDirty());
    object.correction = "!";
    EXPECT_EQ(Update(&object), "set ,2, changed m ,2, get changed m ,2,! ");
    EXPECT_EQ(list->GetValue().Text, ",2,!");
    EXPECT_EQ(Update(nullptr), "set ,2,! get ");
    list->Initialize("value", shown.ValueOf(",1,")); // no object: written nowhere
    EXPECT_EQ(Update(&object), "");
    EXPECT_FALSE(list->IsDirty());
}

TEST_F(UpdateDispTest, WhatTheObjectDoesMeanwhile) {
    object.inside = [&] {
        EXPECT_TRUE(list->IsRunningUpdateDisp());
        list->UpdateDisp(&object);
        EXPECT_FALSE(list->IsDirty());
    };
    EXPECT_EQ(Update(&object), "set ,1, changed m ,1, get ");
    object.inside = [] { throw Error("no"); };
    EXPECT_THROW(Update(&object), Error);
    EXPECT_FALSE(list->IsRunningUpdateDisp());
    EXPECT_EQ(list->GetValue().Text, ",1,");
    object.inside = [&] { list->UnIntialize(); };
    EXPECT_EQ(Update(&object), "set ,1, changed m ,1, get ");
    EXPECT_FALSE(list->IsInitialized());
}

TEST_F(UpdateDispTest, APictureThatIsDismissedMeanwhileGoesAfterwardsForGood) {
    display.SetPicture("plan.png", Image{30, 20, std::vector<std::uint32_t>(600)});
    shown.commonImage = "plan.png";
    for (int i = 0; i < 3; ++i)
        Do("move row 0");
    display.Advance(500ms);
    ASSERT_TRUE(list->IsPreviewShown());
    object.inside = [&] {
        Mouse(WM_LBUTTONUP, InRow(0));
        EXPECT_TRUE(list->IsPreviewShown());
    };
    Update(&object);
    EXPECT_FALSE(list->IsPreviewShown());
    display.Advance(2s); // until the next move
    EXPECT_FALSE(list->IsPreviewShown());
}

} // namespace
} // namespace korvel
