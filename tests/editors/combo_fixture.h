#pragma once

#include "editors/combo_list.h"
#include "editors/grid_ctrl_combo_box_input_states.h"
#include "test_enumeration.h"
#include "values/text_table.h"
#include "window/headless_display.h"
#include "window/input.h"

#include <gtest/gtest.h>
#include <memory>

namespace korvel {

/// Hears what a list tells.
class ListOwner : public CWnd {
public:
    std::vector<int> codes; // signed, as owners read them
    std::function<void(int code)> onCode;
    std::vector<UINT> commands;
    std::function<void(UINT code)> onNotify;

protected:
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        if (onNotify)
            onNotify(reinterpret_cast<const NMHDR*>(lParam)->code);
        return CWnd::OnNotify(wParam, lParam, result);
    }
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        const int code = static_cast<short>(HIWORD(wParam));
        if (code == 0) {
            commands.push_back(LOWORD(wParam));
            return true;
        }
        codes.push_back(code);
        if (onCode)
            onCode(code);
        return CWnd::OnCommand(wParam, lParam);
    }
};

/// The rows of a tree as text: two blanks a level, a group with "+" (closed) or "-" (open) before its label,
/// an entry with "x" when it is checked.
inline std::string RowText(const CComboTreeItem& item, bool isChecked) {
    std::string text(2 * static_cast<std::size_t>(item.GetLevel() - 1), ' ');
    if (item.HasChildren())
        text += item.IsExpanded() ? '-' : '+';
    if (item.IsValue() && isChecked)
        text += 'x';
    return text + item.GetLabel();
}

/// Row numbers, shown items and counts of a list against what a walk over its items gives.
inline void ExpectConsistent(const CComboList& list) {
    struct Walk {
        const CComboList& list;
        int row = 0;
        void Check(const CComboTreeItem& item, bool isShown, int& checked, int& unchecked) {
            int ownChecked = item.IsValue() && ComboTree::IsChecked(item) ? 1 : 0;
            int ownUnchecked = item.IsValue() ? 1 - ownChecked : 0;
            if (item.GetParent()) {
                ASSERT_EQ(item.HasRow(), isShown) << item.GetLabel();
                if (isShown) {
                    ASSERT_EQ(item.GetRow(), row) << item.GetLabel();
                    ASSERT_EQ(list.GetTreeItem(row), &item);
                    ASSERT_EQ(list.GetItemData(row), reinterpret_cast<LPARAM>(&item));
                    ++row;
                }
            }
            for (const CComboTreeItem* child = item.GetFirstChild(); child; child = child->GetNextSibling())
                Check(*child, isShown && item.IsExpanded(), ownChecked, ownUnchecked);
            ASSERT_EQ(item.GetChecked(), ownChecked) << item.GetLabel();
            ASSERT_EQ(item.GetUnchecked(), ownUnchecked) << item.GetLabel();
            checked += ownChecked;
            unchecked += ownUnchecked;
        }
    } walk{list};
    int checked = 0, unchecked = 0;
    walk.Check(list.GetRootItem(), true, checked, unchecked);
    EXPECT_EQ(list.GetItemCount(), walk.row);
}

/// A list of 200 pixels' width in a frame; a row is 20 pixels high. Flat lists and trees have no header.
class ComboTest : public testing::Test {
protected:
    void SetUp() override {
        SetDisplay(&display);
        SetLanguageForThisRun("English");
        frame.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
    }

    CComboList& Make(EComboListMode mode, int rowsOnScreen = 10) {
        list.reset();
        frame.codes.clear();
        list = std::make_unique<CComboList>(mode);
        if (mode == eDropDown) {
            list->CreateDropDown(&frame, 106);
            korvel::SetWindowPos(list->m_hWnd, nullptr, {0, 0, 202, 20 * rowsOnScreen + 2}, SWP_SHOWWINDOW);
        } else {
            list->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 200, 20 * rowsOnScreen}, &frame, 106);
        }
        return *list;
    }
    CComboList& Show(TestEnumeration& shown, EComboListMode mode = eDropDown,
                     const std::string& selection = {}, int rowsOnScreen = 10) {
        Make(mode, rowsOnScreen).Initialize("value", shown.ValueOf(selection));
        return *list;
    }

    std::vector<std::string> Rows() const {
        std::vector<std::string> rows;
        for (int row = 0; row < list->GetItemCount(); ++row) {
            const CComboTreeItem& item = *list->GetTreeItem(row);
            rows.push_back(RowText(item, ComboTree::IsChecked(item)));
        }
        return rows;
    }
    CComboTreeItem* Item(const std::string& label) const {
        for (int row = 0; row < list->GetItemCount(); ++row)
            if (list->GetTreeItem(row)->GetLabel() == label)
                return list->GetTreeItem(row);
        return nullptr;
    }
    std::string Highlighted() const {
        std::string labels;
        for (int row = -1; (row = list->GetNextItem(row, LVNI_SELECTED)) != -1;)
            labels += (labels.empty() ? "" : ",") + list->GetTreeItem(row)->GetLabel();
        return labels;
    }
    std::string Current() const {
        const CComboTreeItem* item = list->GetTreeItem(list->GetCurrentRow());
        return item ? item->GetLabel() : std::string();
    }

    static CPoint InRow(int row, int x = 150) { return {x, 20 * row + 10}; }
    void Mouse(UINT message, CPoint point) { input::Mouse(list->m_hWnd, message, 0, point); }
    void Key(UINT key) { input::Key(list->m_hWnd, WM_KEYDOWN, key, {}); }
    void Type(char letter) { input::Key(list->m_hWnd, WM_KEYDOWN, 0, std::string(1, letter)); }
    std::vector<int> TakeCodes() { return std::exchange(frame.codes, {}); }

    HeadlessDisplay display;
    ListOwner frame;
    std::unique_ptr<CComboList> list;
};

using Strings = std::vector<std::string>;
using Codes = std::vector<int>;

} // namespace korvel
