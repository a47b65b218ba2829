#pragma once

#include "korvel/events/grid_events.h"
#include "korvel/values/language.h"
#include "korvel/window/display/headless_display.h"
#include "support/event_fixture.h"
#include "support/list_fixture.h"

namespace korvel {

/// An event list of 303 by 124 pixels in English: the header takes 24, a row 20.
class EventListTest : public GermanMachine {
protected:
    void SetUp() override {
        SetLanguageForThisRun("English");
        SetDisplay(&display);
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 300}, nullptr, 0);
        MakeWindow();
        reporter.AddSink(&list);
    }

    // Notices that are sent while the windows end find no test any more.
    void TearDown() override {
        parent.on.clear();
        list.DestroyWindow();
    }

    void MakeWindow() {
        list.Create(WS_CHILD | WS_VISIBLE, {0, 0, 303, 124}, &parent, 105);
        list.CreateHeader();
    }

    CRect RowRect(int row) const {
        CRect rect;
        list.GetItemRect(row, &rect);
        return rect;
    }
    /// What is drawn of a row that can be seen.
    std::vector<PaintCall> CallsOfRow(int row) {
        const CRect rect = RowRect(row);
        auto calls = display.PaintWindow(list.m_hWnd, &rect);
        calls.erase(calls.begin()); // the ground of the whole list
        return calls;
    }
    std::vector<std::string> TextsOfRow(int row) {
        std::vector<std::string> texts;
        for (const PaintCall& call : CallsOfRow(row))
            if (call.kind == PaintCall::Kind::Text)
                texts.push_back(call.text);
        return texts;
    }
    std::vector<std::string> Events() const {
        std::vector<std::string> events(static_cast<std::size_t>(list.GetItemCount()));
        for (std::size_t row = 0; row < events.size(); ++row)
            events[row] = list.GetItemText(static_cast<int>(row), 4);
        return events;
    }

    HeadlessDisplay display;
    ListParent parent;
    TestReporter reporter;
    /// Does at the next WM_SETREDRAW what the test says.
    struct HookedList : CGridEvents {
        std::function<void()> atRedraw;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            const LRESULT result = CGridEvents::WindowProc(message, wParam, lParam);
            if (const auto act = message == WM_SETREDRAW ? std::exchange(atRedraw, nullptr) : nullptr)
                act();
            return result;
        }
    } list;
};

} // namespace korvel
