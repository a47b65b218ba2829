#include "korvel/layout/base_item.h"
#include "korvel/layout/pane_manager.h"
#include "korvel/window/core/cwnd.h"
#include "korvel/window/display/headless_display.h"
#include "support/failing_memory.h"
#include "support/table.h"

#include <gmock/gmock.h>
#include <limits>
#include <stdexcept>

namespace korvel {
namespace {

constexpr int Row = 1;
constexpr int Column = 0;
constexpr UINT GrowBoth = ItemGrowX | ItemGrowY;
constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

// What a layout moves where there is no window.
class Guest : public IItem {
public:
    Guest(UINT layoutFlags, const RECT& design) : m_design(design) { flags = layoutFlags; }

    RECT placed;
    int captures = 0;

    void MoveTo(const RECT& rect) override { placed = rect; }
    void CaptureRect() override { ++captures; }
    const RECT* GetRect() override { return &m_design; }
    void SetRect(const RECT& rect) override { m_design = rect; }
    IItem* FindItem(int) override { return nullptr; }
    void Shift(int, int) override {}
    void ShiftKeep(int, int) override {}

private:
    RECT m_design;
};

struct Child {
    UINT flags;
    RECT design;
    RECT placed; // expected
};

TEST(PaneManager, PlacesChildrenByTheirFlags) {
    // The pane is designed as 100 by 40 at (10, 20); most rows hand it 60 more across and 20 more down.
    const RECT design{10, 20, 110, 60};
    const RECT larger{10, 20, 170, 80};
    const RECT left{10, 20, 40, 60};
    const RECT middle{40, 20, 70, 60};
    const RECT right{70, 20, 110, 60};
    const RECT upper{10, 20, 110, 40};
    const RECT lower{10, 40, 110, 60};
    struct Case {
        const char* name;
        std::vector<Child> children;
        RECT handed{10, 20, 170, 80};
        UINT flags = GrowBoth;
        int orientation = Row;
    };
    const std::vector<Case> cases = {
        {"later children of a row move along with what grew",
         {{ItemGrowX | ItemGrowY, left, {10, 20, 100, 80}}, {ItemGrowY, right, {130, 20, 170, 80}}}},
        {"one pixel of 100 among three stays unused",
         {{GrowBoth, left, {10, 20, 73, 60}},
          {GrowBoth, middle, {73, 20, 136, 60}},
          {GrowBoth, right, {136, 20, 209, 60}}},
         {10, 20, 210, 60}},
        {"-100 among three is -33, toward zero",
         {{GrowBoth, left, {10, 20, 7, 60}},
          {GrowBoth, middle, {7, 20, 4, 60}},
          {GrowBoth, right, {4, 20, 11, 60}}},
         {10, 20, 10, 60}},
        {"in a row, the edges that a child sticks to are those handed in",
         {{ItemGrowY | ItemAlignLeft, middle, {10, 20, 40, 80}},
          {ItemGrowY | ItemAlignRight, middle, {140, 20, 170, 80}},
          {ItemGrowY | ItemAlignCenterX, middle, {75, 20, 105, 80}},
          {ItemGrowY, middle, {40, 20, 70, 80}}}},
        {"in a row, whatever does not grow goes down whole, flags or not",
         {{0, left, {10, 40, 40, 80}},
          {ItemAlignTop, middle, {40, 40, 70, 80}},
          {ItemAlignCenterY, right, {70, 40, 110, 80}}}},
        {"in a column, a child goes right whole, unless it sticks to the left",
         {{ItemGrowY, upper, {70, 20, 170, 60}},
          {ItemAlignLeft, lower, {10, 60, 110, 80}},
          {ItemAlignRight, lower, {70, 60, 170, 80}},
          {ItemAlignCenterX, lower, {70, 60, 170, 80}}},
         larger,
         GrowBoth,
         Column},
        {"in a column, the edges that a child sticks to are those handed in",
         {{ItemGrowX | ItemAlignBottom | ItemAlignTop, upper, {10, 60, 170, 80}},
          {ItemGrowX | ItemAlignTop | ItemAlignCenterY, lower, {10, 20, 170, 40}},
          {ItemGrowX | ItemAlignCenterY, lower, {10, 40, 170, 60}},
          {ItemGrowX, upper, {10, 20, 170, 40}}},
         larger,
         GrowBoth,
         Column},
        {"a column shares the height only; each child gets all of the width",
         {{GrowBoth, upper, {10, 20, 170, 50}}, {GrowBoth, lower, {10, 50, 170, 80}}},
         larger,
         GrowBoth,
         Column},
        {"a row moved without growing only moves",
         {{GrowBoth, left, {-90, 0, -60, 40}}, {ItemGrowY, right, {-30, 0, 10, 40}}},
         {-90, 0, 10, 40}},
        {"a pane that keeps its size is put into the middle",
         {{GrowBoth, left, {40, 30, 70, 70}}},
         larger,
         0},
        {"its children stick to the edges handed in, not to its own",
         {{ItemGrowY | ItemAlignLeft, middle, {10, 30, 40, 70}},
          {ItemGrowY | ItemAlignRight, middle, {140, 30, 170, 70}}},
         larger,
         0},
        {"right: the left edge is the stored width, and what grows gets the rest",
         {{GrowBoth, design, {100, 40, 170, 80}}},
         larger,
         ItemAlignRight | ItemAlignBottom},
        {"the middle of less room truncates toward zero",
         {{GrowBoth, left, {8, 18, 38, 58}}},
         {10, 20, 105, 55},
         0},
        {"coordinates wrap around",
         {{GrowBoth, left, {Highest - 10, 0, Lowest + 19, 40}},
          {ItemGrowY, right, {Lowest + 49, 0, Lowest + 89, 40}}},
         {Highest - 10, 0, Lowest + 89, 40}},
    };
    for (const auto& [name, children, handed, flags, orientation] : cases) {
        SCOPED_TRACE(name);
        CPaneManager pane(orientation, flags);
        std::vector<Guest*> guests;
        for (const Child& child : children)
            pane.Add(guests.emplace_back(new Guest(child.flags, child.design)));
        pane.SetRect(design);
        for (const char* call : {"first", "again, from the stored rectangles"}) {
            pane.MoveTo(handed);
            for (std::size_t i = 0; i < guests.size(); ++i)
                EXPECT_EQ(guests[i]->placed, children[i].placed) << call << ", child " << i;
        }
        EXPECT_EQ(*pane.GetRect(), design);
    }
}

TEST(PaneManager, CapturesTheUnionOfItsChildren) {
    const RECT empty{500, 500, 500, 600};
    const Table<std::vector<RECT>, RECT> rows = {
        {"none: it stays", {}, {1, 2, 3, 4}},
        {"the first counts, even empty", {empty}, empty},
        {"but adds nothing to the next", {empty, {5, 6, 7, 8}}, {5, 6, 7, 8}},
        {"later empty ones add nothing", {{5, 6, 7, 8}, empty}, {5, 6, 7, 8}},
        {"two empty ones", {empty, empty}, {}},
        {"overlapping", {{5, 6, 9, 9}, {0, 8, 7, 20}}, {0, 6, 9, 20}},
    };
    for (const auto& [name, designs, expected] : rows) {
        SCOPED_TRACE(name);
        CPaneManager pane(Row, 0);
        pane.SetRect({1, 2, 3, 4});
        for (const RECT& design : designs)
            pane.Add(new Guest(0, design));
        pane.CaptureRect();
        EXPECT_EQ(*pane.GetRect(), expected);
        for (const auto& child : pane.children)
            EXPECT_EQ(static_cast<Guest&>(*child).captures, 1) << "by Add only";
    }
}

TEST(PaneManager, KeepsNothingOfAChildThatFails) {
    struct Failing : Guest {
        Failing() : Guest(GrowBoth, {}) {}
        void CaptureRect() override { throw std::runtime_error("no window"); }
    };
    for (const int orientation : {Row, Column}) {
        CPaneManager pane(orientation, 0);
        EXPECT_THROW(pane.Add(new Failing), std::runtime_error);
        EXPECT_EQ(pane.growCountX + pane.growCountY, 0);
        EXPECT_TRUE(pane.children.empty());
    }
}

TEST(PaneManager, AllocatesNothingInMoveTo) {
    CPaneManager root(Column, GrowBoth);
    for (int i = 0; i < 10; ++i)
        root.Add((new CPaneManager(Row, GrowBoth))->Add(new Guest(GrowBoth, {0, i, 9, i + 1})));
    bool hasFailed = false;
    {
        const FailingMemory none(0, hasFailed);
        root.MoveTo({0, 0, 500, 500});
    }
    EXPECT_FALSE(hasFailed);
}

class LayoutOfWindows : public testing::Test {
protected:
    static constexpr int GroupId = 7;
    static constexpr int ButtonId = 8;

    LayoutOfWindows() {
        SetDisplay(&display);
        host.CreateEx(0, "KorvelFrame", "", 0, {300, 200, 500, 300}, nullptr, 0);
        group = Child({10, 10, 110, 60}, GroupId);
        button = Child({20, 20, 60, 40}, ButtonId);
        label = Child({0, 90, 9, 99}, -1);
    }
    HWND Child(const RECT& rect, int id) {
        return CreateWindowExA(0, "KorvelFrame", "", WS_CHILD, rect, host.m_hWnd, id);
    }
    RECT PlaceOf(HWND window) const {
        RECT rect = GetWindowRect(window);
        rect.OffsetRect(-300, -200);
        return rect;
    }

    HeadlessDisplay display;
    CWnd host;
    HWND group = nullptr, button = nullptr, label = nullptr;
};

TEST_F(LayoutOfWindows, MovesItsControlsAndNoOther) {
    CPaneManager root(Row, GrowBoth, host.m_hWnd, GroupId);
    root.Add(new CBaseItem(host.m_hWnd, ButtonId, ItemGrowX));
    root.CaptureRect();
    EXPECT_EQ(*root.GetRect(), (RECT{10, 10, 110, 60}));
    EXPECT_EQ(*root.FindItem(ButtonId)->GetRect(), (RECT{20, 20, 60, 40}));
    EXPECT_EQ(root.FindItem(GroupId), &root);
    EXPECT_EQ(root.FindItem(99), nullptr);
    root.MoveTo({10, 10, 130, 70});
    EXPECT_EQ(PlaceOf(group), (RECT{10, 10, 130, 70}));
    EXPECT_EQ(PlaceOf(button), (RECT{20, 30, 80, 50}));

    CPaneManager fixed(Row, 0, host.m_hWnd, GroupId);
    fixed.CaptureRect();
    fixed.MoveTo({50, 60, 500, 600});
    EXPECT_EQ(PlaceOf(group), (RECT{215, 300, 335, 360})) << "its own size, in the middle";
    root.MoveTo({10, 10, 130, 70});

    CPaneManager container(Row, GrowBoth, host.m_hWnd);
    container.Add(new CBaseItem(host.m_hWnd, -1, GrowBoth));
    container.MoveTo({0, 0, 50, 50});
    EXPECT_EQ(PlaceOf(label), (RECT{0, 90, 9, 99})) << "an id of -1 names no control";

    DestroyWindow(button);
    root.MoveTo({0, 0, 20, 20}); // what is gone has no effect
}

TEST_F(LayoutOfWindows, ShiftsFromWhereAControlIs) {
    const Table<bool, RECT> rows = {
        {"what is stored stays", false, {20, 20, 60, 40}},
        {"kept: only left and top are recorded", true, {25, 13, 60, 40}},
    };
    for (const auto& [name, keep, stored] : rows) {
        SCOPED_TRACE(name);
        CPaneManager root(Row, GrowBoth);
        root.Add(new CBaseItem(host.m_hWnd, ButtonId, 0));
        MoveWindow(button, {100, 50, 130, 70});
        keep ? root.ShiftKeep(5, -7) : root.Shift(5, -7);
        EXPECT_EQ(PlaceOf(button), (RECT{105, 43, 135, 63}));
        EXPECT_EQ(*root.FindItem(ButtonId)->GetRect(), stored);
        MoveWindow(button, {20, 20, 60, 40});
    }
}

} // namespace
} // namespace korvel
