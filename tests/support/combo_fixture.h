#pragma once

#include "korvel/editors/combo_choice.h"
#include "korvel/editors/combo_list.h"
#include "korvel/editors/combo_names.h"
#include "korvel/values/language.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/headless_display.h"
#include "support/test_enumeration.h"

#include <gtest/gtest.h>
#include <memory>
#include <sstream>

namespace korvel {

using internal::ComboChoice;
using internal::ComboModel;
using internal::ComboNames;
using internal::ComboTree;
using Strings = std::vector<std::string>;

/// Hears what a list tells.
class ListOwner : public CWnd {
public:
    std::string heard; // codes with their sign, commands, "wheel", with blanks between
    std::function<void(int code)> onCode;
    std::function<void(UINT code)> onNotify;
    std::function<bool(const NMLISTVIEW&)> refuses; // a state

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        heard += message == WM_MOUSEWHEEL ? "wheel" : "";
        return CWnd::WindowProc(message, wParam, lParam);
    }
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        if (onNotify)
            onNotify(reinterpret_cast<const NMHDR*>(lParam)->code);
        const auto& notice = *reinterpret_cast<const NMLISTVIEW*>(lParam);
        if (notice.hdr.code == LVN_ITEMCHANGING && refuses && refuses(notice))
            return *result = 1, true;
        return CWnd::OnNotify(wParam, lParam, result);
    }
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        const int code = static_cast<short>(HIWORD(wParam));
        heard +=
            (heard.empty() ? "" : " ") + std::to_string(code != 0 ? code : static_cast<int>(LOWORD(wParam)));
        if (onCode)
            onCode(code);
        return code == 0 || CWnd::OnCommand(wParam, lParam);
    }
};

/// The rows of a tree with a bar between: two blanks a level, "+" (closed) or "-" (open) before what others
/// are under, "x" before a checked entry.
inline std::string RowsOf(const ComboTree& tree) {
    std::string rows;
    for (int row = 0; row < tree.RowCount(); ++row) {
        const ComboTreeItem& item = *tree.ItemAt(row);
        rows += (row > 0 ? "|" : "") + std::string(2 * static_cast<std::size_t>(item.GetLevel() - 1), ' ');
        rows += item.HasChildren() ? item.IsExpanded() ? "-" : "+" : "";
        rows += (item.IsValue() && ComboTree::IsChecked(item) ? "x" : "") + item.GetLabel();
    }
    return rows;
}

/// The checked and unchecked entries at and under an item; what is shown of them goes to `rows`.
inline std::pair<int, int> Recount(const ComboTreeItem& item, bool isShown,
                                   std::vector<const ComboTreeItem*>& rows) {
    const bool isChecked = ComboTree::IsChecked(item);
    std::pair<int, int> counts{item.IsValue() && isChecked, item.IsValue() && !isChecked};
    EXPECT_EQ(item.HasRow(), isShown && item.GetParent()) << item.GetLabel();
    if (item.HasRow())
        rows.push_back(&item);
    for (const ComboTreeItem* child = item.GetFirstChild(); child; child = child->GetNextSibling()) {
        const auto [checked, unchecked] = Recount(*child, isShown && item.IsExpanded(), rows);
        counts.first += checked;
        counts.second += unchecked;
    }
    EXPECT_EQ(std::pair(item.GetChecked(), item.GetUnchecked()), counts) << item.GetLabel();
    return counts;
}

/// The rows of a list and its counts against what a walk over its items gives.
inline void ExpectConsistent(const CComboList& list) {
    std::vector<const ComboTreeItem*> rows;
    Recount(list.GetRootItem(), true, rows);
    ASSERT_EQ(list.GetItemCount(), static_cast<int>(rows.size()));
    const ComboTreeItem* next = list.GetRootItem().GetNext();
    for (int row = 0; row < list.GetItemCount(); ++row) {
        ASSERT_EQ(list.GetTreeItem(row), rows[static_cast<std::size_t>(row)]);
        ASSERT_EQ(list.GetItemData(row), reinterpret_cast<LPARAM>(list.GetTreeItem(row)));
        ASSERT_EQ(list.GetTreeItem(row)->GetRow(), row);
        ASSERT_EQ(std::exchange(next, next->GetNext()), list.GetTreeItem(row));
    }
    ASSERT_EQ(next, nullptr);
}

/// A list that lets its model be seen.
class OpenList : public CComboList {
public:
    using CComboList::CComboList;
    using CComboList::GetModel;
};

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
        frame.heard.clear();
        list = std::make_unique<OpenList>(mode);
        if (mode == eDropDown) {
            list->CreateDropDown(&frame, 106);
            korvel::SetWindowPos(list->m_hWnd, nullptr, {0, 0, 202, 20 * rowsOnScreen + 2}, SWP_SHOWWINDOW);
        } else {
            list->Create(WS_CHILD | WS_VISIBLE, {0, 0, 200, 20 * rowsOnScreen}, &frame, 106);
        }
        return *list;
    }
    CComboList& Show(TestEnumeration& shown, EComboListMode mode = eDropDown,
                     const std::string& selection = {}, int rowsOnScreen = 10) {
        Make(mode, rowsOnScreen).Initialize("value", shown.ValueOf(selection));
        return *list;
    }

    std::string Rows() const { return RowsOf(list->GetModel().Tree()); }
    ComboTreeItem* Item(const std::string& label) const {
        for (int row = 0; row < list->GetItemCount(); ++row)
            if (list->GetTreeItem(row)->GetLabel() == label)
                return list->GetTreeItem(row);
        return nullptr;
    }
    /// The label of the one highlighted row, which is the current one.
    std::string Current() const {
        std::string labels;
        for (int row = -1; (row = list->GetNextItem(row, LVNI_SELECTED)) != -1;)
            labels += (labels.empty() ? "" : ",") + list->GetTreeItem(row)->GetLabel();
        const ComboTreeItem* current = list->GetTreeItem(list->GetCurrentRow());
        EXPECT_EQ(labels, current ? current->GetLabel() : "");
        return labels;
    }
    std::string Heard() { return std::exchange(frame.heard, {}); }

    static CPoint InRow(int row, int x = 150) { return {x, 20 * row + 10}; }
    void Mouse(UINT message, CPoint point) { input::Mouse(list->m_hWnd, message, 0, point); }
    bool Key(UINT key) { return input::Key(list->m_hWnd, WM_KEYDOWN, key, {}); }
    void Type(char letter) { input::Key(list->m_hWnd, WM_KEYDOWN, 0, std::string(1, letter)); }
    void Command(UINT command) { list->SendMessageA(WM_COMMAND, command); }
    /// Acts with commas between: "down", "type st"; "press button g", the corner of a part of the row with
    /// that label, if there is one; "press row 7"; "command 15005".
    void Do(const std::string& acts) {
        std::istringstream all(acts);
        for (std::string act; std::getline(all, act, ',');) {
            std::istringstream words(act);
            std::string verb, part, where;
            words >> verb >> part >> where;
            DoOne(verb, part, where);
        }
    }

    HeadlessDisplay display;
    ListOwner frame;
    std::unique_ptr<OpenList> list;

private:
    void DoOne(const std::string& verb, const std::string& part, const std::string& where) {
        static const std::map<std::string, UINT> keys = {
            {"up", VK_UP},         {"down", VK_DOWN},     {"left", VK_LEFT}, {"right", VK_RIGHT},
            {"space", VK_SPACE},   {"home", VK_HOME},     {"end", VK_END},   {"pageup", VK_PRIOR},
            {"pagedown", VK_NEXT}, {"delete", VK_DELETE}, {"f2", VK_F2}};
        static const std::map<std::string, UINT> messages = {{"press", WM_LBUTTONDOWN},
                                                             {"release", WM_LBUTTONUP},
                                                             {"double", WM_LBUTTONDBLCLK},
                                                             {"menu", WM_RBUTTONDOWN},
                                                             {"move", WM_MOUSEMOVE}};
        if (keys.count(verb) != 0)
            return static_cast<void>(Key(keys.at(verb)));
        if (verb == "command")
            return Command(static_cast<UINT>(std::stoi(part)));
        if (verb == "wheel")
            return input::Mouse(list->m_hWnd, WM_MOUSEWHEEL, 0, {5, 5}, 120), void();
        if (verb == "type")
            return std::for_each(part.begin(), part.end(), [this](char letter) { Type(letter); }), void();
        if (part == "row")
            return Mouse(messages.at(verb), InRow(std::stoi(where)));
        const ComboTreeItem* item = Item(where);
        if (!item)
            return;
        const CRect rect = part == "button"  ? list->GetRectTreeBox(*item)
                           : part == "check" ? list->GetRectCheckBox(*item)
                                             : list->GetRectLabel(*item);
        Mouse(messages.at(verb), {rect.left, rect.top});
    }
};

} // namespace korvel
