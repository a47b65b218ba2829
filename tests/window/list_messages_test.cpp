#include "korvel/window/display/window_view.h"
#include "support/list_fixture.h"

namespace korvel {
namespace {

class ListMessages : public ListTest {
protected:
    template <class Record>
    LRESULT Send(UINT message, WPARAM wParam, const Record& record) {
        return list.SendMessageA(message, wParam, reinterpret_cast<LPARAM>(&record));
    }
    LVITEM Item(UINT mask, int row, int column = 0) {
        LVITEM item;
        item.mask = mask;
        item.iItem = row;
        item.iSubItem = column;
        item.pszText = m_text;
        item.cchTextMax = sizeof m_text;
        return item;
    }

    char m_text[8] = "new";
};

TEST_F(ListMessages, RowsComeGoAndChangeByRecords) {
    using Act = std::function<LRESULT()>;
    const auto with = [](LVITEM item, LPARAM data) {
        item.lParam = data;
        item.state = item.stateMask = LVIS_SELECTED;
        return item;
    };
    const auto send = [this](UINT message, WPARAM wParam, const LVITEM& item) -> Act {
        return [=, this] { return Send(message, wParam, item); };
    };
    for (const auto& [border, act, answer, row, text, data, isSelected] :
         Table<Act, LRESULT, int, const char*, LPARAM, bool>{
             {"inserted", send(LVM_INSERTITEM, 0, with(Item(LVIF_TEXT | LVIF_PARAM | LVIF_STATE, 1), 7)), 1,
              1, "new", 7, true},
             {"no insertion of a sub-item", send(LVM_INSERTITEM, 0, Item(LVIF_TEXT, 1, 1)), -1, 1, "row 1", 0,
              false},
             {"only what the mask says", send(LVM_SETITEM, 0, with(Item(LVIF_PARAM, 1), 7)), 1, 1, "row 1", 7,
              false},
             {"set with its state", send(LVM_SETITEM, 0, with(Item(LVIF_TEXT | LVIF_STATE, 1), 7)), 1, 1,
              "new", 0, true},
             {"a text alone", send(LVM_SETITEMTEXT, 2, Item(0, 0)), 1, 2, "new", 0, false},
             {"no such row", send(LVM_SETITEM, 0, Item(LVIF_TEXT, 3)), 0, 2, "row 2", 0, false}}) {
        MakeList(3);
        EXPECT_EQ(act(), answer) << border;
        EXPECT_EQ(list.GetItemText(row, 0), text) << border;
        EXPECT_EQ(list.GetItemData(row), data) << border;
        EXPECT_EQ(list.SendMessageA(LVM_GETSELECTEDCOUNT), isSelected) << border;
    }
}

TEST_F(ListMessages, TheStateOfARowThatAHandlerRemovesGoesToNoOther) {
    LVITEM item = Item(LVIF_TEXT | LVIF_STATE, 0);
    item.state = item.stateMask = LVIS_SELECTED;
    const auto removes = [this](const NMLISTVIEW&) { return list.DeleteItem(0), 0; };
    for (const auto& [border, message, notice] : Table<UINT, UINT>{
             {"inserted", LVM_INSERTITEM, LVN_INSERTITEM}, {"changed", LVM_SETITEM, LVN_ITEMCHANGED}}) {
        MakeList(3);
        parent.on[notice] = removes;
        Send(message, 0, item);
        parent.on.erase(notice);
        EXPECT_EQ(list.SendMessageA(LVM_GETSELECTEDCOUNT), 0) << border;
    }
    MakeList(3);
    EXPECT_EQ(Send(LVM_SETITEMSTATE, 1, item), 1) << "the states of the record count alone";
    EXPECT_EQ(list.GetItemState(1, LVIS_SELECTED), LVIS_SELECTED);
}

TEST_F(ListMessages, ARowIsReadAsFarAsItIsAskedFor) {
    MakeList(3);
    list.SetItemData(1, 7);
    list.SetItemText(1, 1, "longer than room");
    list.SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    LVITEM item = Item(LVIF_TEXT | LVIF_STATE, 1, 1);
    item.stateMask = LVIS_SELECTED;
    EXPECT_EQ(Send(LVM_GETITEM, 0, item), 1);
    EXPECT_STREQ(m_text, "longer ");
    EXPECT_EQ(item.state, LVIS_SELECTED);
    EXPECT_EQ(item.lParam, 0) << "the mask leaves it out";
    EXPECT_EQ(Send(LVM_GETITEMTEXT, 1, item), 7);
    item.cchTextMax = 0;
    EXPECT_EQ(Send(LVM_GETITEMTEXT, 1, item), 0);
    item.iItem = 3;
    EXPECT_EQ(Send(LVM_GETITEM, 0, item), 0);
    for (const UINT message : {LVM_INSERTITEM, LVM_GETITEM, LVM_SETITEM, LVM_GETITEMTEXT, LVM_SETITEMTEXT,
                               LVM_INSERTCOLUMN, LVM_SETCOLUMN, LVM_HITTEST, LVM_SUBITEMHITTEST})
        EXPECT_LE(list.SendMessageA(message), 0) << "without a record";
}

TEST_F(ListMessages, ColumnsAndStylesAreSetByTheirMasks) {
    MakeList(1);
    LVCOLUMN column;
    column.mask = LVCF_WIDTH;
    column.cx = 33;
    column.pszText = m_text;
    EXPECT_EQ(Send(LVM_SETCOLUMN, 1, column), 1);
    EXPECT_EQ(Send(LVM_SETCOLUMN, 2, column), 0);
    EXPECT_EQ(std::pair(list.GetColumnTitle(1) == "new", list.GetColumnWidth(1)), std::pair(false, 33));
    column.mask = LVCF_TEXT;
    EXPECT_EQ(Send(LVM_SETCOLUMN, 1, column), 1);
    EXPECT_EQ(std::pair(list.GetColumnTitle(1) == "new", list.GetColumnWidth(1)), std::pair(true, 33));
    EXPECT_EQ(Send(LVM_INSERTCOLUMN, 9, column), 2);
    list.SetExtendedStyle(LVS_EX_GRIDLINES);
    for (const auto& [border, mask, style, result] : Table<UINT, UINT, UINT>{
             {"some bits", LVS_EX_LABELTIP, LVS_EX_LABELTIP, LVS_EX_GRIDLINES | LVS_EX_LABELTIP},
             {"all bits", 0, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT}}) {
        list.SendMessageA(LVM_SETEXTENDEDLISTVIEWSTYLE, mask, style);
        EXPECT_EQ(list.GetExtendedStyle(), result) << border;
    }
}

TEST_F(ListMessages, ADoubleClickAndReturnActivateARow) {
    const auto doubleClick = [this](int y) {
        return [=, this] { input::Mouse(list.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, {20, y}); };
    };
    const auto press = [this] { input::Key(list.m_hWnd, WM_KEYDOWN, VK_RETURN, "\r"); };
    for (const auto& [border, focus, act, activated] :
         Table<int, std::function<void()>, Rows>{{"a row", 0, doubleClick(24 + 20 + 5), {1}},
                                                 {"below the rows", 0, doubleClick(24 + 60 + 5), {}},
                                                 {"Return", 2, press, {2}},
                                                 {"Return without a focused row", -1, press, {}}}) {
        MakeList(3);
        if (focus >= 0)
            list.SetItemState(focus, LVIS_FOCUSED, LVIS_FOCUSED);
        Rows rows;
        parent.on[LVN_ITEMACTIVATE] = [&](const NMLISTVIEW& notice) {
            rows.push_back(notice.iItem);
            return 0;
        };
        act();
        EXPECT_EQ(rows, activated) << border;
    }
    MakeList(3);
    parent.on[NM_DBLCLK] = [this](const NMLISTVIEW&) { return list.DeleteAllItems(); };
    parent.on[LVN_ITEMACTIVATE] = [](const NMLISTVIEW&) -> LRESULT { throw "the row is gone"; };
    doubleClick(49)();
}

TEST_F(ListMessages, ATextThatDoesNotFitIsShownAsATip) {
    MakeList(3);
    list.SetItemText(0, 0, "as wide as it is");
    list.SetItemText(0, 1, "narrower");
    const CPoint inFirst{20, 30};
    const CPoint inSecond{110, 30};
    for (const auto& [border, style, width, point, tip] : Table<UINT, int, CPoint, const char*>{
             {"without the style", 0, 20, inFirst, ""},
             {"cut", LVS_EX_LABELTIP, 100, inFirst, "as wide as it is"},
             {"it fits", LVS_EX_LABELTIP, 190, inFirst, ""},
             {"in another column", LVS_EX_LABELTIP, 100, inSecond, "narrower"},
             {"below the rows", LVS_EX_LABELTIP, 100, {20, 120}, ""}}) {
        list.SetExtendedStyle(style);
        list.SetColumnWidth(0, width);
        EXPECT_EQ(view::Tip(list.m_hWnd, point), tip) << border;
    }
}

TEST_F(ListMessages, ColumnsButTheFirstAreDrawnAsTheirFormatSays) {
    MakeList(1);
    for (const int format : {LVCFMT_LEFT, LVCFMT_RIGHT, LVCFMT_CENTER}) {
        LVCOLUMN column;
        column.mask = LVCF_FMT;
        column.fmt = format;
        for (const WPARAM number : {0, 1})
            Send(LVM_SETCOLUMN, number, column);
        list.SetItemText(0, 1, "b");
        constexpr UINT Alignment = DT_CENTER | DT_RIGHT;
        const UINT expected = format == LVCFMT_CENTER  ? DT_CENTER
                              : format == LVCFMT_RIGHT ? DT_RIGHT
                                                       : DT_LEFT;
        for (const PaintCall& call : display.PaintWindow(list.m_hWnd))
            if (call.kind == PaintCall::Kind::Text)
                EXPECT_EQ(call.format & Alignment, call.text == "b" ? expected : DT_LEFT) << call.text;
    }
}

} // namespace
} // namespace korvel
