#include "korvel/grid/grid_error_reporter.h"
#include "korvel/platform/error.h"
#include "korvel/window/list/header_ctrl.h"
#include "support/edit_fixture.h"
#include "support/table.h"

namespace korvel {
namespace {

using Act = std::function<void()>;

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
        const CPoint inRows{9, 90};
        const auto dragColumn = [this] {
            const CPoint divider{grid.GetColumnWidth(0) - 1, 5};
            input::Mouse(grid.GetHeaderCtrl()->m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, divider);
            input::Mouse(grid.GetHeaderCtrl()->m_hWnd, WM_LBUTTONUP, 0, divider);
        };
        const auto pressRight = [this] {
            input::Mouse(grid.m_hWnd, WM_RBUTTONDOWN, MK_RBUTTON, MiddleOf(Cell("s")));
        };
        const auto retype = [this] {
            observer.sinks[&root]->OnOperationChangeType("v", DT_Double, Whole(DT_Int, 1));
        };
        const auto showBox = [this] {
            MessageBoxA(parent.m_hWnd, "of the host", "", MB_OK);
            ++m_boxesOfTheHost;
        };
        using enum Left;
        return {{"Return", Told, [] { Return(); }},
                {"Escape", Told, [] { Press(VK_ESCAPE, "\x1B"); }},
                {"Tab", Told, [] { Press(VK_TAB, "\t"); }},
                {"another control", Told, [this] { other.SetFocus(); }},
                {"another widget of the host", Told, [] { input::FocusMoved(nullptr); }},
                {"another row", Told, [this] { ClickLabel("s"); }},
                {"a right press", Told, pressRight},
                {"a command", Told, [this] { grid.EndEdit(); }},
                {"scrolled away", Told, [this] { grid.EnsureVisible(25, false); }},
                {"the wheel", Told, [=, this] { input::Mouse(grid.m_hWnd, WM_MOUSEWHEEL, 0, inRows, -120); }},
                {"the column is dragged", Told, dragColumn},
                {"Clear", Dropped, [this] { grid.Clear(); }},
                {"hidden", Dropped, [this] { grid.ShowWindow(SW_HIDE); }},
                {"its parent hidden", Dropped, [this] { parent.ShowWindow(SW_HIDE); }},
                {"destroyed", Dropped, [this] { grid.DestroyWindow(); }},
                {"the member is removed", Dropped, [this] { RemoveMember(); }},
                {"the member is retyped", Dropped, retype},
                {"the member is protected", Dropped,
                 [this] { root.SetMemberEditable("v", false), grid.CtrlEnd(); }},
                {"the program is left", Open, [] { input::ProgramLeft(); }},
                {"a dialog opens", Open, [this] { parent.EnableWindow(false); }},
                {"a box is shown", Open, showBox}};
    }
    void RemoveMember() {
        if (observer.sinks.contains(&root))
            observer.sinks[&root]->OnOperationRemove("v", {});
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
    double Value() { return root.Get("v").Value.Double; }
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
            if (way.left == Left::Open && std::string(text) == "7") {
                if (parent.IsWindowEnabled())
                    input::FocusMoved(grid.m_Edit.m_hWnd);
                else
                    parent.EnableWindow(true), grid.m_Edit.SetFocus();
                EXPECT_EQ(GetFocus(), grid.m_Edit.m_hWnd) << "it waits for the user";
                Return();
                EXPECT_EQ(Value(), 7) << "and is judged then";
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
        EXPECT_EQ(inner.Get("deep").Value.Double, 7);
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
                                  {"removes the member", [this] { RemoveMember(); }},
                                  {"ends the edit", [this] { grid.CtrlEnd(), grid.EndEdit(); }},
                                  {"moves the focus", [this] { other.SetFocus(); }},
                                  {"throws", [] { throw Error("of the host"); }}};
    const auto atStep = [this](WPARAM which) {
        return [=, this](const Act& act) {
            parent.onStep = [=](UINT message, WPARAM opens) {
                if (message == WM_HISTORY && opens == which)
                    act();
            };
        };
    };
    const Table<std::function<void(Act)>> calls = {
        {"when the step opens", atStep(1)},
        {"when it closes", atStep(0)},
        {"when the observer hears", [this](const Act& act) { observer.onChange = act; }},
        {"when the object writes", [this](const Act& act) { onSet = act; }},
        {"when the object is read", [this](const Act& act) { root.onRead = [act](auto&) { act(); }; }}};
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

} // namespace
} // namespace korvel
