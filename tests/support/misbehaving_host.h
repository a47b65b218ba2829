#pragma once

#include "korvel/grid/grid_error_reporter.h"
#include "korvel/window/core/input.h"
#include "support/fakes.h"
#include "support/file_chooser.h"
#include "support/history_log.h"

#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <regex>
#include <utility>

namespace korvel {

/// Counts the calls of the host, and misbehaves at one of them.
struct CallOuts {
    /// `operation` where it is an object's: "set length ".
    void Count(std::string operation = {}) {
        present = std::move(operation);
        if (++count == misbehavesAt)
            misbehave();
    }
    std::string present; // call
    int count = 0;
    int misbehavesAt = 0;
    std::function<void()> misbehave;
    bool isOver = false; // the binding has ended
};

/// Counts what its control asks and says.
struct CountingParent : HistoryParent {
    CountingParent() {
        onStep = [this](UINT, WPARAM) { calls.Count(); };
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_GET_IMAGEINDEX || message == WM_NOTIFY ||
            (message == WM_COMMAND && HIWORD(wParam) == GridCopied))
            calls.Count();
        return HistoryParent::WindowProc(message, wParam, lParam);
    }
    CallOuts calls;
};

/// Counts the failures that the user is told.
struct CountingReporter : IGridErrorReporter {
    explicit CountingReporter(CallOuts& calls) : m_calls(calls) {}
    void Report(const std::string&, const std::string&) override { m_calls.Count(); }

private:
    CallOuts& m_calls;
};

/// A grid with two nested objects, one of them with a presentation, and a further one to be added.
struct MisbehavingHost {
    MisbehavingHost() {
        for (HostObject* object : {&inner, &added, &shaped, &point, &root, &late, &below}) {
            object->onCall = [this, object] {
                EXPECT_FALSE(calls.isOver) << "an object is called after its binding has ended";
                EXPECT_FALSE(isUserActing && object == gone) << "an object is called after its row is gone";
                calls.Count(std::exchange(traced, {}));
            };
            object->refuses = [this] {
                if (isRefusing)
                    NoteFailure();
                return std::exchange(isRefusing, false);
            };
            object->calls = &traced;
            object->memberFlags = MF_Delete | MF_Rename | MF_WriteProtect;
        }
        observer.answers = true;
        parent.log.reserve(10000); // so that it is written also when memory runs out
        observer.onCall = [this] { calls.Count(); };
        enumeration.onCall = [this](const std::string& operation, long) {
            if (operation == "presentation")
                EXPECT_FALSE(calls.isOver) << "a presentation is asked after its binding has ended";
            calls.Count();
        };
        shaped.m_pEnumValue = &enumeration;
        point.With("x", Number(DT_Double, 1)).With("list", list);
        shaped.With("y", Number(DT_Double, 2));
        inner.With("z", Number(DT_Double, 3));
        added.With("inner", Group(&inner)).With("last", Flag(true));
        below.With("w", Flag(true));
        late.With("y", Flag(true)).With("below", Group(&below));
        root.SetOptions(0);
        root.With("length", Number(DT_Double, 4)).With("on", Flag(true));
        root.With("p", Group(&point)).With("q", Group(&shaped));
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
        grid.emplace(&observer, nullptr);
        grid->onCall = [this] { calls.Count(); };
        grid->m_pErrorReporter = &reporter;
        for (const EGridOption noBox : {EGridOption::InlineErrors, EGridOption::QuietCopy})
            grid->SetGridOption(noBox, true);
        grid->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 224}, &parent, 105);
        grid->ModifyImageStyle(IS_AskParent, 0);
    }
    /// Shows a member for each kind of write from a cell.
    void ShowCells() {
        path.EnumContext = &file;
        file.onCall = [this](const auto&) { calls.Count(); };
        root.With("list", list).With("color", Word(DT_ColorRGB, 0xFF0000FF)).With("path", path);
        root.With("date", MakeDate("GDT_VALID", 44000)).With("dice", Word(DT_RandomUInt, 500));
        root.With("button", Number(EDataTyps(DT_Double | TypeBitButton), 1));
        grid->editsCells = true;
    }
    void Bind() { grid->Initialize(&root, "Name", "Value", 0); }
    void RemovePoint() { grid->OnOperationRemove(&root, "p", Group(&point)); }
    /// Begins what a user does to a member.
    void SelectRowOf(IMemberDispatch* disp, const std::string& name) {
        isUserActing = true;
        grid->ExpandAll();
        grid->SetFocus();
        grid->SetItemState(grid->RowOfNode(grid->LookupTreeItem(disp, name)), LVIS_SELECTED | LVIS_FOCUSED,
                           LVIS_SELECTED | LVIS_FOCUSED);
    }
    void TypeLabel(const char* text) {
        grid->OnRenameAttribut_V1();
        const HWND edit = grid->GetEditControl();
        SetWindowTextA(edit, text);
        input::Key(edit, WM_KEYDOWN, VK_RETURN, "\r");
    }

    /// Into the left or right end of a value cell. False when the grid is gone.
    bool ClickCell(const std::string& name, bool atRight = false) {
        if (!grid || !grid->m_hWnd)
            return false;
        isUserActing = true;
        grid->SetFocus();
        const CRect cell = grid->GetSubItemRect(grid->RowOfNode(grid->LookupTreeItem(&root, name)), 1);
        input::Mouse(grid->m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON,
                     {atRight ? cell.right - 4 : cell.left + 4, (cell.top + cell.bottom) / 2});
        return grid && grid->m_hWnd;
    }
    /// The present call fails. Where it is a write within a step, that is to be rolled back.
    void NoteFailure() {
        const std::string name = calls.present.substr(0, calls.present.find(' '));
        const std::size_t open = parent.log.rfind('[');
        const bool isOpen = open != std::string::npos && parent.log.find(']', open) == std::string::npos;
        if (isOpen && (name == "set" || name == "rename" || name == "retype"))
            failedStep = open;
    }

    /// Rows and look-up agree, the observer has the sinks of what is shown and no others, and each undoable
    /// step was closed once before the next.
    void ExpectAgreement() {
        static const std::regex steps(R"((\[[^\[\]!]*\]!?)*)");
        EXPECT_TRUE(std::regex_match(parent.log, steps)) << parent.log;
        if (failedStep)
            EXPECT_EQ(parent.log.substr(parent.log.find(']', *failedStep), 2), "]!") << parent.log;
        std::size_t groups = 0;
        for (CSuperGridCtrl::CTreeItem* node : grid->rootItems())
            ExpectFiled(node, groups);
        for (const auto& [disp, sink] : observer.sinks) {
            const bool isRoot = disp == grid->GetRootDisp();
            EXPECT_TRUE(isRoot || grid->LookupTreeItem(disp)) << "no row of " << disp->GetIdent();
        }
        EXPECT_LE(observer.sinks.size(), groups + 1);
        if (!grid->GetRootDisp()) {
            EXPECT_EQ(grid->rootItems().size(), 0);
            EXPECT_EQ(grid->GetColumnCount(), 0);
            EXPECT_EQ(observer.sinks.size(), 0u);
        }
    }

    CountingParent parent;
    CallOuts& calls = parent.calls;
    CountingReporter reporter{calls};
    bool isRefusing = false;          // the next call that can be refused is
    const HostObject* gone = nullptr; // has no row any more
    bool isUserActing = false;
    std::string traced;                    // of an object that is about to be counted
    std::optional<std::size_t> failedStep; // where it begins in the log of the parent
    FileChooser file;
    CVariantValue path = Words(DT_FileName, "a.xml");
    HostEnumeration enumeration;
    const CVariantValue list = enumeration.ListOf(DT_ListString, Words(DT_String, "one"));
    HostObject inner{"inner"}, added{"added"}, shaped{"shaped"}, point{"point"}, root{"root"}, late{"late"},
        below{"below"};
    RecordingObserver observer;
    std::optional<HostGrid> grid;

private:
    void ExpectFiled(CSuperGridCtrl::CTreeItem* node, std::size_t& groups) {
        const std::string& name = node->info->text;
        IMemberDispatch* owner = node->parent() ? node->parent()->info->disp : grid->GetRootDisp();
        EXPECT_EQ(grid->LookupTreeItem(owner, name), node) << name;
        if (node->info->disp) {
            ++groups;
            const std::string& cell = node->info->GetSubItem(2);
            if (node->info->disp == &point && !cell.empty())
                EXPECT_TRUE(grid->LookupTreeItem(&point, grid->GetColumn(3))) << cell;
            EXPECT_TRUE(node->children().empty() || grid->LookupTreeItem(node->info->disp) == node) << name;
        }
        for (CSuperGridCtrl::CTreeItem* child : node->children())
            ExpectFiled(child, groups);
    }
};

} // namespace korvel
