#include "korvel/grid/context_menu.h"
#include "korvel/values/language.h"
#include "korvel/window/menu/menu.h"
#include "support/grid_fixture.h"
#include "support/history_log.h"
#include "support/plain_tree.h"
#include "support/table.h"

namespace korvel {
namespace {

using internal::FillContextMenu;
using internal::MenuPermissions;

/// "*15042 Delete;-;Copy{...};"
std::string Written(const CMenu& menu) {
    std::string text;
    for (int position = 0; position < menu.GetMenuItemCount(); ++position) {
        const auto item = static_cast<UINT>(position);
        const UINT state = menu.GetMenuState(item, MF_BYPOSITION);
        const CMenu* popup = menu.GetSubMenu(position);
        text += (state & MF_SEPARATOR)
                    ? "-"
                    : (state & MF_CHECKED ? "*" : "") +
                          (popup ? "" : std::to_string(menu.GetMenuItemID(position)) + " ") +
                          menu.GetMenuStringA(item, MF_BYPOSITION) +
                          (popup ? "{" + Written(*popup) + "}" : "");
        text += ";";
    }
    return text;
}

std::list<SCommand> Commands(std::initializer_list<const char*> texts) {
    std::list<SCommand> commands;
    for (const char* text : texts)
        commands.push_back({text, static_cast<std::uint32_t>(commands.size() + 1)});
    return commands;
}

constexpr MenuPermissions Everything{};
constexpr MenuPermissions Nothing{false, false, false, false, false, false, false};
constexpr MenuPermissions NoFormats{true, true, true, true, true, false, false};

class ContextMenuTest : public GermanMachine {
protected:
    ContextMenuTest() {
        SetLanguageForThisRun("English");
        inner.With("depth", Number(DT_Double, 2));
        root.With("x", Number(DT_Double, 1.5)).With("group", Group(&inner)).With("none", Group(nullptr));
        tree.rows.Bind(&root, [] {});
    }

    std::string MenuOf(const char* member, const MenuPermissions& allowed) {
        const auto target =
            internal::TargetOf(*member ? tree.rows.Find(&root, member) : nullptr, 1, tree.rows);
        CMenu menu;
        menu.CreatePopupMenu();
        return FillContextMenu(menu, tree.rows, target, allowed) ? Written(menu) : "gone";
    }

    HostObject inner{"inner"}, root{"root"};
    internal::PlainTree tree{nullptr};
};

TEST_F(ContextMenuTest, HoldsWhatFlagsAndPermissionsAllow) {
    constexpr const char* AllOfX =
        "15051 Open;15055 Open folder;-;Copy{15053 Value;15054 Column;15049 Row;15050 Complete tree;};"
        "15042 Delete;15043 Rename;-;18039 Write protected;<Double> \xE4ndern in{15010 Integer;15014 Long;"
        "15012 Float;15013 Text;15020 Unsigned integer;15016 Angle;15015 Angle;};15041 New;-;15017 Formats;";
    constexpr unsigned All = MF_File | MF_Delete | MF_Rename | MF_WriteProtect | MF_ChangeType | MF_Change;
    for (const auto& [border, member, flags, ofRoot, ofInner, allowed, menu] :
         Table<const char*, unsigned, unsigned, unsigned, MenuPermissions, const char*>{
             {"everything", "x", All, EF_Add, 0, Everything, AllOfX},
             {"nothing is permitted", "x", All & ~MF_File, EF_Add, 0, Nothing, ""},
             {"files need no permission", "x", All, EF_Add, 0, Nothing, "15051 Open;15055 Open folder;"},
             {"no flags", "x", 0, 0, 0, NoFormats, ""},
             {"formats alone stand behind no separator", "x", 0, 0, 0, {.copy = false}, "15017 Formats;"},
             {"protection alone neither", "x", MF_WriteProtect, 0, 0, NoFormats, "18039 Write protected;"},
             {"change, where no rename is allowed", "x", MF_Change, 0, 0, NoFormats, "15043 Change;"},
             {"change and rename", "x", MF_Change | MF_Rename, 0, 0, NoFormats, "15043 Rename;"},
             {"a group without a name of its own", "group", MF_Change | MF_Rename, EF_Rename, 0, NoFormats,
              ""},
             {"a group with one", "group", MF_Rename, 0, EF_Rename, NoFormats, "15043 Rename;"},
             {"a group without an object", "none", MF_Rename, EF_Rename, 0, NoFormats, ""},
             {"a group adds to itself", "group", 0, 0, EF_Add, NoFormats, "15041 New;"},
             {"a group is no source", "group", MF_ChangeType, 0, 0, NoFormats, ""},
             {"beside the rows only the root's", "", All, EF_Add, 0, Everything,
              "15041 New;-;15017 Formats;"}}) {
        root.memberFlags = flags;
        root.SetEditFlags(ofRoot);
        inner.SetEditFlags(ofInner);
        EXPECT_EQ(MenuOf(member, allowed), menu) << border;
    }
    root.memberFlags = MF_WriteProtect;
    root.SetEditFlags(0);
    root.SetMemberEditable("x", false);
    EXPECT_EQ(MenuOf("x", NoFormats), "*18039 Write protected;");
}

TEST_F(ContextMenuTest, NumbersTheCommandsOfObjectsThroughAllLists) {
    const auto many = [](int count) {
        return std::list<SCommand>(static_cast<std::size_t>(count), SCommand{"c", 1});
    };
    root.memberFlags = MF_Commands;
    for (HostObject* object : {&root, &inner})
        object->SetEditFlags(EF_Commands | EF_Add);
    for (const auto& [border, member, ofMember, furtherOfMember, ofObject, further, menu] :
         Table<const char*, std::list<SCommand>, std::list<SCommand>, std::list<SCommand>,
               std::list<SCommand>, const char*>{
             {"the order", "x", Commands({"a"}), Commands({"b"}), Commands({"c"}), Commands({"d"}),
              "15021 a;Extras{15022 b;};15041 New;15023 c;15024 d;"},
             {"separators take no number",
              "x",
              Commands({"", "a", "", "", "b", ""}),
              Commands({"", "c", ""}),
              {},
              Commands({"", "d", ""}),
              "15021 a;-;15022 b;-;Extras{15023 c;};15041 New;-;15024 d;"},
             {"beside the rows", "", Commands({"a"}), Commands({"b"}), Commands({"c"}), Commands({"d"}),
              "15041 New;15021 c;15022 d;"}}) {
        root.memberCommands = ofMember;
        root.memberExtraCommands = furtherOfMember;
        root.commands = ofObject;
        root.extraCommands = further;
        EXPECT_EQ(MenuOf(member, NoFormats), menu) << border;
    }
    root.memberCommands = many(1'000'000);
    root.memberCommands.splice(root.memberCommands.begin(), std::list<SCommand>(1'000'000));
    root.memberCommands.front().text = std::string(1'000'000, 'x');
    const std::string menu = MenuOf("x", NoFormats);
    EXPECT_TRUE(menu.ends_with("-;15022 c;15023 c;15024 c;15025 c;15026 c;15027 c;15028 c;15029 c;15030 c;"
                               "15031 c;15032 c;15033 c;15034 c;15035 c;15036 c;15037 c;15038 c;15039 c;"
                               "15040 c;15041 New;"))
        << menu.substr(menu.size() - 300);
    root.memberCommands = many(19);
    root.memberExtraCommands = Commands({"b"});
    root.commands = Commands({"left out"});
    EXPECT_TRUE(MenuOf("x", NoFormats).ends_with("15039 c;Extras{15040 b;};15041 New;"));
}

TEST_F(ContextMenuTest, AsksEachListOnlyWhereAFlagAllows) {
    std::string calls;
    inner.calls = root.calls = &calls;
    for (const auto& [border, member, flags, ofRoot, ofInner, asked] :
         Table<const char*, unsigned, unsigned, unsigned, const char*>{
             {"none", "x", MF_WriteProtect, 0, 0, "get x flags x editable? x "},
             {"of the member", "x", MF_Commands, 0, 0, "get x flags x commands of x extras of x "},
             {"of the object", "x", 0, EF_Commands, 0, "get x flags x commands  extras  "},
             {"of the group", "group", 0, EF_Commands, EF_Commands,
              "get group flags group commands  extras  "},
             {"beside the rows", "", MF_Commands, EF_Commands, 0, "commands  extras  "}}) {
        root.memberFlags = flags;
        root.SetEditFlags(ofRoot);
        inner.SetEditFlags(ofInner);
        calls.clear();
        MenuOf(member, Everything);
        EXPECT_EQ(calls, asked) << border;
    }
}

TEST_F(ContextMenuTest, AnObjectThatThrowsOffersNothingAndOneThatGoesEndsTheMenu) {
    root.memberFlags = MF_Commands | MF_Delete | MF_WriteProtect;
    root.SetEditFlags(EF_Commands | EF_Add);
    root.memberCommands = Commands({"a"});
    root.memberExtraCommands = Commands({"b"});
    root.commands = Commands({"c"});
    root.extraCommands = Commands({"d"});
    for (const auto& [failing, menu] :
         Table<const char*>{{"get", "15042 Delete;-;18039 Write protected;15021 a;Extras{15022 b;};15041 New;"
                                    "15023 c;15024 d;"},
                            {"flags", "15041 New;15021 c;15022 d;"},
                            {"editable?", "15042 Delete;-;*18039 Write protected;15021 a;Extras{15022 b;};"
                                          "15041 New;15023 c;15024 d;"},
                            {"commands of", "15042 Delete;-;18039 Write protected;Extras{15021 b;};15041 New;"
                                            "15022 c;15023 d;"},
                            {"extras of", "15042 Delete;-;18039 Write protected;15021 a;15041 New;15022 c;"
                                          "15023 d;"},
                            {"may", "15042 Delete;-;18039 Write protected;15021 a;Extras{15022 b;};"},
                            {"commands", "15042 Delete;-;18039 Write protected;15021 a;Extras{15022 b;};"
                                         "15041 New;15023 d;"},
                            {"extras", "15042 Delete;-;18039 Write protected;15021 a;Extras{15022 b;};"
                                       "15041 New;15023 c;"}}) {
        root.onOperation = [failing = std::string(failing)](const std::string& operation) {
            if (operation == failing)
                throw std::runtime_error("of the host");
        };
        EXPECT_EQ(MenuOf("x", NoFormats), menu) << failing;
        root.onOperation = [&, failing = std::string(failing)](const std::string& operation) {
            if (operation == failing)
                tree.rows.Unbind();
        };
        EXPECT_EQ(MenuOf("x", NoFormats), "gone") << failing;
        root.onOperation = nullptr;
        tree.rows.Bind(&root, [] {});
    }
}

TEST_F(ContextMenuTest, AListThatBreaksOffIsNotOffered) {
    struct BreakingOff : HostObject {
        void GetCommands(std::list<SCommand>& list) override {
            list = Commands({"half"});
            throw std::runtime_error("of the host");
        }
    } half;
    half.SetEditFlags(EF_Commands);
    half.extraCommands = Commands({"last"});
    tree.rows.Unbind();
    tree.rows.Bind(&half, [] {});
    EXPECT_EQ(MenuOf("", NoFormats), "15021 last;");
    tree.rows.Unbind();
}

/// The menu over a grid.
class GridMenuTest : public GermanMachine, protected GridWindows {
protected:
    GridMenuTest() {
        SetLanguageForThisRun("English");
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 224}, &parent, 105);
        grid.SetAllowFormats(false);
        point.With("x", Number(DT_Double, 1)).With("y", Number(DT_Double, 2));
        root.With("p", Group(&point)).With("on", Flag(true)).With("width", Number(DT_Double, 3));
        for (HostObject* object : {&root, &point}) {
            object->memberFlags = MF_Delete | MF_Rename | MF_Commands | MF_ChangeType;
            object->memberCommands = {{"first", 7}, {"", 0}, {"zero", 0}};
            object->memberExtraCommands = {{"further", 9}};
            object->SetEditFlags(EF_Add | EF_Commands);
            object->commands = {{"of the object", 11}};
            object->extraCommands = {{"last", 12}};
            object->doesItself = true; // "New" opens no dialog
        }
        Show(root);
        grid.ExpandAll();
        observer.answers = true;
        root.calls = point.calls = &calls;
    }

    void RightClick(CPoint at) {
        input::Mouse(grid.m_hWnd, WM_RBUTTONDOWN, MK_RBUTTON, at);
        input::Mouse(grid.m_hWnd, WM_RBUTTONUP, 0, at);
    }
    void Choose(unsigned command, CPoint at) {
        display.AnswerNext(command);
        RightClick(at);
    }
    void Show(HostObject& object) {
        grid.Clear();
        grid.Initialize(&object, "Name", "Value", 0);
    }
    std::string Run() {
        calls.clear();
        input::DispatchMessages();
        return calls;
    }

    struct Parent : HistoryParent {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (refusesSelection && message == WM_NOTIFY &&
                reinterpret_cast<const NMHDR*>(lParam)->code == LVN_ITEMCHANGING)
                return 1;
            if (message == WM_CONTEXTMENU)
                asked += "menu ";
            if (message == WM_COMMAND && lParam)
                asked += std::to_string(wParam) + " ";
            return HistoryParent::WindowProc(message, wParam, lParam);
        }
        std::string asked;
        bool refusesSelection = false;
    } parent;
    std::string calls;
    RecordingObserver observer;
    CEditableGrid grid{&observer, nullptr};
};

TEST_F(GridMenuTest, ACommandRunsForTheRowThatWasClicked) {
    const CPoint blank{100, Middle(8)};
    for (const auto& [border, at, command, selected, called] : Table<CPoint, int, int, const char*>{
             {"of the member", Label(1), 15021, 1, "flags x commands of x extras of x command x 7 "},
             {"further", Label(1), 15023, 1, "flags x commands of x extras of x command x 9 "},
             {"kept: the id 0 runs nothing", Label(1), 15022, 1,
              "flags x commands of x extras of x commands  extras  "},
             {"of the owner", Value(1), 15024, 1,
              "flags x commands of x extras of x commands  extras  run 11 "},
             {"of the group", Label(0), 15025, 0,
              "flags p commands of p extras of p commands  extras  run 12 "},
             {"new, in the group", Label(0), 15041, 0, "adding?  "},
             {"beside the rows", blank, 15022, -1, "commands  extras  run 12 "},
             {"new, beside the rows", blank, 15041, -1, "adding?  "}}) {
        Select(grid, 4);
        grid.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED); // a list keeps both when one is clicked
        Choose(command, at);
        EXPECT_EQ(SelectedRow(grid), selected) << border;
        EXPECT_EQ(Run(), called) << border;
        EXPECT_EQ(grid.SendMessageA(LVM_GETSELECTEDCOUNT), selected == -1 ? 0 : 1) << border;
    }
    Select(grid, 1);
    grid.SendMessageA(WM_COMMAND, 15026);
    EXPECT_EQ(Run(), "");
    EXPECT_EQ(parent.asked, "") << "the menu was the grid's";
}

TEST_F(GridMenuTest, WhatWasClickedIsMeantAlsoWhenTheRowsAreOthersByThen) {
    const auto removeAbove = [this] { grid.OnOperationRemove(&root, "p", Group(&point)); };
    for (const auto& [border, between, called] : Table<std::function<void()>, const char*>{
             {"another selection", [this] { Select(grid, 0); }, "flags width removing? width "},
             {"rows above are removed", removeAbove, "flags width removing? width "},
             {"its own is removed", [this] { grid.OnOperationRemove(&root, "width", {}); }, ""},
             {"the binding ends", [this] { grid.Clear(); }, ""},
             {"another object is shown", [this] { Show(point); }, ""}}) {
        for (const bool isOpen : {false, true}) {
            Show(root);
            const int row = grid.RowOfNode(grid.LookupTreeItem(&root, "width"));
            display.AnswerNextMenu([&, between = between](const auto&) {
                if (isOpen)
                    between();
                return static_cast<unsigned>(GridCommand::RemoveMember);
            });
            RightClick(Label(row));
            if (!isOpen)
                between();
            EXPECT_EQ(Run(), called) << border << (isOpen ? ", open" : ", chosen");
        }
    }
    Show(root);
    Choose(15042, Label(1));
    Choose(15042, Label(2));
    Choose(0, Label(0));
    EXPECT_EQ(Run(), "flags on removing? on flags width removing? width ") << "one menu after the other";
    for (const auto& [shown, called] : {std::pair(&root, "adding?  "), {&point, ""}}) {
        Choose(15041, {100, Middle(8)});
        Show(*shown);
        EXPECT_EQ(Run(), called) << "beside the rows of the same object, not of another one";
    }
}

TEST_F(GridMenuTest, TheColumnThatWasClickedIsMeant) {
    grid.Clear();
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    grid.Initialize(&root, "Name", "Value", 0);
    for (int column = 0; column < 3; ++column)
        grid.SetColumnWidth(column, 100);
    Choose(15010, {250, Middle(0)});
    input::Key(grid.m_hWnd, WM_KEYDOWN, VK_LEFT, "");
    display.MovePointer({150, Middle(0)});
    EXPECT_EQ(Run().substr(0, 6), "get y ");
    EXPECT_EQ(grid.GetCurrentColumn(), 2);

    const auto offers = [&](int column) {
        Choose(0, {column * 100 + 50, Middle(0)});
        std::string texts;
        for (const MenuEntry& entry : display.ShownMenus().back())
            texts += entry.text + ";";
        return texts;
    };
    for (HostObject* object : {&root, &point})
        object->SetEditFlags(0);
    root.memberFlags = MF_Delete;
    point.memberFlags = MF_File | MF_ChangeType;
    point.RemoveMember("y");
    point.With("y", Whole(DT_Int, 2));
    EXPECT_EQ(offers(1), "Open;Open folder;;Delete;<Double> \xE4ndern in;");
    EXPECT_EQ(offers(2), "Open;Open folder;;Delete;<Integer> \xE4ndern in;");
    EXPECT_EQ(offers(0), "Delete;") << "that of the row";
    root.memberFlags = MF_File | MF_ChangeType | MF_Delete;
    point.memberFlags = 0;
    EXPECT_EQ(offers(1), "Delete;") << "of the object itself";
    EXPECT_EQ(offers(0), "Open;Open folder;;Delete;");
}

TEST_F(GridMenuTest, AGridThatRunsACommandItselfFindsSelectedWhatWasClicked) {
    struct OwnDelete : CEditableGrid {
        using CEditableGrid::CEditableGrid;
        bool OnCommand(WPARAM wParam, LPARAM lParam) override {
            if (wParam != 15042)
                return CEditableGrid::OnCommand(wParam, lParam);
            deleted += std::to_string(SelectedRow(*this)) + " ";
            return true;
        }
        std::string deleted;
    } own{&observer, nullptr};
    own.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 224}, &parent, 106);
    own.Initialize(&root, "Name", "Value", 0);
    display.AnswerNext(15042);
    input::Mouse(own.m_hWnd, WM_RBUTTONDOWN, MK_RBUTTON, Label(1));
    Select(own, 2);
    Run();
    Select(own, 2);
    own.SendMessageA(WM_COMMAND, 15042);
    EXPECT_EQ(own.deleted, "1 2 ");
}

TEST_F(GridMenuTest, AChoiceThatWasTakenIsMeantNoMore) {
    struct Asking : CEditableGrid {
        using CEditableGrid::CEditableGrid;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            const bool isTaken = message == WM_COMMAND && std::exchange(takesNext, false);
            return isTaken ? 0 : CEditableGrid::WindowProc(message, wParam, lParam);
        }
        bool takesNext = false;
    } asking{&observer, nullptr};
    const auto make = [&] {
        asking.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 224}, &parent, 106);
        asking.Initialize(&root, "Name", "Value", 0);
    };
    const auto choose = [&](int row) {
        display.AnswerNext(15042);
        input::Mouse(asking.m_hWnd, WM_RBUTTONDOWN, MK_RBUTTON, Label(row));
    };
    const auto sendFor = [&](int row) {
        Select(asking, row);
        calls.clear();
        asking.SendMessageA(WM_COMMAND, 15042);
        return calls;
    };
    make();
    choose(1);
    asking.takesNext = true;
    EXPECT_EQ(Run(), "");
    EXPECT_EQ(sendFor(2), "flags width removing? width ") << "taken by the host";
    choose(1);
    asking.DestroyWindow();
    make();
    EXPECT_EQ(sendFor(2), "flags width removing? width ") << "gone with the window";
    choose(1);
    EXPECT_EQ(sendFor(2), "flags width removing? width ") << "still on its way";
    EXPECT_EQ(Run(), "flags on removing? on ");
}

TEST_F(GridMenuTest, NothingIsDoneWhereTheRowMayNotBeSelected) {
    Select(grid, 4);
    parent.refusesSelection = true;
    for (const CPoint at : {Label(3), CPoint{100, Middle(8)}}) {
        Choose(15042, at);
        EXPECT_EQ(Run(), "");
        EXPECT_EQ(SelectedRow(grid), 4);
    }
}

TEST_F(GridMenuTest, KeysOpenItAtTheSelectedRow) {
    for (int member = 0; member < 30; ++member)
        grid.OnOperationAdd(&root, "m" + std::to_string(member), Flag(true));
    Select(grid, 20);
    display.AnswerNext(15021);
    input::Key(grid.m_hWnd, WM_KEYUP, 0x5D, "");
    EXPECT_EQ(Run().find("command m15"), std::string::npos);
    EXPECT_GE(20, grid.GetTopIndex());
    EXPECT_LT(20, grid.GetTopIndex() + 10) << "scrolled into view";
    EXPECT_EQ(Run(), "flags m15 commands of m15 extras of m15 command m15 7 ");
    grid.SetItemState(-1, 0, LVIS_SELECTED);
    display.AnswerNext(15021);
    grid.SendMessageA(WM_CONTEXTMENU, 0, MAKELPARAM(-1, -1));
    EXPECT_EQ(Run(), "commands  extras  run 11 ");
    EXPECT_EQ(parent.asked, "");
}

TEST_F(GridMenuTest, WithoutEntriesTheHostMayShowItsOwn) {
    root.memberFlags = 0;
    root.SetEditFlags(0);
    RightClick(Label(3));
    EXPECT_EQ(std::exchange(parent.asked, {}), "menu ");
    input::Key(grid.m_hWnd, WM_KEYUP, 0x5D, "");
    Run();
    EXPECT_EQ(std::exchange(parent.asked, {}), "menu ");
    grid.Clear();
    RightClick(Label(0));
    EXPECT_EQ(std::exchange(parent.asked, {}), "menu ") << "without an object";
    grid.Initialize(nullptr, "Name", "Value", 0);
    grid.SetAllowFormats(true);
    Choose(15017, Label(0));
    Run();
    EXPECT_EQ(parent.asked, "15017 ") << "the formats are the host's";
}

TEST_F(GridMenuTest, TheGridMayGoWhileItsMenuIsOpen) {
    for (const bool byCall : {false, true}) {
        display.AnswerNextMenu([&](const auto&) {
            grid.DestroyWindow();
            return 15021u;
        });
        if (!byCall)
            RightClick(Label(1));
        else
            grid.OnRButtonDown(0, Label(1));
        EXPECT_EQ(Run(), "");
        EXPECT_EQ(grid.m_hWnd, nullptr);
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 224}, &parent, 105);
        grid.Initialize(&root, "Name", "Value", 0);
        grid.ExpandAll();
    }
}

TEST_F(GridMenuTest, ATextThatIsRefusedKeepsTheMenuAway) {
    Click(grid, Value(4));
    ASSERT_TRUE(grid.IsEditing());
    SetWindowTextA(GetFocus(), "3+");
    display.AnswerNext(IDOK);
    RightClick(Label(1));
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_EQ(parent.asked, "");
    EXPECT_TRUE(display.ShownMenus().empty());
}

} // namespace
} // namespace korvel
