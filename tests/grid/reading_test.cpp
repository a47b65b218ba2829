// What the cells of a grid and of its drop-down list say to whoever does not see them.

#include "korvel/values/language.h"
#include "korvel/window/display/window_view.h"
#include "support/grid_fixture.h"

namespace korvel {
namespace {

struct ReadGrid : CEditableGrid {
    using CEditableGrid::CEditableGrid;
    using CEditableGrid::m_ComboList;
};

class Reading : public GermanMachine, protected GridWindows {
protected:
    Reading() {
        SetLanguageForThisRun("English");
        entries.flags = ENF_Tree;
        point.With("height", Number(DT_Double, 2.5));
        root.With("name", Words(DT_String, "axis")).With("on", Flag(true)).With("point", Group(&point));
        root.With("fixed", Words(DT_String, "x")).SetMemberEditable("fixed", false);
        root.With("list", entries.ValueOf(",1,")).With("number", Number(DT_Double, 12.5));
        Make(grid);
        grid.SetGridOption(EGridOption::KeyboardEditing, true);
        grid.Initialize(&root, "Name", "Value", 0);
        grid.SetFocus();
    }

    int RowOf(const std::string& name) const {
        int row = 0;
        while (row < grid.GetItemCount() && grid.GetItemText(row, 0) != name)
            ++row;
        return row;
    }
    // The text and, as letters, what else there is: level, (s)elected, (r)ead-only, (i)nvalid, (c)hecked or (u)nchecked,
    // (o)pen or (g)roup that is closed.
    static std::string Said(HWND list, view::CellPlace place) {
        const auto cell = view::Cell(list, place);
        if (!cell)
            return "none";
        std::string said = cell->text + "|" + std::to_string(cell->level);
        said += cell->selected ? "s" : "";
        said += cell->readOnly ? "r" : "";
        said += cell->invalid ? "i" : "";
        if (cell->checked)
            said += *cell->checked ? "c" : "u";
        if (cell->expanded)
            said += *cell->expanded ? "o" : "g";
        return said;
    }
    std::string Said(const std::string& name, int column) const {
        return Said(grid.m_hWnd, {RowOf(name), column});
    }

    TestEnumeration entries{std::vector<std::string>{"sand", "fills/gravel", "fills/clay"}};
    RecordingObserver observer;
    ReadGrid grid{&observer, nullptr};
};

TEST_F(Reading, ACellSaysWhatTheGridDraws) {
    Select(grid, RowOf("fixed"));
    for (const auto& [name, column, said] :
         std::vector<std::tuple<std::string, int, std::string>>{{"name", 0, "name|1r"},
                                                                {"name", 1, "axis|1"},
                                                                {"on", 1, "|1c"},
                                                                {"point", 0, "point|1rg"},
                                                                {"fixed", 0, "fixed|1sr"},
                                                                {"fixed", 1, "x|1sr"}})
        EXPECT_EQ(Said(name, column), said);
    grid.ExpandAll();
    EXPECT_EQ(Said("point", 0), "point|1ro");
    EXPECT_EQ(Said("height", 1), "2,50|2");
    EXPECT_EQ(Said(grid.m_hWnd, {view::TitleRow, 1}), "Value|1r");
}

TEST_F(Reading, TheUserIsInTheCurrentColumnOfTheChosenRow) {
    const int row = RowOf("name");
    input::CellChosen(grid.m_hWnd, {row, 1});
    EXPECT_EQ(view::List(grid.m_hWnd).current, (view::CellPlace{row, 1}));
    Press(grid, VK_DOWN);
    EXPECT_EQ(view::List(grid.m_hWnd).current, (view::CellPlace{row + 1, 1}));
    Press(grid, VK_SPACE);
    EXPECT_FALSE(view::List(grid.m_hWnd).edited) << "a flag is changed at once";
    EXPECT_EQ(Said("on", 1), "|1su");
}

TEST_F(Reading, TheEditedCellIsKnownAndMarkedWhenItIsRefused) {
    grid.SetGridOption(EGridOption::InlineErrors, true);
    const int row = RowOf("number");
    input::CellChosen(grid.m_hWnd, {row, 1});
    Press(grid, VK_RETURN);
    EXPECT_EQ(view::List(grid.m_hWnd).edited, (view::CellPlace{row, 1}));
    SetWindowTextA(GetFocus(), "7+");
    display.AnswerNext(IDOK);
    input::CellChosen(grid.m_hWnd, {0, 1});
    EXPECT_EQ(view::List(grid.m_hWnd).current, (view::CellPlace{row, 1})) << "the field keeps the focus";
    EXPECT_EQ(Said("number", 1), "12,50|1si");
    grid.CtrlEnd(); // the second way out with the same text
    EXPECT_EQ(view::List(grid.m_hWnd).edited, std::nullopt);
    EXPECT_EQ(Said("number", 1), "12,50|1s");
}

TEST_F(Reading, ADroppedListIsReadAndUsedFromTheGrid) {
    const int row = RowOf("list");
    input::CellChosen(grid.m_hWnd, {row, 1});
    Press(grid, VK_RETURN);
    const HWND list = grid.m_ComboList.m_hWnd;
    ASSERT_TRUE(IsWindowVisible(list));
    EXPECT_EQ(view::List(list).keysFrom, grid.m_hWnd);
    EXPECT_EQ(view::List(grid.m_hWnd).edited, (view::CellPlace{row, 1}));
    EXPECT_EQ(Said(list, {0, 0}), "sand|1sr");
    EXPECT_EQ(Said(list, {1, 0}), "fills|1rg");
    input::CellChosen(list, {1, 0});
    EXPECT_EQ(view::List(list).current, (view::CellPlace{1, 0}));
    EXPECT_EQ(GetFocus(), grid.m_hWnd);
    Press(grid, view::List(list).expandKey);
    EXPECT_EQ(Said(list, {1, 0}), "fills|1sro");
    input::CellChosen(list, {2, 0});
    Press(grid, VK_RETURN);
    EXPECT_EQ(root.Get("list").Text, ",2,");
    EXPECT_EQ(view::List(grid.m_hWnd).edited, std::nullopt);
    EXPECT_EQ(view::List(list).rowCount, 0);
}

// What the host may do while it is asked for a flag.
class FlagGrid : public CSuperGridCtrl {
public:
    std::function<void()> onAsked;
    UINT GetCheckState(const CTreeItem*, int) override { return onAsked(), DFCS_CHECKED; }
};

TEST_F(GridTest, ARowThatTheHostRemovesWhileItIsReadIsNotThere) {
    FlagGrid flags;
    MakeBare(flags);
    CTreeItem* node = Add(flags, nullptr, "flag", {""});
    Add(flags, nullptr, "other", {""});
    node->info->SetControlType(0, CItemInfo::ctCheck);
    flags.onAsked = [] {};
    EXPECT_EQ(view::Cell(flags.m_hWnd, {0, 1})->checked, true);
    flags.onAsked = [&] {
        flags.DeleteItem(0);
        flags.RemoveRootNode(node);
    };
    EXPECT_FALSE(view::Cell(flags.m_hWnd, {0, 1}));
    EXPECT_EQ(view::Cell(flags.m_hWnd, {0, 1})->text, "");
}

} // namespace
} // namespace korvel
