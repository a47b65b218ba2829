#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/headless_display.h"
#include "support/table.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

namespace korvel {

using Codes = std::vector<UINT>;

/// The parent of controls, which keeps their commands, and does at one what the test says.
class ControlParent : public CWnd {
public:
    std::vector<unsigned> senders; // control ids
    Codes codes;
    std::map<UINT, std::function<void()>> on;

    Codes Take() { return std::exchange(codes, {}); }
    void FailOn(UINT code) {
        on = {{code, [] { throw std::runtime_error("full"); }}};
    }

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        senders.push_back(LOWORD(wParam));
        Hear(HIWORD(wParam));
        return CWnd::OnCommand(wParam, lParam);
    }
    void Hear(UINT code) {
        codes.push_back(code);
        if (const auto handler = on.find(code); handler != on.end())
            handler->second();
    }
};

/// Keeps their notices among the commands.
class NoticeParent : public ControlParent {
public:
    bool refuses = false; // what a notice asks

protected:
    bool OnNotify(WPARAM, LPARAM lParam, LRESULT* result) override {
        *result = refuses;
        Hear(reinterpret_cast<const NMHDR*>(lParam)->code);
        return true;
    }
};

template <class Parent>
class ControlTestOf : public testing::Test {
protected:
    void SetUp() override {
        SetDisplay(&display);
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 300, 300}, nullptr, 0);
    }

    HeadlessDisplay display;
    Parent parent;
};

using ControlTest = ControlTestOf<ControlParent>;

} // namespace korvel
