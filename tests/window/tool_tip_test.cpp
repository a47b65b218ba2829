#include "korvel/window/controls/tip_lines.h"
#include "korvel/window/controls/tool_tip_ctrl.h"
#include "korvel/window/core/input.h"
#include "support/recorded_window.h"

#include <array>

namespace korvel {
namespace {

using namespace std::chrono_literals;

class ToolTipTest : public WindowTest {
protected:
    ToolTipTest() {
        frame.Create(WS_VISIBLE, nullptr, 0, {100, 100, 500, 400});
        first.Create(WS_CHILD | WS_VISIBLE, &frame, 1, {0, 0, 100, 20});
        second.Create(WS_CHILD | WS_VISIBLE, &frame, 2, {0, 30, 100, 50});
        tip.Create(&frame);
        tip.AddTool(&first, "first");
        tip.AddTool(&second, "&second && last");
        frame.preTranslate = [this](const MSG& message) {
            MSG relayed = message;
            tip.RelayEvent(&relayed);
            return false;
        };
    }
    std::function<void()> Mouse(CWnd& window, UINT message, CPoint point = {5, 5}) {
        return [=, this, &window] {
            display.MovePointer(ClientToScreen(window.m_hWnd, point));
            input::Mouse(window.m_hWnd, message, 0, point);
        };
    }
    std::function<void()> Move(CWnd& window, CPoint point = {5, 5}) {
        return Mouse(window, WM_MOUSEMOVE, point);
    }
    CString Shown() const { return tip.IsWindowVisible() ? tip.GetWindowTextA() : ""; }

    RecordedWindow frame{"frame", log}, first{"first", log}, second{"second", log};
    CToolTipCtrl tip;
};

TEST_F(ToolTipTest, IsShownWhileThePointerRestsOnItsTool) {
    const auto nothing = [] {};
    const CRect corner{0, 0, 10, 10};
    tip.AddTool(&frame, "corner", &corner, 7);
    first.SetFocus();
    for (const auto& [border, act, wait, text] :
         Table<std::function<void()>, std::chrono::milliseconds, const char*>{
             {"not at once", Move(first), 499ms, ""},
             {"after a time", nothing, 1ms, "first"},
             {"moved on the tool", Move(first, {50, 9}), 10ms, "first"},
             {"on the way to another", [&] { Mouse(first, WM_MOUSELEAVE)(), Move(second)(); }, 99ms, ""},
             {"soon there", nothing, 1ms, "second & last"},
             {"pressed", Mouse(second, WM_LBUTTONDOWN), 60s, ""},
             {"moved after the press", Move(second, {7, 7}), 60s, ""},
             {"left", Mouse(second, WM_MOUSELEAVE), 60s, ""},
             {"back again", Move(second), 500ms, "second & last"},
             {"until it has been read", nothing, 4999ms, "second & last"},
             {"and no longer", nothing, 1ms, ""},
             {"beside the part of a window", Move(frame, {300, 290}), 60s, ""},
             {"in the part of a window", Move(frame, {9, 9}), 500ms, "corner"},
             {"its new text", [&] { tip.UpdateTipText("edge", &frame, 7); }, 0ms, "edge"},
             {"its tool goes", [&] { tip.DelTool(&frame, 7); }, 0ms, ""},
             {"where it was", Move(frame, {8, 8}), 60s, ""},
             {"inactive", [&] { tip.Activate(false), Move(first)(); }, 60s, ""},
             {"active again", [&] { tip.Activate(true), Move(second)(); }, 500ms, "second & last"},
             {"popped", [&] { tip.Pop(); }, 60s, ""},
             {"hidden while it waits", [&] { Move(first)(), first.ShowWindow(SW_HIDE); }, 60s, ""},
             {"with no text", [&] { tip.AddTool(&second, ""), Move(second)(); }, 60s, ""}}) {
        act();
        display.Advance(wait);
        EXPECT_EQ(Shown(), text) << border;
    }
    EXPECT_EQ(tip.GetToolCount(), 2) << "a tool that is added again is the same";
    EXPECT_FALSE(tip.AddTool(nullptr, "of no window"));
    EXPECT_FALSE(tip.AddTool(&first, "a part without a name", &corner));
    EXPECT_FALSE(tip.AddTool(&first, "a name without a part", nullptr, 5));
    second.DestroyWindow();
    tip.AddTool(&frame, "corner", &corner, 7);
    EXPECT_EQ(tip.GetToolCount(), 2) << "those of windows that are gone do not stay";
    frame.DestroyWindow();
    EXPECT_EQ(tip.m_hWnd, nullptr) << "it ends with its parent";
}

TEST_F(ToolTipTest, EachDelayIsItsOwn) {
    const std::array<UINT, 3> all{TTDT_INITIAL, TTDT_RESHOW, TTDT_AUTOPOP};
    for (const auto& [border, which, milliseconds, delays] :
         Table<UINT, int, std::vector<int>>{{"the first", TTDT_INITIAL, 700, {700, 100, 5000}},
                                            {"the next", TTDT_RESHOW, 50, {700, 50, 5000}},
                                            {"the end", TTDT_AUTOPOP, 100000, {700, 50, 32767}},
                                            {"one as it was", TTDT_INITIAL, -1, {500, 50, 32767}},
                                            {"all from one", TTDT_AUTOMATIC, 1000, {1000, 200, 10000}},
                                            {"all as they were", TTDT_AUTOMATIC, -1, {500, 100, 5000}},
                                            {"no such delay", 9, 1, {500, 100, 5000}}}) {
        tip.SetDelayTime(which, milliseconds);
        for (std::size_t i = 0; i < all.size(); ++i)
            EXPECT_EQ(tip.GetDelayTime(all[i]), delays[i]) << border << " " << all[i];
    }
}

TEST_F(ToolTipTest, LiesBelowThePointerWhollyOnItsScreen) {
    display.SetScreens({{0, 0, 1000, 800}, {1000, 0, 2000, 600}});
    tip.AddTool(&first, "0123456789"); // 70 by 16 pixels
    const CSize size{82, 24};
    for (const auto& [border, pointer, corner] :
         Table<CPoint, CPoint>{{"below", {200, 300}, {200, 320}},
                               {"no room on the right", {990, 300}, {918, 320}},
                               {"no room below: above", {200, 790}, {200, 762}},
                               {"on the second screen", {1100, 580}, {1100, 552}},
                               {"on no screen", {-50, -500}, {0, 0}}}) {
        Mouse(first, WM_MOUSELEAVE)();
        Move(first)();
        display.MovePointer(pointer);
        display.Advance(500ms);
        const CRect place{corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
        EXPECT_EQ(tip.GetWindowRect(), place) << border;
    }
}

TEST_F(ToolTipTest, PaintsItsLinesInTheSystemsColors) {
    display.SetColor(COLOR_INFOBK, 0x101010);
    display.SetColor(COLOR_INFOTEXT, 0xE0E0E0);
    EXPECT_EQ(tip.SetMaxTipWidth(60), -1);
    tip.AddTool(&first, "adds an entry");
    Move(first)();
    display.Advance(500ms);
    Log lines;
    for (const PaintCall& call : display.PaintWindow(tip.m_hWnd)) {
        if (call.kind == PaintCall::Kind::Fill)
            EXPECT_EQ(call.color, 0x101010u);
        if (call.kind != PaintCall::Kind::Text)
            continue;
        EXPECT_EQ(call.color, 0xE0E0E0u);
        EXPECT_TRUE(tip.GetClientRect().PtInRect({call.rect.left, call.rect.bottom})) << call.text;
        lines.push_back(call.text);
    }
    EXPECT_THAT(lines, ElementsAre("adds an", "entry"));
}

TEST_F(ToolTipTest, TextsAreBrokenAtBlanks) {
    for (const auto& [border, text, width, lines] :
         Table<const char*, int, Log>{{"it fits", "ab cd", 35, {"ab cd"}},
                                      {"one pixel too narrow", "ab cd", 34, {"ab", "cd"}},
                                      {"a word that is too wide", "a wordword b", 14, {"a", "wordword", "b"}},
                                      {"breaks of the text", "ab\r\n\ncd\n", 99, {"ab", "", "cd"}},
                                      {"nothing", "", 99, {""}}})
        EXPECT_EQ(internal::TipLines(text, width), lines) << border;
}

} // namespace
} // namespace korvel
