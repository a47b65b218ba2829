#pragma once

#include "korvel/window/core/input.h"
#include "korvel/window/display/headless_display.h"
#include "support/fakes.h"
#include "support/german_machine.h"
#include "support/picture.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvel {

inline CPoint MiddleOf(const CRect& rect) {
    return {rect.left + rect.Width() / 2, rect.top + rect.Height() / 2};
}

/// A frame with room for a grid of 300 by 224 pixels: the header takes 24, a row 20, so that ten rows are on
/// screen; and two objects of the host to begin with.
class GridWindows {
    std::vector<std::unique_ptr<HostObject>> m_objects;

protected:
    using CTreeItem = CSuperGridCtrl::CTreeItem;

    GridWindows() {
        SetDisplay(&display);
        frame.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
    }
    ~GridWindows() {
        SetDisplay(nullptr);
        for (auto& object : m_objects)
            object->LetGo(); // enumerations of the test that are gone
    }

    void Make(CSuperGridCtrl& grid, UINT style = 0) {
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDRAWFIXED | style,
                    {0, 0, 300, 224}, &frame, 105);
    }
    /// A bare grid with the columns "Name" and "Value", 150 pixels each.
    void MakeBare(CSuperGridCtrl& grid) {
        Make(grid);
        grid.InsertColumn(0, "Name", 150);
        grid.InsertColumn(1, "Value", 150);
    }

    static int Middle(int row) { return 24 + row * 20 + 10; }
    static CPoint Sign(int row, int depth) { return {(depth - 1) * 16 + 8, Middle(row)}; }
    static CPoint Label(int row) { return {100, Middle(row)}; }
    static CPoint Value(int row) { return {200, Middle(row)}; }

    static void Press(CSuperGridCtrl& grid, UINT key) { input::Key(grid.m_hWnd, WM_KEYDOWN, key, ""); }
    static void Click(CSuperGridCtrl& grid, CPoint point, UINT message = WM_LBUTTONDOWN) {
        input::Mouse(grid.m_hWnd, message, MK_LBUTTON, point);
        input::Mouse(grid.m_hWnd, WM_LBUTTONUP, 0, point);
    }
    static void Drag(CSuperGridCtrl& grid, int from, int to) {
        input::Mouse(grid.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, Label(from));
        for (int i = 0; i < 2; ++i)
            input::Mouse(grid.m_hWnd, WM_MOUSEMOVE, MK_LBUTTON, Label(to));
        input::Mouse(grid.m_hWnd, WM_LBUTTONUP, 0, Label(to));
        EXPECT_EQ(GetCapture(), nullptr);
    }
    static void Select(CSuperGridCtrl& grid, int row) {
        grid.SetFocus();
        grid.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    }
    static int SelectedRow(const CSuperGridCtrl& grid) { return grid.GetNextItem(-1, LVNI_SELECTED); }

    static CItemInfo* Info(std::string text, std::vector<std::string> cells = {}) {
        auto* info = new CItemInfo;
        info->text = std::move(text);
        for (auto& cell : cells)
            info->SetSubItem(info->GetSubItemCount(), std::move(cell));
        return info;
    }

    /// A node of a bare grid, under no other one a root.
    static CTreeItem* Add(CSuperGridCtrl& grid, CTreeItem* parent, std::string text,
                          std::vector<std::string> cells = {}, int position = -1) {
        CItemInfo* info = Info(std::move(text), std::move(cells));
        return parent ? grid.AddChildNode(parent, info, 1, &position) : grid.AddRootNode(info, &position);
    }

    /// The rows as text: blanks for the depth, then the cells.
    static std::vector<std::string> Rows(const CSuperGridCtrl& grid) {
        std::vector<std::string> rows;
        for (int row = 0; row < grid.GetItemCount(); ++row) {
            std::string line(static_cast<std::size_t>(grid.GetItemIndent(row) - 1), ' ');
            for (int column = 0; column < grid.GetColumnCount(); ++column)
                line += (column ? "|" : "") + grid.GetItemText(row, column);
            rows.push_back(line);
        }
        return rows;
    }

    /// An object that outlives the grids of the test.
    HostObject& Object(std::string ident = "object") {
        m_objects.push_back(std::make_unique<HostObject>(std::move(ident)));
        return *m_objects.back();
    }

    /// The same in one text, with ";" after each.
    static std::string Text(const CSuperGridCtrl& grid) {
        std::string text;
        for (const std::string& row : Rows(grid))
            text += row + ";";
        return text;
    }

    HeadlessDisplay display;
    CWnd frame;
    HostObject& root = Object("root");
    HostObject& point = Object("point");
};

class GridTest : public testing::Test, protected GridWindows {};

/// A bound grid under German regional settings.
class BoundGridTest : public GermanMachine, protected GridWindows {
protected:
    BoundGridTest() { Make(grid); }

    void Bind(IMemberDispatch& object) { grid.Initialize(&object, "Name", "Value", 0); }
    void BindAndExpand() {
        Bind(root);
        grid.ExpandAll();
        observer.Take();
    }
    IObserverGridSink& SinkOf(IMemberDispatch& object) { return *observer.sinks.at(&object); }

    RecordingObserver observer;
    CEditableGrid grid{&observer, nullptr};
};

} // namespace korvel
