#include "grid/cell_geometry.h"
#include "grid_fixture.h"

#include <algorithm>

namespace korvel {
namespace {

using Kind = PaintCall::Kind;

class Painting : public BoundGridTest {
protected:
    Painting() {
        display.SetColor(COLOR_WINDOW, 0xFFFFFF);
        display.SetColor(COLOR_WINDOWTEXT, 0x111111);
        display.SetColor(COLOR_GRAYTEXT, 0x777777);
        display.SetColor(COLOR_HIGHLIGHT, 0xAA0000);
        display.SetColor(COLOR_HIGHLIGHTTEXT, 0xEEEEEE);
        display.SetColor(COLOR_BTNFACE, 0xCCCCCC);
        display.SetColor(COLOR_BTNTEXT, 0x222222);
    }

    void Paint() { m_calls = display.PaintWindow(grid.m_hWnd); }

    CRect Cell(int row, int column) {
        CRect cell;
        grid.GetSubItemRect(row, column, LVIR_LABEL, &cell);
        return cell;
    }

    /// The colour that lies last at a point.
    COLORREF At(CPoint point) const {
        COLORREF color = 0xFFFFFFFF;
        for (const PaintCall& call : m_calls)
            if (call.kind == Kind::Fill && call.rect.PtInRect(point))
                color = call.color;
        return color;
    }

    const PaintCall* FindText(const std::string& text) const {
        const auto found = std::find_if(m_calls.begin(), m_calls.end(), [&](const PaintCall& call) {
            return call.kind == Kind::Text && call.text == text;
        });
        return found == m_calls.end() ? nullptr : &*found;
    }

    int CountWithin(Kind kind, const CRect& area) const {
        return static_cast<int>(std::count_if(m_calls.begin(), m_calls.end(), [&](const PaintCall& call) {
            return call.kind == kind && area.PtInRect(call.rect.TopLeft());
        }));
    }

    std::vector<PaintCall> m_calls;
};

CPoint MiddleOf(const CRect& rect) {
    return {rect.left + rect.Width() / 2, rect.top + rect.Height() / 2};
}

TEST_F(Painting, TextsTakeTheColourOfTheirState) {
    HostObject& object = Object();
    object.With("plain", Words(DT_String, "enabled"));
    object.AddMember("protected", false, Words(DT_String, "disabled"));
    object.With("chosen", Words(DT_String, "selected"));
    Bind(object);
    Select(grid, 2);
    Paint();
    EXPECT_EQ(0x111111u, FindText("enabled")->color);
    EXPECT_EQ(0x777777u, FindText("disabled")->color);
    EXPECT_EQ(0x111111u, FindText("protected")->color); // the name is not greyed
    EXPECT_EQ(0xEEEEEEu, FindText("selected")->color);
    EXPECT_EQ(0xAA0000u, At(MiddleOf(Cell(2, 1))));
    SetFocus(frame.m_hWnd);
    Paint();
    EXPECT_EQ(0x222222u, FindText("selected")->color);
    EXPECT_EQ(0xCCCCCCu, At(MiddleOf(Cell(2, 1))));
}

TEST_F(Painting, TheFocusCellOfTheSelectedRowHasItsFrame) {
    HostObject& object = Object();
    object.With("a", Words(DT_String, "b"));
    Bind(object);
    Select(grid, 0);
    Press(grid, VK_RIGHT);
    Paint();
    const CRect cell = Cell(0, 1);
    EXPECT_EQ(1, std::count_if(m_calls.begin(), m_calls.end(), [&](const PaintCall& call) {
                  return call.kind == Kind::Frame && call.rect == cell && call.color == 0xC0;
              }));
}

TEST_F(Painting, SwatchesShowTheirColourAndLetTheGroundThrough) {
    HostObject& object = Object();
    object.With("opaque", Word(DT_ColorRGB, 0x003366FFu)); // the top byte does not count
    object.With("white", Word(DT_ColorRGB, 0xFFFFFFFFu));
    object.With("half", Word(DT_ColorARGB, 0x80000000u));
    object.With("full", Word(DT_ColorARGB, 0xFF3366FFu));
    display.SetColor(COLOR_WINDOW, 0x202020); // dark
    Bind(object);
    Paint();
    const auto swatch = [&](int row) { return MiddleOf(LeftSquare(Cell(row, 1))); };
    EXPECT_EQ(0x3366FFu, At(swatch(0)));
    EXPECT_EQ(0xFFFFFFu, At(swatch(1)));
    EXPECT_EQ(0x3366FFu, At(swatch(3)));
    std::vector<COLORREF> tiles;
    const CRect square = LeftSquare(Cell(2, 1));
    for (int x = square.left + 3; x < square.right - 3; ++x)
        tiles.push_back(At({x, square.top + 5}));
    std::sort(tiles.begin(), tiles.end());
    tiles.erase(std::unique(tiles.begin(), tiles.end()), tiles.end());
    EXPECT_EQ((std::vector<COLORREF>{0x4F4F4F, 0x7F7F7F}), tiles); // half black over grey and white
    EXPECT_GE(FindText("0x3366ff")->rect.left, LeftSquare(Cell(0, 1)).right);
}

TEST_F(Painting, TextOnARowOfItsOwnColourStaysReadable) {
    HostObject& object = Object();
    object.With("dark", Words(DT_String, "on dark")).With("light", Words(DT_String, "on light"));
    Bind(object);
    grid.NodeAtRow(0)->info->rowColor = 0x400000;
    grid.NodeAtRow(1)->info->SetCellColor(0, 0x80FFFF);
    Paint();
    EXPECT_EQ(0x400000u, At(MiddleOf(Cell(0, 1))));
    EXPECT_EQ(0xFFFFFFu, FindText("on dark")->color);
    EXPECT_EQ(0x80FFFFu, At(MiddleOf(Cell(1, 1))));
    EXPECT_EQ(0x000000u, FindText("on light")->color);
    EXPECT_EQ(0xFFFFFFu, At(MiddleOf(Cell(1, 0))));
}

TEST_F(Painting, SignsStandWhereRowsCanExpandAndTellTheirState) {
    HostObject& inner = Object();
    inner.With("x", Flag(true));
    HostObject& object = Object();
    object.With("closed", Group(&inner)).With("plain", Flag(true));
    Bind(object);
    const auto bars = [&](int row) {
        Paint();
        CRect bounds;
        grid.GetItemRect(row, &bounds);
        const CRect sign{bounds.left, bounds.top + 1, bounds.left + 16, bounds.bottom};
        return CountWithin(Kind::Fill, sign);
    };
    EXPECT_EQ(3, bars(0)); // ground, both bars of the plus
    EXPECT_EQ(0, bars(1));
    grid.ExpandNode(grid.NodeAtRow(0), 0);
    EXPECT_EQ(2, bars(0)); // a minus
}

TEST_F(Painting, ButtonsStandOnlyWhereAPressDoesSomething) {
    struct Row {
        const char* name;
        CVariantValue value;
        bool editable;
        const char* face;
        bool isDrawn;
    };
    const Row rows[] = {
        {"angle", Number(DT_AngleDouble, 1), true, "r", true},
        {"protected angle", Number(DT_AngleDouble, 1), false, "r", false},
        {"file", Words(DT_FileName, "plan"), false, "\xBB", true}, // opening is no writing
        {"button", Words(static_cast<EDataTyps>(TypeBitButton | DT_Int), "press"), false, "...", true},
        {"double", Number(DT_Double, 1), true, "...", false},
    };
    for (const Row& row : rows) {
        HostObject& object = Object();
        object.AddMember(row.name, row.editable, row.value);
        Bind(object);
        Paint();
        const PaintCall* face = FindText(row.face);
        ASSERT_EQ(row.isDrawn, face != nullptr) << row.name;
        const CRect cell = Cell(0, 1);
        EXPECT_TRUE(!face ||
                    (face->rect.right <= cell.right && face->rect.left >= cell.right - 2 * cell.Height()))
            << row.name;
        grid.Clear();
    }
}

/// Says of each flag whether it is drawn checked.
class CheckedGrid : public CEditableGrid {
public:
    using CEditableGrid::CEditableGrid;
    bool OnGetCheckState(IMemberDispatch*, const std::string& name, const CVariantValue&) override {
        return name == "always";
    }
};

TEST_F(Painting, CheckBoxesShowTheObjectsFlagAsItIsNow) {
    HostObject& object = Object();
    object.With("on", Flag(true)).With("off", Flag(false)).With("always", Flag(false));
    object.AddMember("fixed", false, Flag(true));
    CheckedGrid checked(nullptr, nullptr);
    Make(checked);
    checked.Initialize(&object, "Name", "Value", 0);
    const auto state = [&](int row) { return checked.GetCheckState(checked.NodeAtRow(row), 1); };
    EXPECT_EQ(DFCS_BUTTONCHECK | DFCS_CHECKED, state(0));
    EXPECT_EQ(DFCS_BUTTONCHECK, state(1));
    EXPECT_EQ(DFCS_BUTTONCHECK | DFCS_CHECKED, state(2));
    EXPECT_EQ(DFCS_BUTTONCHECK | DFCS_CHECKED | DFCS_INACTIVE, state(3));
    object.SetMember("on", Flag(false));
    EXPECT_EQ(DFCS_BUTTONCHECK, state(0));
}

TEST_F(Painting, OnlyWhatIsOnScreenIsRepainted) {
    HostObject& object = Object();
    for (int i = 0; i < 100; ++i)
        object.With("m" + std::to_string(i), Whole(DT_Int, i));
    Bind(object);
    Paint();
    SinkOf(object).OnChange("m50", Whole(DT_Int, 7));
    EXPECT_FALSE(display.IsInvalid(grid.m_hWnd));
    SinkOf(object).OnChange("m5", Whole(DT_Int, 7));
    EXPECT_TRUE(display.IsInvalid(grid.m_hWnd));
    EXPECT_LT(m_calls.size(), 200u);
}

TEST_F(Painting, NarrowAndEmptyCellsAreHarmless) {
    HostObject& object = Object();
    object.With("file", Words(DT_FileName, "plan")).With("colour", Word(DT_ColorARGB, 0x80000000u));
    object.With("random", Whole(DT_RandomInt, 1)).With("flag", Flag(true));
    Bind(object);
    for (const int width : {0, 1, 5, 12}) {
        grid.SetColumnWidth(0, width);
        grid.SetColumnWidth(1, width);
        Paint();
        for (const PaintCall& call : m_calls)
            EXPECT_LE(call.rect.left, call.rect.right) << width;
    }
}

} // namespace
} // namespace korvel
