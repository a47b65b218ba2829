#include "korvel/editors/cell_geometry.h"
#include "support/grid_fixture.h"
#include "support/table.h"

#include <functional>
#include <set>

namespace korvel {
namespace {

using internal::LeftSquare;

class Painting : public BoundGridTest {
protected:
    Painting() {
        const std::pair<int, COLORREF> colors[] = {
            {COLOR_WINDOW, 0xFFFFFF},    {COLOR_WINDOWTEXT, 0x111111},    {COLOR_GRAYTEXT, 0x777777},
            {COLOR_HIGHLIGHT, 0xAA0000}, {COLOR_HIGHLIGHTTEXT, 0xEEEEEE}, {COLOR_BTNFACE, 0xCCCCCC},
            {COLOR_BTNTEXT, 0x222222}};
        for (const auto& [index, color] : colors)
            display.SetColor(index, color);
    }
    Picture Paint() { return Picture{display.PaintWindow(grid.m_hWnd)}; }
    CRect Cell(int row, int column) {
        CRect cell;
        grid.GetSubItemRect(row, column, LVIR_LABEL, &cell);
        return cell;
    }
};

TEST_F(Painting, TextsTakeTheColorOfTheirState) {
    root.With("plain", Words(DT_String, "enabled")).With("chosen", Words(DT_String, "selected"));
    root.AddMember("protected", false, Words(DT_String, "disabled"));
    Bind(root);
    Select(grid, 1);
    Press(grid, VK_RIGHT);
    const Picture picture = Paint();
    EXPECT_EQ(picture.FindText("enabled")->color, 0x111111u);
    EXPECT_EQ(picture.FindText("disabled")->color, 0x6A6A6Au);
    EXPECT_EQ(picture.FindText("protected")->color, 0x111111u); // the name is not greyed
    EXPECT_EQ(picture.FindText("selected")->color, 0xEEEEEEu);
    EXPECT_EQ(picture.At(MiddleOf(Cell(1, 1))), 0xAA0000u);
    EXPECT_TRUE(std::any_of(picture.calls.begin(), picture.calls.end(), [&](const PaintCall& call) {
        return call.kind == PaintCall::Kind::Frame && call.rect == Cell(1, 1) && call.color == 0xC0;
    })) << "around the focus cell";
    SetFocus(frame.m_hWnd);
    const Picture unfocused = Paint();
    EXPECT_EQ(unfocused.FindText("selected")->color, 0x222222u);
    EXPECT_EQ(unfocused.At(MiddleOf(Cell(1, 1))), 0xCCCCCCu);
}

TEST_F(Painting, SwatchesShowTheirColorAndLetTheGroundThrough) {
    root.With("opaque", Word(DT_ColorRGB, 0x003366FFu)); // the top byte does not count
    root.With("white", Word(DT_ColorRGB, 0xFFFFFFFFu));
    root.With("half", Word(DT_ColorARGB, 0x80000000u));
    root.With("full", Word(DT_ColorARGB, 0xFF3366FFu));
    display.SetColor(COLOR_WINDOW, 0x202020); // dark
    Bind(root);
    const Picture picture = Paint();
    const auto swatch = [&](int row) { return picture.At(MiddleOf(LeftSquare(Cell(row, 1)))); };
    EXPECT_EQ(swatch(0), 0x3366FFu);
    EXPECT_EQ(swatch(1), 0xFFFFFFu);
    EXPECT_EQ(swatch(3), 0x3366FFu);
    std::set<COLORREF> tiles;
    const CRect square = LeftSquare(Cell(2, 1));
    for (int x = square.left + 3; x < square.right - 3; ++x)
        tiles.insert(picture.At({x, square.top + 5}));
    EXPECT_EQ(tiles, (std::set<COLORREF>{0x4F4F4F, 0x7F7F7F})); // half black over grey and white
    EXPECT_GE(picture.FindText("0x3366ff")->rect.left, LeftSquare(Cell(0, 1)).right);
}

TEST_F(Painting, TextOnARowOfItsOwnColorStaysReadable) {
    root.With("dark", Words(DT_String, "on dark")).With("light", Words(DT_String, "on light"));
    Bind(root);
    grid.NodeAtRow(0)->info->rowColor = 0x400000;
    grid.NodeAtRow(1)->info->SetCellColor(0, 0x80FFFF);
    const Picture picture = Paint();
    EXPECT_EQ(picture.At(MiddleOf(Cell(0, 1))), 0x400000u);
    EXPECT_EQ(picture.FindText("on dark")->color, 0xFFFFFFu);
    EXPECT_EQ(picture.At(MiddleOf(Cell(1, 1))), 0x80FFFFu);
    EXPECT_EQ(picture.FindText("on light")->color, 0x000000u);
    EXPECT_EQ(picture.At(MiddleOf(Cell(1, 0))), 0xFFFFFFu);
}

TEST_F(Painting, SignsStandWhereRowsCanExpandAndTellTheirState) {
    point.With("x", Flag(true));
    root.With("closed", Group(&point)).With("plain", Flag(true));
    Bind(root);
    const auto bars = [&](int row) {
        CRect bounds;
        grid.GetItemRect(row, &bounds);
        return Paint().Count(PaintCall::Kind::Fill,
                             {bounds.left, bounds.top + 1, bounds.left + 16, bounds.bottom});
    };
    EXPECT_EQ(bars(0), 3); // ground, both bars of the plus
    EXPECT_EQ(bars(1), 0);
    grid.ExpandNode(grid.NodeAtRow(0), 0);
    EXPECT_EQ(bars(0), 2); // a minus
}

TEST_F(Painting, ButtonsStandOnlyWhereAPressDoesSomething) {
    const std::tuple<const char*, CVariantValue, bool, const char*, bool> rows[] = {
        {"angle", Number(DT_AngleDouble, 1), true, "r", true},
        {"protected angle", Number(DT_AngleDouble, 1), false, "r", false},
        {"file", Words(DT_FileName, "plan"), false, "\xBB", true}, // opening is no writing
        {"button", Words(static_cast<EDataTyps>(TypeBitButton | DT_Int), "press"), false, "...", true},
        {"double", Number(DT_Double, 1), true, "...", false},
    };
    for (const auto& [name, value, editable, face, isDrawn] : rows) {
        HostObject& object = Object();
        object.AddMember(name, editable, value);
        Bind(object);
        const Picture picture = Paint();
        const PaintCall* drawn = picture.FindText(face);
        ASSERT_EQ(drawn != nullptr, isDrawn) << name;
        EXPECT_TRUE(!drawn || drawn->rect.left >= Cell(0, 1).right - 2 * Cell(0, 1).Height()) << name;
        grid.Clear();
    }
}

TEST_F(Painting, CheckBoxesShowTheObjectsFlagAsItIsNow) {
    root.With("on", Flag(true)).With("off", Flag(false)).With("always", Flag(false));
    root.AddMember("fixed", false, Flag(true));
    HostGrid checked(nullptr, nullptr);
    Make(checked);
    checked.Initialize(&root, "Name", "Value", 0);
    const auto state = [&](int row) { return checked.GetCheckState(checked.NodeAtRow(row), 1); };
    EXPECT_EQ(state(0), DFCS_BUTTONCHECK | DFCS_CHECKED);
    EXPECT_EQ(state(1), DFCS_BUTTONCHECK);
    EXPECT_EQ(state(2), DFCS_BUTTONCHECK | DFCS_CHECKED);
    EXPECT_EQ(state(3), DFCS_BUTTONCHECK | DFCS_CHECKED | DFCS_INACTIVE);
    root.SetMember("on", Flag(false));
    EXPECT_EQ(state(0), DFCS_BUTTONCHECK);
}

TEST_F(Painting, OnlyWhatIsOnScreenIsRepainted) {
    for (int i = 0; i < 100; ++i)
        root.With("m" + std::to_string(i), Whole(DT_Int, i));
    Bind(root);
    EXPECT_LT(Paint().calls.size(), 200u);
    SinkOf(root).OnChange("m50", Whole(DT_Int, 7));
    EXPECT_FALSE(display.IsInvalid(grid.m_hWnd));
    SinkOf(root).OnChange("m5", Whole(DT_Int, 7));
    EXPECT_TRUE(display.IsInvalid(grid.m_hWnd));
}

TEST_F(Painting, NarrowAndEmptyCellsAreHarmless) {
    root.With("file", Words(DT_FileName, "plan")).With("color", Word(DT_ColorARGB, 0x80000000u));
    root.With("random", Whole(DT_RandomInt, 1)).With("flag", Flag(true));
    Bind(root);
    for (const int width : {0, 1, 5, 12}) {
        grid.SetColumnWidth(0, width);
        grid.SetColumnWidth(1, width);
        for (const PaintCall& call : Paint().calls)
            EXPECT_LE(call.rect.left, call.rect.right) << width;
    }
}

/// A grid whose host does something whenever it is asked how a row looks.
class MeddlingGrid : public CSuperGridCtrl {
public:
    std::string at;
    std::function<void()> act;

    int GetIcon(const CTreeItem*) override { return Meddle("icon"), 0; }
    COLORREF GetFocusCellColor() override { return Meddle("focus color"), 0; }
    UINT GetCheckState(const CTreeItem*, int) override { return Meddle("check state"), 0u; }
    void DrawSpezialItem(CDC&, const CTreeItem*, int, const CRect&) override { Meddle("after a cell"); }
    void DrawThemedFrame(CDC& dc, const CRect& rect, UINT type, UINT state) override {
        CSuperGridCtrl::DrawThemedFrame(dc, rect, type, state);
        Meddle("frame");
    }

private:
    void Meddle(const std::string& place) {
        if (place == at)
            if (const auto once = std::exchange(act, nullptr))
                once();
    }
};

TEST_F(GridTest, ARowMayBeRemovedByWhoeverIsAskedHowItLooks) {
    CImageList icons(20, 20);
    icons.Add(Image{20, 20, std::vector<std::uint32_t>(400, 0xFF000000)});
    MeddlingGrid* grid = nullptr;
    for (const auto& [border, deed] : Table<std::function<void()>>{
             {"remove", [&] { grid->RemoveRootNode(grid->rootItems().front()); }},
             {"clear", [&] { grid->RemoveRootNode(grid->rootItems().front()), grid->RebuildRows(); }},
             {"images", [&] { grid->SetImageList(&icons); }},
             {"destroy", [&] { grid->DestroyWindow(); }},
             {"add", [&] { Add(*grid, nullptr, "new", {}, 0); }}})
        for (const char* place : {"icon", "focus color", "check state", "after a cell", "frame"}) {
            SCOPED_TRACE(place + std::string(": ") + border);
            MeddlingGrid painted;
            grid = &painted;
            MakeBare(painted);
            painted.SetExtendedStyle(LVS_EX_CHECKBOXES);
            for (const char* name : {"first", "second"}) {
                CTreeItem* node = Add(painted, nullptr, name, {"value"});
                node->info->SetControlType(0, CItemInfo::ctCheck);
                Add(painted, node, "below");
            }
            painted.ExpandAll();
            Select(painted, 0);
            painted.at = place;
            painted.act = deed;
            display.PaintWindow(painted.m_hWnd);
            EXPECT_FALSE(painted.act) << "it was asked";
        }
}

} // namespace
} // namespace korvel
