#pragma once

#include "korvel/grid/grid_error_reporter.h"
#include "korvel/window/core/input.h"
#include "support/fakes.h"
#include "support/history_log.h"

#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <regex>
#include <utility>

namespace korvel {

/// Counts the calls of the host, and misbehaves at one of them.
struct CallOuts {
    void Count() {
        if (++count == misbehavesAt)
            misbehave();
    }
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
        if (message == WM_GET_IMAGEINDEX || message == WM_NOTIFY)
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
                calls.Count();
            };
            object->refuses = [this] { return std::exchange(isRefusing, false); };
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
        grid->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 224}, &parent, 105);
        grid->ModifyImageStyle(IS_AskParent, 0);
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

    /// Rows and look-up agree, the observer has the sinks of what is shown and no others, and each undoable step
    /// was closed once before the next.
    void ExpectAgreement() {
        static const std::regex steps(R"((\[[^\[\]!]*\]!?)*)");
        EXPECT_TRUE(std::regex_match(parent.log, steps)) << parent.log;
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
