// What a list says of itself to whoever does not see it, and how such a user acts in it.

#include "korvel/window/core/exception_handler.h"
#include "korvel/window/display/window_view.h"
#include "support/list_fixture.h"

#include <limits>

namespace korvel {
namespace {

using Change = HeadlessDisplay::RowChange;
using Changes = std::vector<Change>;

class ListReading : public ListTest {
protected:
    void SetUp() override {
        ListTest::SetUp();
        MakeList(10);
    }
    // "row|text|left,top" of what is there.
    static std::string Shown(const std::optional<view::CellView>& cell) {
        if (!cell)
            return "none";
        return std::to_string(cell->at.row) + "|" + cell->text + "|" + std::to_string(cell->bounds.left) +
               "," + std::to_string(cell->bounds.top);
    }
};

TEST_F(ListReading, CellsAndTitlesAreFoundByPlaceAndByPoint) {
    list.SetItemText(3, 1, "12");
    list.SetItemText(6, 1, "15");
    list.EnsureVisible(7, false); // rows 3 to 7 are on screen
    constexpr int Farthest = std::numeric_limits<int>::max();
    for (const auto& [border, place, shown] :
         Table<view::CellPlace, std::string>{{"on screen", {6, 1}, "6|15|100,84"},
                                             {"above the screen", {0, 0}, "0|row 0|0,-36"},
                                             {"a title", {view::TitleRow, 1}, "-1|Value|100,0"},
                                             {"before the rows", {-2, 0}, "none"},
                                             {"after the rows", {10, 0}, "none"},
                                             {"far after the rows", {Farthest, 0}, "none"},
                                             {"before the columns", {0, -1}, "none"},
                                             {"after the columns", {view::TitleRow, 2}, "none"},
                                             {"no cell at all", {Farthest, Farthest}, "none"}})
        EXPECT_EQ(Shown(view::Cell(list.m_hWnd, place)), shown) << border;
    for (const auto& [border, point, shown] :
         Table<CPoint, std::string>{{"a cell", {120, 30}, "3|12|100,24"},
                                    {"a title", {120, 23}, "-1|Value|100,0"},
                                    {"right of the columns", {151, 30}, "none"},
                                    {"right of the titles", {151, 10}, "none"},
                                    {"above the list", {10, -1}, "none"},
                                    {"below the list", {10, 124}, "none"}})
        EXPECT_EQ(Shown(view::CellAt(list.m_hWnd, point)), shown) << border;
    EXPECT_EQ(Shown(view::Cell(parent.m_hWnd, {0, 0})), "none") << "no list";
}

TEST_F(ListReading, ARowThatItsTextSourceRemovesIsNotThere) {
    list.InsertRow(0, ListRow{});
    list.SetTextSource([this](LPARAM, int) { return list.DeleteItem(0), CString("gone"); });
    list.InsertRow(0, ListRow{});
    EXPECT_FALSE(view::Cell(list.m_hWnd, {0, 0}));
    EXPECT_EQ(view::List(list.m_hWnd).rowCount, 11);
}

TEST_F(ListReading, WhatAListThrowsDoesNotReachTheDisplay) {
    int caught = 0;
    SetExceptionHandler([&](const CString&) { ++caught; });
    list.SetTextSource([](LPARAM, int) -> CString { throw std::runtime_error("no text"); });
    list.InsertRow(0, ListRow{});
    EXPECT_FALSE(view::Cell(list.m_hWnd, {0, 0}));
    EXPECT_EQ(caught, 1);
    SetExceptionHandler(nullptr);
}

TEST_F(ListReading, AChosenCellIsTheSelectedOneInView) {
    list.SetFocus();
    Choose(1);
    input::CellChosen(list.m_hWnd, {8, 1});
    EXPECT_EQ(State(), "8|8|4");
    for (const view::CellPlace place : {view::CellPlace{-1, 0}, {10, 0}, {2, 2}, {2, -1}})
        input::CellChosen(list.m_hWnd, place);
    EXPECT_EQ(State(), "8|8|4") << "no such cell";
    EnableWindow(list.m_hWnd, false);
    input::CellChosen(list.m_hWnd, {2, 0});
    EXPECT_EQ(State(), "8|8|4") << "disabled";
    EnableWindow(list.m_hWnd, true);
    parent.on[LVN_ITEMCHANGING] = [](const auto&) { return 1; };
    input::CellChosen(list.m_hWnd, {2, 0});
    EXPECT_EQ(State(), "8|8|4") << "refused";
    input::CellChosen(parent.m_hWnd, {2, 0}); // no list
}

TEST_F(ListReading, ChoosingFollowsTheRowThatAHandlerMoves) {
    parent.on[LVN_ITEMCHANGING] = [this](const NMLISTVIEW&) -> LRESULT {
        parent.on.clear();
        list.InsertItem(0, "new");
        return 0;
    };
    input::CellChosen(list.m_hWnd, {4, 0});
    EXPECT_EQ(State(), "5|5|1");
}

TEST_F(ListReading, TheDisplayIsToldWhichRowsComeAndGo) {
    for (const auto& [border, act, changes] : Table<std::function<void()>, Changes>{
             {"one came", [&] { list.InsertItem(2, "new"); }, {{2, 0, 1}}},
             {"appended", [&] { list.InsertItem(99, "new"); }, {{10, 0, 1}}},
             {"many came",
              [&] {
                  InsertRows(3, {1, 2, 3});
              },
              {{3, 0, 3}}},
             {"none came", [&] { InsertRows(3, {}); }, {}},
             {"many went at once", [&] { DeleteRowsQuietly(2, 5); }, {{2, 3, 0}}},
             {"one by one", [&] { list.DeleteRows(2, 4); }, {{3, 1, 0}, {2, 1, 0}}},
             {"another text", [&] { list.SetItemText(4, 1, "new"); }, {{4, 1, 1}}},
             {"out of sight", [&] { list.SetItemText(9, 1, "new"); }, {{9, 1, 1}}},
             {"selected", [&] { Select(9); }, {{9, 1, 1}}},
             {"while nothing is drawn", [&] { list.SetRedraw(false), list.DeleteRows(0, 1); }, {{0, 1, 0}}},
             {"repainted beyond the rows", [&] { list.RedrawItems(-3, 99); }, {{0, 10, 10}}}}) {
        MakeList(10);
        display.TakeRowChanges(list.m_hWnd);
        list.InsertItem(0, "new"), list.DeleteRows(0, 1);
        view::List(list.m_hWnd);
        EXPECT_TRUE(display.TakeRowChanges(list.m_hWnd).empty()) << "nobody has read a cell";
        view::Cell(list.m_hWnd, {0, 0});
        act();
        EXPECT_TRUE(display.TakeRowChanges(list.m_hWnd) == changes) << border;
    }
}

TEST_F(ListReading, TheRowsAreThoseOfTheListWhenTheDisplayIsTold) {
    struct Follower final : HeadlessDisplay {
        void RowsChanged(HWND list, int, int removed, int inserted) override {
            rows += inserted - removed;
            EXPECT_EQ(view::List(list).rowCount, rows);
        }
        int rows = 0;
    } follower;
    SetDisplay(&follower);
    MakeList(6);
    follower.rows = list.GetItemCount();
    view::Cell(list.m_hWnd, {0, 0});
    list.DeleteRows(1, 3);
    DeleteRowsQuietly(0, 2);
    list.DeleteAllItems();
    EXPECT_EQ(follower.rows, 0);
    list.DestroyWindow();
    SetDisplay(&display);
}

TEST_F(ListReading, TheCellOfARunningLabelEditIsNamed) {
    MakeList(3, LVS_EDITLABELS);
    ASSERT_TRUE(list.EditLabel(1));
    EXPECT_EQ(view::List(list.m_hWnd).edited, (view::CellPlace{1, 0}));
    list.InsertItem(0, "new");
    EXPECT_EQ(view::List(list.m_hWnd).edited, (view::CellPlace{2, 0}));
    list.CancelEditLabel();
    EXPECT_EQ(view::List(list.m_hWnd).edited, std::nullopt);
}

TEST_F(ListReading, ALabelEditMayEndWhileItIsNamed) {
    struct EndingList final : CListCtrl {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            const LRESULT result = CListCtrl::WindowProc(message, wParam, lParam);
            if (message == LVM_KORVEL_READLIST)
                CancelEditLabel();
            return result;
        }
    } ending;
    ending.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_EDITLABELS, {0, 0, 99, 99}, &parent, 7);
    ending.InsertColumn(0, "Name", 50);
    ending.InsertItem(0, "a row");
    ASSERT_TRUE(ending.EditLabel(0));
    EXPECT_EQ(view::NameOf(ending.GetEditControl()), "a row");
    EXPECT_EQ(ending.GetEditControl(), nullptr);
}

} // namespace
} // namespace korvel
