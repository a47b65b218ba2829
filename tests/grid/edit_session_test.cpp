#include "korvel/grid/grid_error_reporter.h"
#include "korvel/output/angles.h"
#include "korvel/platform/error.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/list/header_ctrl.h"
#include "support/edit_fixture.h"
#include "support/table.h"

namespace korvel {
namespace {

using Act = std::function<void()>;

TEST_F(EditTest, EveryWriteIsOneStepInTheOrderOfItsKind) {
    TestEnumeration colors({"red", "green"});
    struct File : IFileValue {
        bool IsAutoDestroy() const override { return false; }
        const char* Choose(const char*, CWnd*) override { return "b.xml"; }
        const std::uint32_t& GetFileType() const override { return type; }
        void SetFileType(std::uint32_t number) override { type = number; }
        std::uint32_t type = 0;
    } file;
    CVariantValue path = Words(DT_FileName, "a.xml");
    path.EnumContext = &file;
    root.With("flag", Flag(false))
        .With("color", Word(DT_ColorRGB, 0xFF0000FF))
        .With("angle", Number(DT_AngleDouble, 0))
        .With("list", colors.ValueOf(",1,"))
        .With("date", MakeDate("GDT_VALID", 44000.5))
        .With("path", path)
        .With("range", Whole(DT_RangeInt, 40));
    grid.Initialize(&root, "Name", "Value", 0);
    const auto typed = [this](const std::string& name, const std::string& text) {
        return [this, name, text] { Click(name), Type(text), Return(); };
    };
    for (const auto& [border, act, log] : Table<Act, const char*>{
             {"a sum", typed("v", "2*(3+4)"), "[Member edited changed v=14  set v=14 ]"},
             {"the field untouched", [&] { Click("v"), Return(); }, "[Member edited]"},
             {"a text", typed("s", "new"), "[Member edited changed s=new  set s=new ]"},
             {"a range", typed("range", "50"), "[Member edited changed range=50  set range=50 ]"},
             {"a path", typed("path", "c.xml"), "[Member edited changed path=c.xml  set path=c.xml ]"},
             {"an angle", typed("angle", "1"), "[Member edited changed angle=1  set angle=1 ]"},
             {"a flag", [&] { Click("flag"); }, "[Member edited set flag=true  changed flag=true ]"},
             {"a quick second press on it",
              [&] {
                  input::Mouse(grid.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON,
                               {Cell("flag").left + 2, MiddleOf(Cell("flag")).y});
              },
              "[Member edited set flag=false  changed flag=false ]"},
             {"beside the square of a flag", [&] { ClickRight("flag"); }, ""},
             {"a color", [&] { display.AnswerNextColor(0x00FF00), Click("color"); },
              "[Member edited set color=ff00ff00  changed color=ff00ff00 ]"},
             {"the same color again", [&] { display.AnswerNextColor(0x00FF00), Click("color"); }, ""},
             {"no color", [&] { display.AnswerNextColor(std::nullopt), Click("color"); }, ""},
             {"a file", [&] { ClickRight("path"); }, "[Member edited set path=b.xml  changed path=b.xml ]"},
             {"the same file again", [&] { ClickRight("path"); }, ""},
             {"the unit of an angle", [&] { ClickRight("angle"); }, ""},
             {"an entry of a list", [&] { Click("list"), Press(VK_DOWN), Return(); },
              "<7><22 red><9>[Member edited set list=green  changed list=green ]<8>"},
             {"a date",
              [&] {
                  Click("date"), grid.m_DateTime.SetTime({2026, 3, 0, 4}), Return();
              },
              "[Member edited set date=46085  changed date=46085 ]"}}) {
        SCOPED_TRACE(border);
        parent.Take();
        act();
        EXPECT_EQ(parent.Take(), log);
        ExpectUsable();
    }
    EXPECT_EQ(grid.GetItemText(0, 1), "14,00");
    EXPECT_EQ(GetAngleUnit(), 'g');
    SetAngleUnit('r');
    file.type = 1; // the path is only chosen
    Click("path");
    EXPECT_FALSE(grid.IsEditing());
    grid.Clear();
    root.LetGo();
}

TEST_F(EditTest, ARefusedTextMarksItsCellWhereTheGridSaysSo) {
    Bind();
    const auto hasRedFrame = [this] { // over all others
        const std::vector<PaintCall> calls = display.PaintWindow(grid.m_hWnd);
        const auto last = std::find_if(calls.rbegin(), calls.rend(), [this](const PaintCall& call) {
            return call.rect == Cell("v") || call.kind == PaintCall::Kind::Focus;
        });
        return last != calls.rend() && last->kind == PaintCall::Kind::Frame && GetRValue(last->color) > 200;
    };
    for (const bool isOn : {false, true}) {
        grid.SetGridOption(EGridOption::InlineErrors, isOn);
        Click("v");
        Type("1+");
        EXPECT_FALSE(hasRedFrame());
        display.AnswerNext(IDOK);
        Return();
        EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "1+") << "the text is kept";
        EXPECT_EQ(hasRedFrame(), isOn);
        Return();
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_FALSE(hasRedFrame());
    }
}

TEST_F(EditTest, WhatAnObjectRefusesIsRolledBackAndOnlyTheFieldTellsIt) {
    root.With("flag", Flag(false));
    grid.Initialize(&root, "Name", "Value", 0);
    for (const bool throws : {false, true})
        for (const auto& [border, name, act, boxes, isKept] : Table<const char*, Act, std::size_t, bool>{
                 {"a field", "v", [&] { Click("v"), Type("7"), Return(); }, 1, true},
                 {"a flag", "flag", [&] { Click("flag"); }, 0, false}}) {
            SCOPED_TRACE(std::string(border) + (throws ? " throws" : " refuses"));
            parent.Take();
            display.AnswerNext(IDOK);
            onSet = [&, member = std::string(name)] {
                if (throws)
                    throw Error("of the object");
                root.RemoveMember(member); // which refuses the write
            };
            act();
            onSet = nullptr;
            if (!throws)
                root.With(name, isKept ? Number(DT_Double, 12.5) : Flag(false));
            const std::string log = parent.Take();
            EXPECT_NE(log.find("]!"), std::string::npos) << log;
            EXPECT_EQ(TakeBoxes(), throws ? 1 : boxes);
            if (throws)
                EXPECT_EQ(display.ShownBoxes().back().text, "of the object");
            EXPECT_EQ(IsFieldOpen(), isKept);
            grid.CtrlEnd(); // the second way out
            ExpectUsable();
        }
}

TEST_F(EditTest, EscapeGivesUpADateWhereTheGridSaysSo) {
    root.With("date", MakeDate("GDT_VALID", 44000.5));
    grid.Initialize(&root, "Name", "Value", 0);
    for (const bool cancels : {true, false}) {
        SCOPED_TRACE(cancels);
        Click("date");
        grid.SetGridOption(EGridOption::EscapeCancels, cancels); // counts at once
        grid.m_DateTime.SetTime({2026, 3, 0, 4});
        parent.Take();
        Press(VK_ESCAPE, "\x1B");
        EXPECT_EQ(parent.Take(), cancels ? "" : "[Member edited set date=46085  changed date=46085 ]");
        EXPECT_EQ(GetFocus(), grid.m_hWnd);
        ExpectUsable();
    }
}

TEST_F(EditTest, AChoiceThatTheObjectRefusesIsRolledBackAndStopsTheCommand) {
    TestEnumeration colors({"red", "green"});
    root.With("list", colors.ValueOf(",1,")).With("date", MakeDate("GDT_VALID", 44000.5));
    grid.Initialize(&root, "Name", "Value", 0);
    for (const auto& [name, choose] :
         Table<Act>{{"list", [&] { Press(VK_DOWN); }}, {"date", [&] {
                                                            grid.m_DateTime.SetTime({2026, 3, 0, 4});
                                                        }}}) {
        SCOPED_TRACE(name);
        Click(name);
        choose();
        onSet = [&, member = std::string(name)] { root.RemoveMember(member); }; // which refuses the write
        parent.Take();
        EXPECT_FALSE(grid.EndEdit());
        onSet = nullptr;
        const std::string log = parent.Take();
        EXPECT_NE(log.find("]!"), std::string::npos) << log;
        ExpectUsable();
    }
    grid.Clear();
    root.LetGo();
}

/// Each way out of a field, with a text that is clean, changed or refused.
class WaysOut : public EditTest {
protected:
    enum class Left { Told, Dropped, Open }; // a refused text
    struct Way {
        const char* name;
        Left left;
        Act act;
    };
    std::vector<Way> Ways() {
        return {{"Return", Left::Told, [] { Return(); }},
                {"Escape", Left::Told, [] { Press(VK_ESCAPE, "\x1B"); }},
                {"Tab", Left::Told, [] { Press(VK_TAB, "\t"); }},
                {"another control", Left::Told, [this] { other.SetFocus(); }},
                {"another widget of the host", Left::Told, [] { input::FocusMoved(nullptr); }},
                {"another row", Left::Told,
                 [this] {
                     ClickAt({60, MiddleOf(Cell("s")).y});
                 }},
                {"a right press", Left::Told,
                 [this] { input::Mouse(grid.m_hWnd, WM_RBUTTONDOWN, MK_RBUTTON, MiddleOf(Cell("s"))); }},
                {"a command", Left::Told, [this] { grid.EndEdit(); }},
                {"scrolled away", Left::Told, [this] { grid.EnsureVisible(25, false); }},
                {"the wheel", Left::Told,
                 [this] {
                     input::Mouse(grid.m_hWnd, WM_MOUSEWHEEL, 0, {9, 90}, -120);
                 }},
                {"the column is dragged", Left::Told,
                 [this] {
                     const CPoint divider{grid.GetColumnWidth(0) - 1, 5};
                     input::Mouse(grid.GetHeaderCtrl()->m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, divider);
                     input::Mouse(grid.GetHeaderCtrl()->m_hWnd, WM_LBUTTONUP, 0, divider);
                 }},
                {"Clear", Left::Dropped, [this] { grid.Clear(); }},
                {"hidden", Left::Dropped, [this] { grid.ShowWindow(SW_HIDE); }},
                {"its parent hidden", Left::Dropped, [this] { parent.ShowWindow(SW_HIDE); }},
                {"destroyed", Left::Dropped, [this] { grid.DestroyWindow(); }},
                {"the member is removed", Left::Dropped,
                 [this] { observer.sinks[&root]->OnOperationRemove("v", {}); }},
                {"the member is retyped", Left::Dropped,
                 [this] { observer.sinks[&root]->OnOperationChangeType("v", DT_Double, Whole(DT_Int, 1)); }},
                {"the member is protected", Left::Dropped,
                 [this] {
                     root.SetMemberEditable("v", false);
                     grid.CtrlEnd();
                 }},
                {"the program is left", Left::Open, [] { input::ProgramLeft(); }},
                {"a dialog opens", Left::Open, [this] { parent.EnableWindow(false); }},
                {"a box is shown", Left::Open,
                 [this] { MessageBoxA(parent.m_hWnd, "of the host", "", MB_OK), ++m_boxesOfTheHost; }}};
    }
    void Renew() {
        grid.DestroyWindow();
        root.LetGo();
        root.With("v", Number(DT_Double, 12.5)).With("s", Words(DT_String, "text"));
        parent.EnableWindow(true);
        parent.ShowWindow(SW_SHOW);
        grid.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 224},
                    &parent, EditParent::GridId);
        Bind();
        Click("v");
        ASSERT_TRUE(IsFieldOpen());
        m_boxesOfTheHost = 0;
        TakeBoxes();
        parent.Take();
    }
    double Value() {
        CVariantValue value;
        root.GetMember("v", value);
        return value.Value.Double;
    }
    std::size_t m_boxesOfTheHost = 0;
};

TEST_F(WaysOut, CommitWhatWasTypedAndKeepWhatIsRefused) {
    for (const Way& way : Ways()) {
        const bool isDropped =
            way.left == Left::Dropped && std::string(way.name).find("member") != std::string::npos;
        for (const char* text : {"", "7", "7+"}) {
            SCOPED_TRACE(std::string(way.name) + " '" + text + "'");
            ASSERT_NO_FATAL_FAILURE(Renew());
            if (*text)
                Type(text);
            display.AnswerNext(IDOK);
            way.act();
            const bool isRefused = std::string(text) == "7+";
            const bool isWritten = std::string(text) == "7" && way.left != Left::Open && !isDropped;
            EXPECT_EQ(Value(), isWritten ? 7 : 12.5);
            const bool isTold = isRefused && way.left == Left::Told;
            EXPECT_EQ(TakeBoxes() - m_boxesOfTheHost, isTold ? 1u : 0u);
            const std::string log = parent.Take();
            if (way.left == Left::Open || isDropped)
                EXPECT_EQ(log, "");
            else if (isRefused)
                EXPECT_EQ(log.substr(0, 16), "[Member edited]!");
            else
                EXPECT_EQ(log, isWritten ? "[Member edited changed v=7  set v=7 ]" : "[Member edited]");
            EXPECT_EQ(IsFieldOpen(), isTold || way.left == Left::Open);
            if (isTold) {
                EXPECT_EQ(GetFocus(), grid.m_Edit.m_hWnd) << "the user goes on";
                EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "7+");
                EXPECT_EQ(view::Rectangle(grid.m_Edit.m_hWnd).top, Cell("v").top + 1) << "over its cell";
                way.act();
                EXPECT_EQ(TakeBoxes() - m_boxesOfTheHost, 0u) << "a second way out tells nothing";
                EXPECT_FALSE(grid.m_Edit.IsWindowVisible() && grid.m_Edit.GetWindowTextA() == "7+");
                EXPECT_EQ(Value(), 12.5);
            }
        }
    }
}

TEST_F(WaysOut, ARefusedPressDoesNothingElse) {
    Renew();
    Type("x");
    const int selected = grid.GetNextItem(-1, LVNI_SELECTED);
    display.AnswerNext(IDOK);
    Click("s");
    EXPECT_EQ(grid.GetNextItem(-1, LVNI_SELECTED), selected);
    EXPECT_EQ(display.ShownBoxes().back().text,
              "invalid input: 'x' can not be converted in data type Double");
    input::Mouse(grid.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, MiddleOf(Cell("s")));
    EXPECT_EQ(grid.GetNextItem(-1, LVNI_SELECTED), selected) << "nor does the double click that it begins";
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "x");
    Click("s"); // is the second way out, and a press
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "text");
    EXPECT_EQ(TakeBoxes(), 1u);
}

TEST_F(WaysOut, AMemberWithoutATypeRefusesWithTheTypeThatItHad) {
    Renew();
    Type("14");
    bool refuses = false;
    root.onOperation = [&](const std::string& operation) { refuses = operation == "type"; };
    root.refuses = [&] { return refuses; };
    display.AnswerNext(IDOK);
    grid.CtrlEnd();
    root.onOperation = nullptr;
    root.refuses = nullptr;
    EXPECT_EQ(display.ShownBoxes().back().text,
              "invalid input: '14' can not be converted in data type Double");
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "14") << "to be ended again";
    grid.CtrlEnd();
    ExpectUsable();
}

TEST_F(WaysOut, AReporterThatThrowsLosesNoText) {
    struct Reporter : IGridErrorReporter {
        void Report(const std::string&, const std::string&) override { throw Error("of the reporter"); }
    } reporter;
    Renew();
    grid.m_pErrorReporter = &reporter;
    Type("7+");
    EXPECT_THROW(grid.CtrlEnd(), Error);
    EXPECT_EQ(GetFocus(), grid.m_Edit.m_hWnd);
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "7+");
    grid.CtrlEnd(); // the second way out
    ExpectUsable();
    grid.m_pErrorReporter = nullptr;
}

TEST_F(WaysOut, ACollapsedGroupOpensAgainAroundARefusedText) {
    HostObject inner("inner"), outer("outer");
    inner.With("deep", Number(DT_Double, 1));
    outer.With("inner", Group(&inner));
    root.With("outer", Group(&outer));
    grid.Initialize(&root, "Name", "Value", 0);
    for (const auto& [text, isOpen] : {std::pair("7", false), {"7+", true}}) {
        SCOPED_TRACE(text);
        grid.ExpandAll();
        const CRect cell = grid.GetSubItemRect(grid.RowOfNode(grid.LookupTreeItem(&inner, "deep")), 1);
        ClickAt({cell.left + 2, MiddleOf(cell).y});
        Type(text);
        display.AnswerNext(IDOK);
        grid.CollapseAll();
        EXPECT_EQ(TakeBoxes(), isOpen ? 1u : 0u);
        EXPECT_EQ(IsFieldOpen(), isOpen);
        EXPECT_EQ(grid.RowOfNode(grid.LookupTreeItem(&inner, "deep")) >= 0, isOpen);
        CVariantValue value;
        inner.GetMember("deep", value);
        EXPECT_EQ(value.Value.Double, 7);
        if (isOpen) {
            EXPECT_EQ(GetFocus(), grid.m_Edit.m_hWnd);
            EXPECT_EQ(view::Rectangle(grid.m_Edit.m_hWnd).top, cell.top + 1);
        }
        grid.CtrlEnd();
        ExpectUsable();
    }
    grid.Clear();
    root.LetGo();
}

TEST_F(WaysOut, APressOutsideCountsOnceWithTheCommandThatItBrings) {
    for (const bool isPress : {true, false}) {
        SCOPED_TRACE(isPress);
        ASSERT_NO_FATAL_FAILURE(Renew());
        Type("x");
        display.AnswerNext(IDOK);
        display.PressKey(VK_LBUTTON, isPress);
        other.SetFocus();
        display.PressKey(VK_LBUTTON, false);
        EXPECT_EQ(grid.EndEdit(), !isPress) << "the button that was pressed says so as well";
        EXPECT_EQ(IsFieldOpen(), isPress);
        EXPECT_TRUE(grid.EndEdit()) << "the next command is a second way out";
        EXPECT_EQ(TakeBoxes(), 1u);
        ExpectUsable();
    }
}

TEST_F(WaysOut, TheFieldWaitsForTheUserAndIsJudgedThen) {
    for (const auto& [border, leave, comeBack] :
         Table<Act, Act>{{"another program", [] { input::ProgramLeft(); },
                          [this] { input::FocusMoved(grid.m_Edit.m_hWnd); }},
                         {"a dialog", [this] { parent.EnableWindow(false); },
                          [this] { parent.EnableWindow(true), grid.m_Edit.SetFocus(); }}}) {
        SCOPED_TRACE(border);
        ASSERT_NO_FATAL_FAILURE(Renew());
        Type("8");
        leave();
        EXPECT_TRUE(IsFieldOpen());
        comeBack();
        EXPECT_EQ(GetFocus(), grid.m_Edit.m_hWnd);
        Return();
        EXPECT_EQ(Value(), 8);
    }
}

TEST_F(WaysOut, RenamesTakeTheFieldAlongAndChangesLeaveItsText) {
    Renew();
    Type("9");
    observer.sinks[&root]->OnChange("v", Number(DT_Double, 3));
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "9");
    root.RenameMember("v", "w");
    observer.sinks[&root]->OnOperationRename("v", "w");
    Return();
    EXPECT_EQ(parent.Take(), "[Member edited changed w=9  set w=9 ]");
    ExpectUsable();
}

TEST_F(WaysOut, TheFieldMovesWithItsRow) {
    Renew();
    Return();
    Click("more 3");
    const CRect before = view::Rectangle(grid.m_Edit.m_hWnd);
    grid.Scroll({0, 20});
    EXPECT_EQ(view::Rectangle(grid.m_Edit.m_hWnd).top, before.top - 20);
    grid.SetColumnWidth(0, 100);
    EXPECT_EQ(view::Rectangle(grid.m_Edit.m_hWnd).left, Cell("more 3").left + 1);
    observer.sinks[&root]->OnOperationInsert(0, "first", Flag(true));
    EXPECT_EQ(view::Rectangle(grid.m_Edit.m_hWnd).top, Cell("more 3").top + 1);
    EXPECT_TRUE(IsFieldOpen());
}

TEST_F(WaysOut, AHostThatMeddlesInACommitLeavesNothingBehind) {
    const Table<Act> meddlings = {{"ends the binding", [this] { grid.Clear(); }},
                                  {"destroys the window", [this] { grid.DestroyWindow(); }},
                                  {"hides the grid", [this] { grid.ShowWindow(SW_HIDE); }},
                                  {"removes the member",
                                   [this] {
                                       if (observer.sinks.contains(&root))
                                           observer.sinks[&root]->OnOperationRemove("v", {});
                                   }},
                                  {"ends the edit", [this] { grid.CtrlEnd(), grid.EndEdit(); }},
                                  {"moves the focus", [this] { other.SetFocus(); }},
                                  {"throws", [] { throw Error("of the host"); }}};
    const Table<std::function<void(Act)>> calls = {
        {"when the step opens",
         [this](const Act& act) {
             parent.onStep = [act](UINT message, WPARAM open) {
                 message == WM_HISTORY&& open ? act() : void();
             };
         }},
        {"when it closes",
         [this](const Act& act) {
             parent.onStep = [act](UINT message, WPARAM open) {
                 message == WM_HISTORY && !open ? act() : void();
             };
         }},
        {"when the observer hears", [this](const Act& act) { observer.onChange = act; }},
        {"when the object writes", [this](const Act& act) { onSet = act; }},
        {"when the object is read",
         [this](const Act& act) { root.onRead = [act](const std::string&) { act(); }; }}};
    for (const auto& [call, arm] : calls)
        for (const auto& [border, meddle] : meddlings)
            for (const char* text : {"7", "7+"}) {
                SCOPED_TRACE(std::string(border) + " " + call + " " + text);
                ASSERT_NO_FATAL_FAILURE(Renew());
                Type(text);
                bool isDone = false;
                arm([&, act = meddle] {
                    if (!std::exchange(isDone, true))
                        act();
                });
                display.AnswerNext(IDOK);
                grid.CtrlEnd();
                parent.onStep = nullptr;
                observer.onChange = onSet = nullptr;
                root.onRead = nullptr;
                EXPECT_TRUE(isDone || std::string(text) == "7+") << "which nobody hears of";
                EXPECT_LE(TakeBoxes(), 1u);
                const std::string log = parent.Take();
                EXPECT_EQ(std::count(log.begin(), log.end(), '['), 1) << log;
                EXPECT_EQ(std::count(log.begin(), log.end(), ']'), 1) << log;
                grid.CtrlEnd();
                ExpectUsable();
            }
}

TEST_F(WaysOut, NoGridEndsAnEditFromWithinACommit) {
    Renew();
    OpenedGrid second(&observer, nullptr);
    second.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {300, 0, 400, 224}, &parent, 9);
    Type("7");
    int calls = 0;
    onSet = [&] {
        ++calls;
        EXPECT_FALSE(second.EndEdit()) << "its caller would go on while a value is written";
        other.SetFocus();
    };
    Return();
    onSet = nullptr;
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(second.EndEdit());
    ExpectUsable();
}

TEST_F(EditTest, CellsOfObjectsAreEditedInTheirColumns) {
    HostObject point("point");
    point.With("x", Number(DT_Double, 1)).With("y", Number(DT_Double, 2)).With("on", Flag(false));
    root.With("p", Group(&point));
    grid.SetLayoutMultiColumn({"Name", "x", "y", "on"});
    grid.Initialize(&root, "Name", "Value", 0);
    const int row = grid.RowOfNode(grid.LookupTreeItem(&point));
    const auto click = [&](int column) {
        const CRect cell = grid.GetSubItemRect(row, column);
        ClickAt({cell.left + 2, MiddleOf(cell).y});
    };
    for (int column = 0; column < 4; ++column)
        grid.SetColumnWidth(column, 60);
    click(2);
    EXPECT_EQ(view::Rectangle(grid.m_Edit.m_hWnd).left, grid.GetSubItemRect(row, 2).left + 1);
    Type("5");
    Return();
    click(3);
    CVariantValue y, on;
    point.GetMember("y", y);
    point.GetMember("on", on);
    EXPECT_EQ(y.Value.Double, 5);
    EXPECT_TRUE(on.Value.Bool);
    click(1);
    Type("7");
    observer.sinks[&point]->OnOperationRemove("x", {});
    ExpectUsable();
    click(1);
    EXPECT_FALSE(grid.IsEditing()) << "the cell shows no member";
    click(0);
    EXPECT_FALSE(grid.IsEditing());
    grid.Clear();
    root.LetGo();
}

TEST_F(EditTest, APressMeansThePlaceThatItMetWhereTheGridScrolls) {
    root.With("dice", Whole(DT_RandomUInt, 500));
    Bind();
    grid.SetColumnWidth(0, 200);
    grid.SetColumnWidth(1, 200);
    ClickAt({grid.GetClientRect().right - 10, MiddleOf(Cell("dice")).y});
    EXPECT_TRUE(IsFieldOpen()) << "the dice were beside";
    EXPECT_EQ(parent.Take(), "");
    Return();
    grid.SetColumnWidth(0, 100);
    grid.SetColumnWidth(1, 100);
    grid.MoveWindow({0, 0, 300, 214});
    const CRect cut = grid.GetSubItemRect(grid.GetTopIndex() + grid.GetCountPerPage(), 1);
    ASSERT_GT(cut.bottom, 214);
    ClickAt({cut.left + 2, cut.top + 2});
    EXPECT_TRUE(IsFieldOpen());
    EXPECT_LE(view::Rectangle(grid.m_Edit.m_hWnd).bottom, 214);
}

TEST_F(EditTest, ASpinButtonStepsTheFieldAndTellsARefusalOnce) {
    root.With("range", Whole(DT_RangeInt, 40));
    grid.Initialize(&root, "Name", "Value", 0);
    const auto press = [&] {
        input::Mouse(grid.m_Spin.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {2, 5});
        input::Mouse(grid.m_Spin.m_hWnd, WM_LBUTTONUP, 0, {2, 5});
    };
    Click("range");
    ASSERT_TRUE(grid.m_Spin.IsWindowVisible());
    press();
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "41") << "the first arrow raises";
    EXPECT_EQ(parent.Take(), " changed range=41  set range=41 ") << "outside of a step";
    Type("x");
    display.AnswerNext(IDOK);
    press();
    EXPECT_EQ(TakeBoxes(), 1u);
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "x");
    EXPECT_EQ(GetFocus(), grid.m_Edit.m_hWnd);
    grid.m_Edit.SetWindowTextA("42");
    press();
    Type("x");
    display.AnswerNext(IDOK);
    Return();
    EXPECT_EQ(TakeBoxes(), 1u) << "another value was written meanwhile";
    Return();
    EXPECT_EQ(TakeBoxes(), 0u) << "the second way out";
    root.SetMember("range", Whole(DT_RangeInt, 41));
    ExpectUsable();
    Click("range");
    parent.Take();
    observer.onChange = [&] { other.SetFocus(); };
    press();
    observer.onChange = nullptr;
    EXPECT_EQ(parent.Take(), " changed range=42  set range=42 [Member edited]");
    ExpectUsable();
    Click("range");
    Type("50");
    Return();
    EXPECT_EQ(parent.Take(), "[Member edited changed range=50  set range=50 ]");
    ExpectUsable();
    EXPECT_FALSE(grid.m_Spin.IsWindowVisible());
    grid.SetColumnWidth(1, 25);
    Click("range");
    EXPECT_TRUE(grid.m_Spin.IsWindowVisible()) << "it fills a narrow cell";
    EXPECT_FALSE(IsFieldOpen());
    press();
    EXPECT_EQ(parent.Take(), "") << "there is nothing to step";
    other.SetFocus();
    EXPECT_FALSE(grid.m_Spin.IsWindowVisible());
}

} // namespace
} // namespace korvel
