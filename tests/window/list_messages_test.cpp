#include "korvel/window/display/window_view.h"
#include "support/list_fixture.h"

#include <sstream>

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

    // What the list is, has sent and has to paint.
    std::string Describe() {
        std::ostringstream text;
        for (int row = 0; row < list.GetItemCount(); ++row)
            text << list.GetItemText(row, 0) << '/' << list.GetItemText(row, 1) << ' '
                 << list.GetItemData(row) << ' ' << list.GetItemImage(row) << ' ' << list.GetItemIndent(row)
                 << ' ' << list.GetItemState(row, ~0u) << '\n';
        for (int column = 0; column < list.GetColumnCount(); ++column)
            text << list.GetColumnTitle(column) << ' ' << list.GetColumnWidth(column) << ' ';
        text << "style " << list.GetExtendedStyle() << " mark " << list.GetSelectionMark() << " top "
             << list.GetTopIndex() << '\n';
        for (const std::string& notice : parent.Take())
            text << notice << ", ";
        for (const HWND window : {list.m_hWnd, list.GetHeaderCtrl()->m_hWnd}) {
            const CRect area = display.InvalidArea(window);
            text << "paint " << area.left << ' ' << area.top << ' ' << area.right << ' ' << area.bottom
                 << ' ';
        }
        return text.str();
    }

    char m_text[8] = "new";
};

TEST_F(ListMessages, AMethodAndItsMessageDoTheSame) {
    using Act = std::function<LRESULT()>;
    const auto item = [this](UINT mask, int row, int column = 0, int number = 0) {
        LVITEM made = Item(mask, row, column);
        made.lParam = made.iImage = made.iIndent = number;
        made.state = made.stateMask = LVIS_SELECTED;
        return made;
    };
    const auto send = [this](UINT message, WPARAM wParam, const LVITEM& record) -> Act {
        return [=, this] { return Send(message, wParam, record); };
    };
    const auto column = [this](UINT message, WPARAM number, int width) -> Act {
        LVCOLUMN record;
        record.mask = message == LVM_INSERTCOLUMN ? LVCF_WIDTH | LVCF_TEXT : LVCF_WIDTH;
        record.cx = width;
        record.pszText = m_text;
        return [=, this] { return Send(message, number, record); };
    };
    const auto plain = [this](UINT message, WPARAM wParam, LPARAM lParam = 0) -> Act {
        return [=, this] { return list.SendMessageA(message, wParam, lParam); };
    };
    char nothing[] = "";
    LVITEM empty = item(LVIF_TEXT, 9);
    empty.pszText = nothing;
    LVHITTESTINFO hit;
    hit.pt = InRow(1, 110);
    const auto hits = [&](auto test) -> Act {
        return [=] {
            LVHITTESTINFO found = hit;
            return test(found) + 10 * found.iItem + 100 * found.iSubItem + 1000 * LRESULT{found.flags};
        };
    };
    for (const auto& [border, method, message] : Table<Act, Act>{
             {"a row", [&] { return list.InsertItem(1, "new", 3); },
              send(LVM_INSERTITEM, 0, item(LVIF_TEXT | LVIF_IMAGE, 1, 0, 3))},
             {"a row without text", [&] { return list.InsertItem(9, ""); }, send(LVM_INSERTITEM, 0, empty)},
             {"no row above the first", [&] { return list.InsertItem(-1, "new"); },
              send(LVM_INSERTITEM, 0, item(LVIF_TEXT, -1))},
             {"a selected row goes", [&] { return list.DeleteItem(1); }, plain(LVM_DELETEITEM, 1)},
             {"all go", [&] { return list.DeleteAllItems(); }, plain(LVM_DELETEALLITEMS, 0)},
             {"data", [&] { return list.SetItemData(1, 7); },
              send(LVM_SETITEM, 0, item(LVIF_PARAM, 1, 0, 7))},
             {"image", [&] { return list.SetItemImage(1, 7); },
              send(LVM_SETITEM, 0, item(LVIF_IMAGE, 1, 0, 7))},
             {"indent", [&] { return list.SetItemIndent(1, 2); },
              send(LVM_SETITEM, 0, item(LVIF_INDENT, 1, 0, 2))},
             {"no such row", [&] { return list.SetItemData(9, 7); },
              send(LVM_SETITEM, 0, item(LVIF_PARAM, 9, 0, 7))},
             {"text", [&] { return list.SetItemText(1, 1, "new"); }, send(LVM_SETITEMTEXT, 1, item(0, 0, 1))},
             {"text in a record", [&] { return list.SetItemText(1, 1, "new"); },
              send(LVM_SETITEM, 0, item(LVIF_TEXT, 1, 1))},
             {"no such cell", [&] { return list.SetItemText(1, 2, "new"); },
              send(LVM_SETITEMTEXT, 1, item(0, 0, 2))},
             {"state", [&] { return list.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED); },
              send(LVM_SETITEM, 0, item(LVIF_STATE, 2))},
             {"state of all", [&] { return list.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED); },
              send(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), item(0, 0))},
             {"mark", [&] { return list.SetSelectionMark(2), 1; }, plain(LVM_SETSELECTIONMARK, 0, 2)},
             {"no mark", [&] { return list.SetSelectionMark(9), 1; }, plain(LVM_SETSELECTIONMARK, 0, 9)},
             {"a column", [&] { return list.InsertColumn(1, "new", 30); }, column(LVM_INSERTCOLUMN, 1, 30)},
             {"no column before the first", [&] { return list.InsertColumn(-1, "new", 30); },
              column(LVM_INSERTCOLUMN, static_cast<WPARAM>(-1), 30)},
             {"width", [&] { return list.SetColumnWidth(1, 33); }, column(LVM_SETCOLUMN, 1, 33)},
             {"the width it has", [&] { return list.SetColumnWidth(1, 50); }, column(LVM_SETCOLUMN, 1, 50)},
             {"fitting width", [&] { return list.SetColumnWidth(0, LVSCW_AUTOSIZE); },
              column(LVM_SETCOLUMN, 0, LVSCW_AUTOSIZE)},
             {"fitting width with the title",
              [&] { return list.SetColumnWidth(1, LVSCW_AUTOSIZE_USEHEADER); },
              column(LVM_SETCOLUMN, 1, LVSCW_AUTOSIZE_USEHEADER)},
             {"width of no column", [&] { return list.GetColumnWidth(2); }, plain(LVM_GETCOLUMNWIDTH, 2)},
             {"extended style", [&] { return list.SetExtendedStyle(LVS_EX_GRIDLINES); },
              plain(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_GRIDLINES)},
             {"scrolling", [&] { return list.EnsureVisible(7, false); }, plain(LVM_ENSUREVISIBLE, 7)},
             {"hit", hits([&](LVHITTESTINFO& found) { return list.SubItemHitTest(&found); }),
              hits([&](LVHITTESTINFO& found) { return Send(LVM_SUBITEMHITTEST, 0, found); })}})
        for (const char* situation : {"a list", "with a text source", "of which all is refused"}) {
            std::string outcomes[2];
            for (const bool byMessage : {false, true}) {
                MakeList(8, 0);
                list.SetExtendedStyle(LVS_EX_CHECKBOXES);
                list.SetItemState(1, Both, Both);
                if (situation[0] == 'w')
                    list.SetTextSource([](LPARAM, int) -> CString { return "from elsewhere"; });
                if (situation[0] == 'o')
                    parent.on[LVN_ITEMCHANGING] = [](const NMLISTVIEW&) { return 1; };
                parent.Take();
                for (const HWND window : {list.m_hWnd, list.GetHeaderCtrl()->m_hWnd})
                    display.PaintWindow(window);
                const LRESULT result = byMessage ? message() : method();
                outcomes[byMessage] = std::to_string(result) + "\n" + Describe();
            }
            EXPECT_EQ(outcomes[true], outcomes[false]) << border << ", " << situation;
        }
}

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
             {"inserted beyond", send(LVM_INSERTITEM, 0, Item(LVIF_TEXT, 9)), 3, 3, "new", 0, false},
             {"no insertion of a sub-item", send(LVM_INSERTITEM, 0, Item(LVIF_TEXT, 1, 1)), -1, 1, "row 1", 0,
              false},
             {"no insertion above the first", send(LVM_INSERTITEM, 0, Item(LVIF_TEXT, -1)), -1, 0, "row 0", 0,
              false},
             {"only what the mask says", send(LVM_SETITEM, 0, with(Item(LVIF_PARAM, 1), 7)), 1, 1, "row 1", 7,
              false},
             {"set with its state", send(LVM_SETITEM, 0, with(Item(LVIF_TEXT | LVIF_STATE, 1), 7)), 1, 1,
              "new", 0, true},
             {"a text alone", send(LVM_SETITEMTEXT, 2, Item(0, 0)), 1, 2, "new", 0, false},
             {"no such row", send(LVM_SETITEM, 0, Item(LVIF_TEXT, 3)), 0, 2, "row 2", 0, false},
             {"no such column", send(LVM_SETITEMTEXT, 2, Item(0, 0, 2)), 0, 2, "row 2", 0, false}}) {
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
