#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/headless_display.h"
#include "korvel/window/list/list_ctrl.h"
#include "korvel/window/list/model_rows.h"
#include "support/table.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace korvel {

using Notices = std::vector<std::string>;
using Rows = std::vector<int>;

/// The parent of a list: keeps its notices, and does at a notice what the test says.
class ListParent : public CWnd {
public:
    Notices notices; // "name row"
    std::map<UINT, std::function<LRESULT(const NMLISTVIEW&)>> on;

    Notices Take() { return std::exchange(notices, {}); }

protected:
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const auto& notice = *reinterpret_cast<const NMLISTVIEW*>(lParam);
        if (const auto name = Names.find(notice.hdr.code); name != Names.end())
            notices.push_back(name->second + std::to_string(notice.iItem));
        const auto handler = on.find(notice.hdr.code);
        if (handler == on.end())
            return CWnd::OnNotify(wParam, lParam, result);
        const auto handle = handler->second; // it may take itself away
        *result = handle(notice);
        return true;
    }

private:
    inline static const std::map<UINT, std::string> Names = {
        {NM_CLICK, "click "},          {NM_DBLCLK, "double click "},
        {NM_RCLICK, "right click "},   {LVN_ITEMCHANGING, "changing "},
        {LVN_ITEMCHANGED, "changed "}, {LVN_INSERTITEM, "insert "},
        {LVN_DELETEITEM, "delete "},   {LVN_DELETEALLITEMS, "delete all "},
        {LVN_BEGINDRAG, "drag "},
    };
};

/// A list of 200 by 124 pixels with rows "row 0" and so on: the header takes 24, a row 20, so that five
/// rows are on screen. Column 0 is 100 pixels wide, column 1 is 50.
class ListTest : public testing::Test {
protected:
    void SetUp() override {
        SetDisplay(&display);
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 300, 300}, nullptr, 0);
    }

    // Notices that are sent while the windows end find no test any more.
    void TearDown() override {
        parent.on.clear();
        list.DestroyWindow();
    }

    /// Instead of the list before it, with whose handlers it begins anew.
    void MakeList(int rows, UINT style = LVS_SINGLESEL) {
        parent.on.clear();
        list.DestroyWindow();
        list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | style, {0, 0, 200, 124}, &parent, 105);
        list.InsertColumn(0, "Name", 100);
        list.InsertColumn(1, "Value", 50);
        for (int row = 0; row < rows; ++row)
            list.InsertItem(row, "row " + std::to_string(row));
        parent.notices.clear();
    }

    int InsertRows(int row, const std::vector<LPARAM>& data, int indent = 0) {
        return internal::InsertModelRows(list.m_hWnd, row, data.data(), static_cast<int>(data.size()),
                                         indent);
    }
    bool DeleteRowsQuietly(int first, int last) {
        return internal::DeleteModelRows(list.m_hWnd, first, last);
    }

    static constexpr UINT Both = LVIS_SELECTED | LVIS_FOCUSED;
    static int RowTop(int row) { return 24 + row * 20; }
    static CPoint InRow(int row, int x = 30) { return {x, RowTop(row) + 10}; }

    void Select(int row) { list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED); }
    void Choose(int row) { list.SetItemState(row, Both, Both); }
    void Mouse(UINT message, CPoint point, UINT flags = 0) {
        input::Mouse(list.m_hWnd, message, flags, point);
    }
    void Press(CPoint point, UINT flags = 0) { Mouse(WM_LBUTTONDOWN, point, flags | MK_LBUTTON); }
    void Click(CPoint point, UINT flags = 0) {
        Press(point, flags);
        Mouse(WM_LBUTTONUP, point, flags);
    }
    void Key(UINT key, const CString& characters = {}) {
        input::Key(list.m_hWnd, WM_KEYDOWN, key, characters);
        input::Key(list.m_hWnd, WM_KEYUP, key, {});
    }
    void KeyWith(UINT modifier, UINT key) {
        display.PressKey(modifier, true);
        Key(key);
        display.PressKey(modifier, false);
    }

    Rows Selected() const {
        Rows rows;
        for (int row = -1; (row = list.GetNextItem(row, LVNI_SELECTED)) != -1;)
            rows.push_back(row);
        return rows;
    }
    std::string Labels() const {
        std::string labels;
        for (int row = 0; row < list.GetItemCount(); ++row)
            labels += (row > 0 ? "," : "") + list.GetItemText(row, 0);
        return labels;
    }
    /// "1,2|2|0": the selected rows, the one with the focus, the top one.
    std::string State() const {
        std::string state;
        for (const int row : Selected())
            state += (state.empty() ? "" : ",") + std::to_string(row);
        return state + "|" + std::to_string(Focused()) + "|" + std::to_string(list.GetTopIndex());
    }
    int Focused() const { return list.GetNextItem(-1, LVNI_FOCUSED); }

    HeadlessDisplay display;
    ListParent parent;
    CListCtrl list;
};

} // namespace korvel
