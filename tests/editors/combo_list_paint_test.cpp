#include "support/combo_fixture.h"
#include "support/table.h"

namespace korvel {
namespace {

class ComboPaintTest : public ComboTest {
protected:
    std::vector<PaintCall> PaintRow(int row) {
        CRect rect;
        list->GetItemRect(row, &rect);
        return display.PaintWindow(list->m_hWnd, &rect);
    }
    static std::vector<CRect> Of(const std::vector<PaintCall>& calls, PaintCall::Kind kind) {
        std::vector<CRect> rects;
        for (const PaintCall& call : calls)
            if (call.kind == kind)
                rects.push_back(call.rect);
        return rects;
    }
    bool HasLine(int row, const CRect& line) {
        const auto lines = Of(PaintRow(row), PaintCall::Kind::Line);
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    }
};

TEST_F(ComboPaintTest, ARowShowsItsParts) {
    TestEnumeration shown({"g/a", "g/b", "c"}, ENF_Tree | ENF_CheckBoxes);
    Show(shown, eDesignTree, ",2,");
    EXPECT_EQ(Of(PaintRow(0), PaintCall::Kind::Picture), std::vector<CRect>{list->GetIconRect(0)});
    const auto selected = PaintRow(2);
    EXPECT_EQ(selected[1].rect, (CRect{0, 40, 200, 60}));
    EXPECT_EQ(selected[1].color, GetSysColor(COLOR_HIGHLIGHT));
    const auto text = std::find_if(selected.begin(), selected.end(),
                                   [](const PaintCall& call) { return call.kind == PaintCall::Kind::Text; });
    ASSERT_NE(text, selected.end());
    EXPECT_EQ(text->text, "b");
    EXPECT_EQ(text->rect, (CRect{list->GetRectLabel(2).left + 2, 40, 200, 60}));
    EXPECT_EQ(text->color, GetSysColor(COLOR_HIGHLIGHTTEXT));
    EXPECT_GT(selected.size(), PaintRow(1).size()); // a check mark is more than an empty box
}

TEST_F(ComboPaintTest, TreeLinesAndButtons) {
    TestEnumeration shown({"g/a", "g/h/b", "c"}, ENF_Tree);
    Show(shown, eDropDown, ",2,"); // g, a, h, b, c; boxes are 20 wide from 4 on
    const CRect bar{11, 10, 18, 10}, upright{14, 7, 14, 14};
    const Table<int, CRect, bool> lines = {
        {"another follows", 1, {34, 20, 34, 40}, true},
        {"the last one ends at its center", 2, {34, 40, 34, 50}, true},
        {"g has c after it", 3, {14, 60, 14, 80}, true},
        {"h is the last of g", 3, {34, 60, 34, 80}, false},
        {"minus", 0, bar, true},
        {"no plus", 0, upright, false},
    };
    for (const auto& [name, row, line, isThere] : lines)
        EXPECT_EQ(HasLine(row, line), isThere) << name;
    list->Collapse(Item("g"));
    EXPECT_TRUE(HasLine(0, bar));
    EXPECT_TRUE(HasLine(0, upright));
    EXPECT_TRUE(Of(PaintRow(1), PaintCall::Kind::Frame).empty()); // no children, no box
    list->OnDestroyEnumValue(&shown, 2);
    Do("down, right, down, down, right"); // g, a, the emptied h
    display.PaintWindow(list->m_hWnd);
    Do("left"); // no row goes, but it looks another
    EXPECT_TRUE(display.IsInvalid(list->m_hWnd));
}

TEST_F(ComboPaintTest, ADesignListShowsWhereTheKeyboardIs) {
    const Table<EComboListMode, int, int> cases = {
        {"the current row", eDesignFlat, 1, 1},
        {"none is: where the arrows begin", eDesignFlat, -1, 0},
        {"a list that drops down has no keyboard", eDropDown, 1, -1},
    };
    TestEnumeration shown({"a", "b"});
    const auto focused = [this] { return Of(display.PaintWindow(list->m_hWnd), PaintCall::Kind::Focus); };
    for (const auto& [name, mode, current, row] : cases) {
        SCOPED_TRACE(name);
        Show(shown, mode);
        list->SetCurrentRow(current);
        EXPECT_TRUE(focused().empty());
        list->SetFocus();
        EXPECT_TRUE(display.IsInvalid(list->m_hWnd));
        CRect bounds;
        list->GetItemRect(row, &bounds);
        EXPECT_EQ(focused(), row == -1 ? std::vector<CRect>() : std::vector<CRect>{bounds});
    }
}

} // namespace
} // namespace korvel
