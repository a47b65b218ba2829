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

/// The names of a list's notices, as the tests read them; the others are not logged.
inline std::string NoticeName(UINT code) {
    static const std::map<UINT, std::string> names = {
        {NM_CLICK, "click"},          {NM_DBLCLK, "double click"},
        {NM_RCLICK, "right click"},   {LVN_ITEMCHANGING, "changing"},
        {LVN_ITEMCHANGED, "changed"}, {LVN_INSERTITEM, "insert"},
        {LVN_DELETEITEM, "delete"},   {LVN_DELETEALLITEMS, "delete all"},
        {LVN_BEGINDRAG, "drag"},
    };
    const auto found = names.find(code);
    return found == names.end() ? std::string() : found->second;
}

/// The parent of a list: keeps its notices and returns what the test says.
class ListParent : public CWnd {
public:
    std::vector<std::string> notices; // "name row"
    std::function<LRESULT(const NMLISTVIEW&)> answer;

    std::vector<std::string> Take() { return std::exchange(notices, {}); }

protected:
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const auto& notice = *reinterpret_cast<const NMLISTVIEW*>(lParam);
        if (const auto name = NoticeName(notice.hdr.code); !name.empty())
            notices.push_back(name + " " + std::to_string(notice.iItem));
        if (answer)
            *result = answer(notice);
        return answer != nullptr || CWnd::OnNotify(wParam, lParam, result);
    }
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
        parent.answer = nullptr;
        list.DestroyWindow();
    }

    void MakeList(int rows, UINT style = LVS_SINGLESEL) {
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

    void Press(CPoint point, UINT flags = 0) {
        input::Mouse(list.m_hWnd, WM_LBUTTONDOWN, flags | MK_LBUTTON, point);
    }
    void Choose(int row) { list.SetItemState(row, Both, Both); }
    void Click(CPoint point, UINT flags = 0) {
        Press(point, flags);
        input::Mouse(list.m_hWnd, WM_LBUTTONUP, flags, point);
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

    std::vector<int> Selected() const {
        std::vector<int> rows;
        for (int row = -1; (row = list.GetNextItem(row, LVNI_SELECTED)) != -1;)
            rows.push_back(row);
        return rows;
    }
    int Focused() const { return list.GetNextItem(-1, LVNI_FOCUSED); }

    HeadlessDisplay display;
    ListParent parent;
    CListCtrl list;
};

} // namespace korvel
