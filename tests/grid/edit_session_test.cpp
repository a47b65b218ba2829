#include "korvel/output/angles.h"
#include "korvel/platform/error.h"
#include "support/edit_fixture.h"
#include "support/file_chooser.h"
#include "support/table.h"

namespace korvel {
namespace {

using Act = std::function<void()>;

const SYSTEMTIME March{2026, 3, 0, 4};

TEST_F(EditTest, EveryWriteIsOneStepInTheOrderOfItsKind) {
    TestEnumeration colors({"red", "green"});
    FileChooser file;
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
    const auto pressAgain = [&] {
        const CPoint inFlag{Cell("flag").left + 2, MiddleOf(Cell("flag")).y};
        input::Mouse(grid.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, inFlag);
    };
    for (const auto& [border, act, log] : Table<Act, const char*>{
             {"a sum", typed("v", "2*(3+4)"), "[Member edited changed v=14  set v=14 ]"},
             {"the field untouched", [&] { Click("v"), Return(); }, "[Member edited]"},
             {"a text", typed("s", "new"), "[Member edited changed s=new  set s=new ]"},
             {"a range", typed("range", "50"), "[Member edited changed range=50  set range=50 ]"},
             {"a path", typed("path", "c.xml"), "[Member edited changed path=c.xml  set path=c.xml ]"},
             {"an angle", typed("angle", "1"), "[Member edited changed angle=1  set angle=1 ]"},
             {"a flag", [&] { Click("flag"); }, "[Member edited set flag=true  changed flag=true ]"},
             {"a quick second press on it", pressAgain,
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
             {"a date", [&] { Click("date"), grid.m_DateTime.SetTime(March), Return(); },
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
        grid.m_DateTime.SetTime(March);
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
         Table<Act>{{"list", [&] { Press(VK_DOWN); }}, {"date", [&] { grid.m_DateTime.SetTime(March); }}}) {
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
    EXPECT_EQ(point.Get("y").Value.Double, 5);
    EXPECT_TRUE(point.Get("on").Value.Bool);
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
