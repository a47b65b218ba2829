#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/headless_display.h"
#include "support/table.h"

#include <functional>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace korvel {

using Codes = std::vector<UINT>;

/// The parent of controls, which keeps their notices.
class ControlParent : public CWnd {
public:
    std::vector<unsigned> senders; // control ids
    Codes codes;

    Codes Take() { return std::exchange(codes, {}); }

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        senders.push_back(LOWORD(wParam));
        codes.push_back(HIWORD(wParam));
        return CWnd::OnCommand(wParam, lParam);
    }
};

class ControlTest : public testing::Test {
protected:
    void SetUp() override {
        SetDisplay(&display);
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 300, 300}, nullptr, 0);
    }

    HeadlessDisplay display;
    ControlParent parent;
};

} // namespace korvel
