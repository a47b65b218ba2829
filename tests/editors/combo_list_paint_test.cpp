#include "combo_fixture.h"
#include "editors/combo_tree_bitmap.h"

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
    static bool HasLine(const std::vector<PaintCall>& calls, const CRect& line) {
        const auto lines = Of(calls, PaintCall::Kind::Line);
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    }
};

TEST_F(ComboPaintTest, RegionsOfARow) {
    struct Case {
        const char* name;
        std::uint32_t flags;
        std::vector<std::string> names;
        int row;
        CRect treeBox, checkBox, icon, label;
    };
    const Case cases[] = {
        {"flat", 0, {"a", "b"}, 1, {4, 20, 24, 40}, {28, 20, 48, 40}, {24, 20, 44, 40}, {24, 20, 200, 40}},
        {"checks", 1, {"a"}, 0, {4, 0, 24, 20}, {28, 0, 48, 20}, {48, 0, 68, 20}, {48, 0, 200, 20}},
        {"tree, two deep",
         512,
         {"g/a"},
         1,
         {24, 20, 44, 40},
         {48, 20, 68, 40},
         {44, 20, 64, 40},
         {64, 20, 200, 40}},
        {"both", 513, {"a"}, 0, {4, 0, 24, 20}, {28, 0, 48, 20}, {48, 0, 68, 20}, {68, 0, 200, 20}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown(row.names, row.flags);
        Show(shown, eDropDown, ",1,");
        EXPECT_EQ(list->GetRectTreeBox(row.row), row.treeBox);
        EXPECT_EQ(list->GetRectCheckBox(*list->GetTreeItem(row.row)), row.checkBox);
        EXPECT_EQ(list->GetIconRect(row.row), row.icon);
        EXPECT_EQ(list->GetRectLabel(row.row), row.label);
        EXPECT_EQ(list->GetRectLabel(99), CRect());
    }
}

TEST_F(ComboPaintTest, ARowShowsItsParts) {
    TestEnumeration shown({"g/a", "g/b", "c"}, ENF_Tree | ENF_CheckBoxes);
    Show(shown, eDropDown, ",2,");
    const auto group = PaintRow(0);
    EXPECT_EQ(Of(group, PaintCall::Kind::Picture), std::vector<CRect>{list->GetIconRect(0)});
    const auto selected = PaintRow(2);
    EXPECT_EQ(selected[1].rect, (CRect{0, 40, 200, 60}));
    EXPECT_EQ(selected[1].color, GetSysColor(COLOR_HIGHLIGHT));
    const auto text = std::find_if(selected.begin(), selected.end(),
                                   [](const PaintCall& call) { return call.kind == PaintCall::Kind::Text; });
    ASSERT_NE(text, selected.end());
    EXPECT_EQ(text->text, "b");
    CRect label = list->GetRectLabel(2);
    label.left += 2;
    EXPECT_EQ(text->rect, label);
    EXPECT_EQ(text->color, GetSysColor(COLOR_HIGHLIGHTTEXT));
    // A check mark is more than an empty box, on a group with one checked entry too.
    EXPECT_GT(PaintRow(2).size(), PaintRow(1).size());
}

TEST_F(ComboPaintTest, TreeLinesAndButtons) {
    TestEnumeration shown({"g/a", "g/h/b", "c"}, ENF_Tree);
    Show(shown, eDropDown, ",2,");                        // g, a, h, b, c; boxes are 20 wide from 4 on
    EXPECT_TRUE(HasLine(PaintRow(1), {34, 20, 34, 40}));  // another follows
    EXPECT_TRUE(HasLine(PaintRow(2), {34, 40, 34, 50}));  // the last one ends at its centre
    EXPECT_TRUE(HasLine(PaintRow(3), {14, 60, 14, 80}));  // g has c behind it
    EXPECT_FALSE(HasLine(PaintRow(3), {34, 60, 34, 80})); // h is the last of g
    const CRect bar{11, 10, 18, 10}, upright{14, 7, 14, 14};
    const auto opened = PaintRow(0);
    EXPECT_TRUE(HasLine(opened, bar));
    EXPECT_FALSE(HasLine(opened, upright));
    list->Collapse(Item("g"));
    const auto closed = PaintRow(0);
    EXPECT_TRUE(HasLine(closed, bar));
    EXPECT_TRUE(HasLine(closed, upright));
    EXPECT_TRUE(Of(PaintRow(1), PaintCall::Kind::Frame).empty()); // no children, no box
}

TEST_F(ComboPaintTest, OnlyRowsOnScreenAreAskedForTheirTexts) {
    TestEnumeration shown(std::vector<std::string>(1000, "x"));
    Show(shown, eDropDown, {}, 5);
    EXPECT_LE(Of(display.PaintWindow(list->m_hWnd), PaintCall::Kind::Text).size(), 6u);
}

TEST_F(ComboPaintTest, IconsAreDrawn) {
    for (const auto cell : {EComboTreeCell::ClosedGroup, EComboTreeCell::OpenGroup, EComboTreeCell::Entry}) {
        const Image& image = ComboTreeBitmap(cell);
        EXPECT_EQ(image.pixels.size(), static_cast<std::size_t>(image.width * image.height));
    }
}

TEST_F(ComboPaintTest, ColumnsFollowTheWidth) {
    TestEnumeration shown({"a"});
    Show(shown, eDesignFlat);
    list->MoveWindow({0, 0, 120, 100});
    EXPECT_EQ(list->GetColumnWidth(0), 120);
    for (int i = 0; i < 30; ++i) { // the scroll bar takes its part
        shown.entries.push_back({100 + i, TextValue("x")});
        list->OnAddEnumValue(&shown, 100 + i);
    }
    EXPECT_EQ(list->GetColumnWidth(0), 103);
}

} // namespace
} // namespace korvel
