#include "korvel/dialogs/dialog_ids.h"
#include "korvel/grid/type_commands.h"
#include "korvel/values/language.h"
#include "korvel/window/controls/edit.h"
#include "korvel/window/dialog/dialog_items.h"
#include "support/grid_fixture.h"
#include "support/history_log.h"
#include "support/table.h"

namespace korvel {
namespace {

using enum GridCommand;

using namespace std::chrono_literals;

/// A grid over an object that allows everything, below a parent that writes down steps and calls alike.
class MemberOperationsTest : public GermanMachine, protected GridWindows {
protected:
    MemberOperationsTest() {
        SetLanguageForThisRun("English");
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 224}, &parent, 105);
        observer.answers = true;
        point.With("x", Number(DT_Double, 1.5)).With("y", Number(DT_Double, 2));
        root.With("p", Group(&point)).With("on", Flag(true)).With("file", Words(DT_FileName, "plans/a.pdf"));
        for (HostObject* object : {&root, &point})
            object->memberFlags = MF_Delete | MF_Rename | MF_WriteProtect;
    }

    void Bind() {
        grid.Initialize(&root, "Name", "Value", 0);
        grid.ExpandAll();
        root.calls = point.calls = observer.calls = &parent.log;
        parent.Take();
    }
    void SelectMember(HostObject& object, const std::string& name) {
        Select(grid, grid.RowOfNode(grid.LookupTreeItem(&object, name)));
        parent.Take();
    }
    void Run(GridCommand command) { grid.SendMessageA(WM_COMMAND, static_cast<WPARAM>(command)); }
    void Type(const char* text, UINT end = VK_RETURN) {
        SetWindowTextA(grid.GetEditControl(), text);
        input::Key(grid.GetEditControl(), WM_KEYDOWN, end, "\r");
    }
    std::string TakeBoxes() {
        std::string boxes;
        for (; m_seenBoxes < display.ShownBoxes().size(); ++m_seenBoxes)
            boxes += display.ShownBoxes()[m_seenBoxes].text;
        return boxes;
    }

    HistoryParent parent;
    RecordingObserver observer;
    CEditableGrid grid{&observer, nullptr};

private:
    std::size_t m_seenBoxes = 0;
};

TEST_F(MemberOperationsTest, EachOperationCallsTheHostInItsOrder) {
    Bind();
    const auto run = [this](GridCommand command) { return [=, this] { Run(command); }; };
    const auto rename = [this](const char* text) { return [=, this] { Run(RenameMember), Type(text); }; };
    const auto toggle = run(ToggleWriteProtection), retype = run(ChangeToInt);
    const auto pressDelete = [this] { Press(grid, VK_DELETE); };
    for (const auto& [border, member, act, calls, ofPoint] :
         Table<const char*, std::function<void()>, const char*, const char*>{
             {"protect", "x", toggle, "editable? x flags x protect x protected x ", " x|1,50; y|2,00;"},
             {"unprotect", "x", toggle, "editable? x flags x unprotect x unprotected x ", " x|1,50; y|2,00;"},
             {"retype", "x", retype,
              "get x [Type changedtype x retype x get x retyped x from 8 to 1 type x ]", " x|1; y|2,00;"},
             {"rename", "x", rename("east"),
              "flags x label x [Member renamedrenaming? x>east rename x>east ]renamed x>east get east ",
              " east|1; y|2,00;"},
             {"a key", "y", pressDelete, "flags y removing? y get y remove y removed y ", " east|1;"},
             {"remove", "east", run(RemoveMember),
              "flags east removing? east get east remove east removed east ", ""}}) {
        SCOPED_TRACE(border);
        SelectMember(point, member);
        act();
        EXPECT_EQ(parent.Take(), calls);
        EXPECT_EQ(Text(grid), "p|;" + std::string(ofPoint) + "on|;file|plans/a.pdf;");
    }
    EXPECT_EQ(TakeBoxes(), "");
}

TEST_F(MemberOperationsTest, WhatTheObjectForbidsOrDoesItselfIsLeftToIt) {
    Bind();
    const Lines before = Rows(grid);
    for (const auto& [border, flags, doesItself, command, calls] :
         Table<unsigned, bool, GridCommand, const char*>{
             {"no removal", MF_Rename, false, RemoveMember, "flags x "},
             {"a removal of its own", MF_Delete, true, RemoveMember, "flags x removing? x "},
             {"no renaming", MF_Delete, false, RenameMember, "flags x "},
             {"no protection", MF_Delete, false, ToggleWriteProtection, "editable? x flags x "}}) {
        point.memberFlags = flags;
        point.doesItself = doesItself;
        SelectMember(point, "x");
        Run(command);
        EXPECT_EQ(parent.Take(), calls) << border;
        EXPECT_EQ(grid.GetEditControl(), nullptr) << border;
    }
    point.memberFlags = MF_Change; // as good as MF_Rename
    point.doesItself = true;
    Run(RenameMember);
    Type("east");
    EXPECT_EQ(parent.Take(), "flags x label x [Member renamedrenaming? x>east ]renamed x>east get east ");
    grid.SetAllowRemove(false);
    grid.SetAllowEdit(false);
    for (const auto command : {RemoveMember, ToggleWriteProtection}) {
        Run(command);
        EXPECT_EQ(parent.Take(), "");
    }
    grid.SetItemState(-1, 0, LVIS_SELECTED);
    for (const unsigned command : {15010u, 15042u, 15043u, 15051u, 15055u, 18039u})
        Run(static_cast<GridCommand>(command));
    EXPECT_EQ(parent.Take().find('['), std::string::npos) << "without a selected row";
}

TEST_F(MemberOperationsTest, AFailureIsRolledBackAndToldInItsOwnWords) {
    const auto rename = [this](const char* text) { return [=, this] { Run(RenameMember), Type(text); }; };
    const auto retype = [this](GridCommand command) { return [=, this] { Run(command); }; };
    for (const auto& [border, failing, act, steps, told] :
         Table<const char*, std::function<void()>, const char*, const char*>{
             {"an empty name", "", rename(""), "", "attribute name '' Invalid"},
             {"a name that is there", "", rename("y"), "[Member renamed]!",
              "attribute name 'y' already existing"},
             {"a case of its own", "", rename("X"), "[Member renamed]", ""},
             {"no conversion", "", retype(ChangeToString), "[Type changed]!",
              "Member value 1,50 could not be converted into Text"},
             {"the conversion fails otherwise", "retype", retype(ChangeToInt), "[Type changed]!",
              "Member value 1,50 could not be converted into Integer"},
             {"the observer of a type fails", "retyped", retype(ChangeToInt), "[Type changed]!",
              "of the host"},
             {"the observer of a name fails, after the step", "renamed", rename("east"), "[Member renamed]!",
              "of the host"},
             {"reading before a step", "get", retype(ChangeToInt), "", "of the host"},
             {"no step: asking for a label", "label", retype(RenameMember), "", "of the host"},
             {"no step: removal", "remove", retype(RemoveMember), "", "of the host"},
             {"no step: protection", "protect", retype(ToggleWriteProtection), "", "of the host"}}) {
        SCOPED_TRACE(border);
        HostObject object("object");
        object.With("x", Number(DT_Double, 1.5)).With("y", Flag(true));
        object.memberFlags = MF_Delete | MF_Rename | MF_WriteProtect;
        grid.Initialize(&object, "Name", "Value", 0);
        Select(grid, 0);
        object.onOperation = observer.onOperation = [failing = std::string(failing)](const auto& operation) {
            if (operation == failing)
                throw std::runtime_error("of the host");
        };
        if (*told)
            display.AnswerNext(IDOK);
        act();
        object.onOperation = observer.onOperation = nullptr;
        EXPECT_EQ(parent.Take(), steps);
        EXPECT_EQ(TakeBoxes(), told);
        grid.Clear();
    }
}

TEST_F(MemberOperationsTest, TheLabelIsEditedAndEscapeGivesItUp) {
    point.labelEnd = " [m]";
    Bind();
    SelectMember(point, "x");
    Run(RenameMember);
    EXPECT_EQ(GetWindowTextA(grid.GetEditControl()), "x [m]");
    Type("east", VK_ESCAPE);
    EXPECT_EQ(parent.Take(), "flags x label x ");
    Run(RenameMember);
    grid.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);             // which the edit is not about
    input::Key(grid.GetEditControl(), WM_KEYDOWN, VK_RETURN, "\r"); // kept: what was shown is the new name
    EXPECT_EQ(Rows(grid)[1], " x [m]|1,50");
}

TEST_F(MemberOperationsTest, EachWayOutTakesDropsOrKeepsTheNameThatIsTyped) {
    constexpr const char* Renamed = "[Member renamedrenaming? x>east rename x>east ]renamed x>east get east ";
    const auto end = [this](bool isTaken) {
        return [=, this] {
            EXPECT_EQ(grid.EndEdit(), isTaken);
            EXPECT_TRUE(grid.EndEdit()) << "nothing is open any more";
        };
    };
    const CPoint flag{200, Middle(1)}, blank{200, Middle(5)};
    const auto afterDialog = [this] { parent.EnableWindow(false), parent.EnableWindow(true); };
    for (const auto& [border, typed, leave, calls, isOpen] :
         Table<const char*, std::function<void()>, const char*, bool>{
             {"a command", "east", end(true), Renamed, false},
             {"a command, refused", "y", end(false), "[Member renamedrenaming? x>y rename x>y ]!", false},
             {"a press on a flag, refused", "y", [&] { Click(grid, flag); },
              "[Member renamedrenaming? x>y rename x>y ]!", false},
             {"a press after a dialog", "east", [&] { afterDialog(), Click(grid, blank); }, Renamed, false},
             {"the focus after a dialog", "east", [&] { afterDialog(), grid.SetFocus(); }, Renamed, false},
             {"another window", "east", [this] { parent.SetFocus(); }, Renamed, false},
             {"another program", "east", [] { input::ProgramLeft(); }, "", true},
             {"a dialog", "east", [this] { parent.EnableWindow(false); }, "", true},
             {"a box", "east", [this] { MessageBoxA(parent.m_hWnd, "of the host", "", MB_OK); }, "", true},
             {"hidden", "east", [this] { grid.ShowWindow(SW_HIDE); }, "", false},
             {"its parent hidden", "east", [this] { parent.ShowWindow(SW_HIDE); }, "", false},
             {"the end of the binding", "east", [this] { grid.Clear(); }, "", false},
             {"the end of the window", "east", [this] { grid.DestroyWindow(); }, "", false}}) {
        SCOPED_TRACE(border);
        HostObject object("object");
        object.With("x", Number(DT_Double, 1.5)).With("y", Flag(true));
        object.memberFlags = MF_Rename;
        grid.Initialize(&object, "Name", "Value", 0);
        Select(grid, 0);
        Run(RenameMember);
        SetWindowTextA(grid.GetEditControl(), typed);
        object.calls = observer.calls = &parent.log;
        parent.Take();
        display.AnswerNext(IDOK);
        leave();
        EXPECT_EQ(parent.Take(), calls);
        EXPECT_EQ(grid.GetEditControl() != nullptr, isOpen);
        grid.CancelEditLabel();
        parent.EnableWindow(true);
        parent.ShowWindow(SW_SHOW);
        grid.ShowWindow(SW_SHOW);
        grid.Clear();
    }
}

TEST_F(MemberOperationsTest, ASlowSecondClickOnTheNameOfTheSelectedRowEditsIt) {
    Bind();
    CEdit other;
    other.CreateEx(0, "EDIT", "", WS_CHILD | WS_VISIBLE, {300, 0, 340, 20}, &parent, 1);
    grid.SetGridOption(EGridOption::KeyboardEditing, true);
    const CPoint nameOfX{100, Middle(1)}, nameOfFlag{100, Middle(3)};
    const auto click = [this](CPoint place) { return [=, this] { Click(grid, place); }; };
    const auto clickAndKey = [this](CPoint place, UINT key) {
        return [=, this] { Click(grid, place), Press(grid, key); };
    };
    const Table<bool, std::function<void()>, std::function<void()>> rows = {
        {"the name", true, click(nameOfX), click(nameOfX)},
        {"the value", false, click(nameOfX), click({200, Middle(1)})},
        {"another row", false, click(nameOfX), click({100, Middle(2)})},
        {"a press that brings the focus", false, [&] { Click(grid, nameOfX), other.SetFocus(); },
         click(nameOfX)},
        {"a press that opens a sign", false, click({100, Middle(0)}), click(Sign(0, 1))},
        {"a double click", false, click(nameOfX),
         [&] { Click(grid, nameOfX), Click(grid, nameOfX, WM_LBUTTONDBLCLK); }},
        {"a key that moves the column", false, click(nameOfX), clickAndKey(nameOfX, VK_RIGHT)},
        {"a key that toggles the cell", false, click(nameOfFlag), clickAndKey(nameOfFlag, VK_SPACE)},
        {"a member that forbids it", false, [&] { point.memberFlags = 0, Click(grid, nameOfX); },
         click(nameOfX)}};
    for (const auto& [border, isEdited, before, act] : rows) {
        grid.ExpandAll();
        grid.SetItemState(-1, 0, LVIS_SELECTED);
        before();
        display.Advance(1s);
        EXPECT_EQ(grid.GetEditControl(), nullptr) << border;
        act();
        display.Advance(1s);
        EXPECT_EQ(grid.GetEditControl() != nullptr, isEdited) << border;
        grid.CancelEditLabel();
    }
}

TEST_F(MemberOperationsTest, ANewAttributeGoesToTheObjectOfTheRow) {
    Bind();
    for (const auto& [border, name, select] : Table<const char*, std::function<void()>>{
             {"no row", "at the root", [this] { grid.SetItemState(-1, 0, LVIS_SELECTED); }},
             {"an object's row", "inside", [this] { SelectMember(root, "p"); }},
             {"a member's row", "beside", [this] { SelectMember(point, "x"); }}}) {
        SCOPED_TRACE(border);
        select();
        parent.Take();
        display.Then([&, name = std::string(name)] {
            const HWND dialog = korvel::GetParent(GetFocus());
            SetWindowTextA(GetDlgItem(dialog, internal::AttributeNameId), name);
            SendMessageA(dialog, WM_COMMAND, IDOK, 0);
        });
        Run(AddMember);
        const std::string calls = parent.Take();
        EXPECT_EQ(calls.find("adding?"), 0u);
        EXPECT_NE(calls.find(std::string("add ") + name + " added " + name + " "), std::string::npos)
            << calls;
        EXPECT_EQ(calls.find('['), std::string::npos) << "no step";
    }
    EXPECT_EQ(Rows(grid), Lines({"p|", " x|1,50", " y|2,00", " inside|", " beside|", "on|",
                                 "file|plans/a.pdf", "at the root|"}));
}

TEST_F(MemberOperationsTest, WhatTheObjectRefusesToAddIsSaidInTheDialog) {
    Bind();
    root.onOperation = [this](const auto& operation) {
        if (operation == "add")
            root.onOperation = nullptr, throw std::runtime_error("not this one");
    };
    display.Then([] {
        const HWND dialog = korvel::GetParent(GetFocus());
        SetWindowTextA(GetDlgItem(dialog, internal::AttributeNameId), "new");
        SendMessageA(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(GetDlgItemTextA(dialog, internal::AttributeProblemId), "not this one");
        EXPECT_EQ(GetDlgItemTextA(dialog, internal::AttributeNameId), "new");
        SendMessageA(dialog, WM_COMMAND, IDOK, 0);
    });
    Run(AddMember);
    EXPECT_NE(parent.Take().find("type new add new added new "), std::string::npos);
    EXPECT_EQ(TakeBoxes(), "");
}

TEST_F(MemberOperationsTest, ADialogForAnObjectThatIsGoneAddsNothing) {
    for (const auto& [border, leave] : Table<std::function<void()>>{
             {"its row is removed", [this] { grid.OnOperationRemove(&root, "p", Group(&point)); }},
             {"the binding ends", [this] { grid.Clear(); }},
             {"the window dies", [this] { grid.DestroyWindow(); }}}) {
        grid.Clear();
        Bind();
        SelectMember(point, "x");
        bool isOpen = false;
        display.Then([&, leave = leave] {
            isOpen = true;
            const HWND dialog = korvel::GetParent(GetFocus());
            leave();
            parent.Take();
            SetWindowTextA(GetDlgItem(dialog, internal::AttributeNameId), "new");
            SendMessageA(dialog, WM_COMMAND, IDOK, 0);
        });
        Run(AddMember);
        EXPECT_TRUE(isOpen) << border;
        EXPECT_EQ(parent.Take().find("add "), std::string::npos) << border;
    }
}

TEST_F(MemberOperationsTest, InColumnsARowIsTheObjectAndACellItsMember) {
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind();
    SelectMember(root, "p");
    grid.SetColumnWidth(0, 100), grid.SetColumnWidth(1, 100), grid.SetColumnWidth(2, 100);
    display.MovePointer({150, Middle(0)}); // which does not count
    for (int column = 0; column < 2; ++column)
        input::Key(grid.m_hWnd, WM_KEYDOWN, VK_RIGHT, "");
    Run(ChangeToInt);
    EXPECT_EQ(parent.Take(), "get y [Type changedtype y retype y get y retyped y from 8 to 1 type y ]");
    input::Key(grid.m_hWnd, WM_KEYDOWN, VK_LEFT, "");
    Run(ChangeToInt);
    EXPECT_EQ(parent.Take().substr(0, 6), "get x ");
    point.SetEditFlags(EF_Rename);
    point.SetIdent("its own");
    Run(RenameMember);
    display.AnswerNext(IDOK);
    Type("q");
    EXPECT_EQ(parent.Take(),
              "flags its own label its own [Member renamedrenaming? its own>q rename its own>q ]!")
        << "kept: by its own name";
    EXPECT_EQ(TakeBoxes(), "attribute name 'q' already existing");
    Run(RemoveMember);
    EXPECT_EQ(parent.Take(), "flags p removing? p get p remove p removed p ");
}

TEST_F(MemberOperationsTest, PathsAreOpenedAndEveryRefusalIsTold) {
    Bind();
    for (const auto& [border, path, command, results, isOpened, opened, told] :
         Table<const char*, GridCommand, std::vector<int>, bool, const char*, const char*>{
             {"opened", "plans/a.pdf", OpenFile, {42}, true, "plans/a.pdf 0 ", ""},
             {"empty", "", OpenFile, {}, false, "", "File \"\" not found."},
             {"missing", "a", OpenFile, {2}, false, "a 0 ", "File \"a\" not found."},
             {"denied", "a", OpenFile, {5}, false, "a 0 ", "Access denied to file \"a\"."},
             {"memory", "a", OpenFile, {8}, false, "a 0 ", "Out of memory."},
             {"no program", "a", OpenFile, {31, 2}, true, "a 0 a 1 ", ""},
             {"anything else", "a", OpenFile, {32}, false, "a 0 ", ""},
             {"a folder", "C:\\plans\\a.pdf", OpenFolder, {42}, true, "C:\\plans 2 ", ""},
             {"of a bare name", "a", OpenFolder, {42}, true, ". 2 ", ""},
             {"at the root", "/a", OpenFolder, {42}, true, "/ 2 ", ""},
             {"a missing one", "b/a", OpenFolder, {2}, false, "b 2 ", "Folder \"b\" not found."},
             {"a denied one", "b/a", OpenFolder, {5}, false, "b 2 ", "Access denied to folder \"b\"."},
             {"no choice for folders", "b/a", OpenFolder, {31}, false, "b 2 ", ""}}) {
        SCOPED_TRACE(border);
        const std::size_t before = display.OpenedPaths().size();
        root.SetMember("file", Words(DT_FileName, path));
        SelectMember(root, "file");
        for (const int result : results)
            display.AnswerNextOpen(result);
        if (*told)
            display.AnswerNext(IDOK);
        Run(command);
        std::string paths;
        for (std::size_t i = before; i < display.OpenedPaths().size(); ++i)
            paths += display.OpenedPaths()[i].path + " " +
                     std::to_string(static_cast<int>(display.OpenedPaths()[i].as)) + " ";
        EXPECT_EQ(paths, opened);
        EXPECT_EQ(TakeBoxes(), told);
        for (const int result : results)
            display.AnswerNextOpen(result);
        if (*told)
            display.AnswerNext(IDOK);
        EXPECT_EQ(command == OpenFile ? grid.OpenFile(path) : grid.OpenFolder("b"), isOpened);
        TakeBoxes();
    }
    display.AnswerNextOpen(42);
    SelectMember(point, "y");
    Run(OpenFile);
    EXPECT_EQ(display.OpenedPaths().back().path, "2,00") << "no file name: as it is shown";
}

TEST(TypeCommands, EachTargetHasACommandAndSourcesHaveAllOthers) {
    using internal::ConversionsOf;
    using Types = std::vector<EDataTyps>;
    const Types all{DT_Int, DT_Long, DT_Float, DT_Double, DT_String, DT_UInt, DT_AngleFloat, DT_AngleDouble};
    const unsigned commands[] = {15010, 15014, 15012, 15011, 15013, 15020, 15016, 15015};
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(internal::TypeOfCommand(static_cast<GridCommand>(commands[i])), all[i]);
        Types others = all;
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(i));
        const bool isTargetOnly = all[i] == DT_String || all[i] == DT_UInt;
        EXPECT_EQ(ConversionsOf(all[i]), isTargetOnly ? Types() : others) << all[i];
    }
    EXPECT_EQ(ConversionsOf(DT_LengthDouble), Types());
    EXPECT_EQ(internal::TypeOfCommand(AddMember), std::nullopt);
}

} // namespace
} // namespace korvel
