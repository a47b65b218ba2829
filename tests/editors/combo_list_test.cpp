#include "combo_fixture.h"
#include "values/member_dispatch_imp.h"

namespace korvel {
namespace {

using namespace std::chrono_literals;

class ComboListTest : public ComboTest {};

TEST_F(ComboListTest, ShapesOfNames) {
    struct Case {
        const char* name;
        EComboListMode mode;
        std::uint32_t flags;
        Strings names;
        Strings rows;
    };
    const Case cases[] = {
        {"no entries", eDropDown, 0, {}, {}},
        {"a flat list splits nothing", eDropDown, 0, {"a/b", "/"}, {"a/b", "/"}},
        {"mode 0 stays flat", eDesignFlat, ENF_Tree, {"a/b"}, {"a/b"}},
        {"groups are closed", eDesignTree, ENF_Tree, {"g/a", "g/b", "c"}, {"+g", "c"}},
        {"repeated and leading separators", eDropDown, ENF_Tree, {"/a", "g//b"}, {"a", "+g"}},
        {"a separator behind a backslash", eDropDown, ENF_Tree, {"a\\/b"}, {"a\\/b"}},
        {"no segment at all", eDropDown, ENF_Tree, {"", "///"}, {"", "///"}},
        {"an entry that others stand under", eDropDown, ENF_Tree, {"a", "a/b"}, {"+a"}},
        {"a group comes before the entry of its name", eDropDown, ENF_Tree, {"a/b", "a"}, {"+a", "a"}},
        {"bytes above 127", eDropDown, ENF_Tree, {"\xC4\xFF/\xB2"}, {"+\xC4\xFF"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown(row.names, row.flags);
        Show(shown, row.mode);
        EXPECT_EQ(Rows(), row.rows);
        ExpectConsistent(*list);
        EXPECT_TRUE(list->IsInitialized());
    }
}

TEST_F(ComboListTest, SelectionAtTheStart) {
    TestEnumeration shown({"g/a", "g/h/b", "g/c", "k/d"}, ENF_Tree | ENF_CheckBoxes);
    Show(shown, eDropDown, ",1,,2,");
    EXPECT_EQ(Rows(), (Strings{"-g", "  xa", "  -h", "    xb", "  c", "+k"}));
    EXPECT_EQ(Highlighted(), "b"); // the last match
    EXPECT_EQ(Current(), "b");
    const CComboTreeItem& entry = *Item("b");
    EXPECT_EQ(entry.GetChecked(), 1);
    EXPECT_EQ(entry.GetUnchecked(), 0);
    EXPECT_EQ(Item("g")->GetChecked(), 2);
    ExpectConsistent(*list);

    Show(shown, eDropDown, ",99,");
    EXPECT_EQ(Rows(), (Strings{"+g", "+k"}));
    EXPECT_EQ(Highlighted(), "");
    EXPECT_EQ(list->GetCurrentRow(), -1);
}

TEST_F(ComboListTest, RowNumbersOfItemsThatAreNotShown) {
    TestEnumeration shown({"x", "g/a", "g/h/b"}, ENF_Tree);
    Show(shown);
    const CComboTreeItem& group = *Item("g");
    const CComboTreeItem& entry = *group.GetFirstChild();
    const CComboTreeItem& inner = *entry.GetNextSibling();
    EXPECT_EQ(entry.GetRow(), 1); // its parent's: it came under a closed group
    list->ExpandParent(const_cast<CComboTreeItem*>(&inner));
    EXPECT_EQ(Rows(), (Strings{"x", "-g", "  a", "  -h", "    b"}));
    EXPECT_EQ(entry.GetRow(), 2);
    EXPECT_EQ(group.GetLastVisibleRow(), 4);
    list->Collapse(const_cast<CComboTreeItem*>(&group));
    EXPECT_EQ(entry.GetRow(), -1);
    EXPECT_EQ(inner.GetFirstChild()->GetRow(), -1);
    EXPECT_TRUE(inner.IsExpanded()); // comes back as it was
    list->Expand(const_cast<CComboTreeItem*>(&group));
    EXPECT_EQ(Rows().size(), 5u);
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
    input::Mouse(list->m_hWnd, WM_LBUTTONDOWN, 0, {10, 24 + 30});
    EXPECT_EQ(shown.calls, (Strings{"select 2"}));

    list->UnIntialize();
    EXPECT_EQ(list->GetColumnCount(), 0);
    TestEnumeration flat({"a"});
    list->Initialize("value", flat.ValueOf("")); // the header goes again
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
    EXPECT_EQ(Rows().size(), 2u);
    EXPECT_EQ(list->GetMemberName(), "absent");
    list->Initialize(&two, list->GetMemberName()); // its own name
    list->UnIntialize();
    EXPECT_EQ(list->GetItemCount(), 0);
    EXPECT_EQ(list->GetDisp(), nullptr);
    EXPECT_THROW(list->Initialize(), Error); // the enumeration is forgotten
    EXPECT_THROW(list->Initialize("value", TextValue("plain")), Error);
}

/// An object that makes something else of what it is given.
class WilfulObject : public TMemberDispatchImp<int> {
public:
    explicit WilfulObject(std::vector<std::string>& calls) : TMemberDispatchImp("object"), log(calls) {}
    std::vector<std::string>& log;
    std::string correction;
    bool throws = false;
    std::function<void()> inside;

    bool SetMember(const std::string& name, const CVariantValue& value) override {
        log.push_back("set " + value.Text);
        if (throws)
            throw Error("no");
        if (inside)
            inside();
        CVariantValue taken = value;
        taken.Text += correction;
        return TMemberDispatchImp::SetMember(name, taken);
    }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        log.push_back("get");
        return TMemberDispatchImp::GetMember(name, value);
    }
};

class Observer final : public IObserverGrid {
public:
    explicit Observer(std::vector<std::string>& calls) : log(calls) {}
    std::vector<std::string>& log;
    void AddSink(IMemberDispatch*, IObserverGridSink*) override {}
    void RemoveSink(IMemberDispatch*, IObserverGridSink*) override {}
    void OnChange(IMemberDispatch*, void*, const std::string& name, const CVariantValue& value) override {
        log.push_back("changed " + name + " " + value.Text);
    }
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
        log.clear();
    }

    std::vector<std::string> log;
    TestEnumeration shown{{"a", "b"}};
    WilfulObject object{log};
    Observer observer{log};
};

TEST_F(UpdateDispTest, WritesTellsAndReadsBack) {
    Key(VK_DOWN);
    EXPECT_TRUE(list->IsDirty());
    log.clear();
    list->UpdateDisp(&observer);
    EXPECT_EQ(log, (Strings{"set ,2,", "changed m ,2,", "get"}));
    EXPECT_FALSE(list->IsDirty());

    object.correction = "!";
    log.clear();
    list->UpdateDisp(&observer);
    EXPECT_EQ(log, (Strings{"set ,2,", "changed m ,2,", "get", "changed m ,2,!"}));
    EXPECT_EQ(list->GetValue().Text, ",2,!");

    log.clear();
    list->UpdateDisp(nullptr);
    EXPECT_EQ(log, (Strings{"set ,2,!", "get"}));
}

TEST_F(UpdateDispTest, DoesNothingInsideItself) {
    object.inside = [&] {
        EXPECT_TRUE(list->IsRunningUpdateDisp());
        list->UpdateDisp(&observer);
        EXPECT_FALSE(list->IsDirty());
    };
    list->UpdateDisp(&observer);
    EXPECT_EQ(log.size(), 3u);
    EXPECT_FALSE(list->IsRunningUpdateDisp());
}

TEST_F(UpdateDispTest, APictureThatIsDismissedMeanwhileGoesAfterwardsForGood) {
    using namespace std::chrono_literals;
    display.SetPicture("plan.png", Image{30, 20, std::vector<std::uint32_t>(600)});
    shown.commonImage = "plan.png";
    for (int i = 0; i < 3; ++i)
        Mouse(WM_MOUSEMOVE, InRow(0));
    display.Advance(500ms);
    ASSERT_TRUE(list->IsPreviewShown());
    object.inside = [&] {
        Mouse(WM_LBUTTONUP, InRow(0));
        EXPECT_TRUE(list->IsPreviewShown());
    };
    list->UpdateDisp(&observer);
    EXPECT_FALSE(list->IsPreviewShown());
    display.Advance(2s); // until the next move
    EXPECT_FALSE(list->IsPreviewShown());
}

TEST_F(UpdateDispTest, AnObjectThatThrowsLeavesNoUpdateRunning) {
    object.throws = true;
    EXPECT_THROW(list->UpdateDisp(&observer), Error);
    EXPECT_FALSE(list->IsRunningUpdateDisp());
    EXPECT_EQ(list->GetValue().Text, ",1,");
}

TEST_F(UpdateDispTest, AnObjectMayEndTheBinding) {
    object.inside = [&] { list->UnIntialize(); };
    list->UpdateDisp(&observer);
    EXPECT_EQ(log, (Strings{"set ,1,", "changed m ,1,", "get"}));
    EXPECT_FALSE(list->IsInitialized());
}

TEST_F(UpdateDispTest, AValueWithoutObjectIsWrittenNowhere) {
    list->Initialize("value", shown.ValueOf(",1,"));
    log.clear();
    list->UpdateDisp(&observer);
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(list->IsDirty());
}

} // namespace
} // namespace korvel
