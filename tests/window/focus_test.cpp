#include "korvel/platform/error.h"
#include "korvel/window/core/input.h"
#include "support/recorded_window.h"

namespace korvel {
namespace {

class FocusTest : public WindowTest {
protected:
    FocusTest() {
        constexpr UINT Shown = WS_CHILD | WS_VISIBLE;
        frame.Create(WS_VISIBLE, nullptr);
        group.Create(Shown, &frame);
        first.Create(Shown, &group);
        second.Create(Shown, &frame);
        first.SetFocus();
        Heard();
    }

    RecordedWindow frame{"frame", log};
    RecordedWindow group{"group", log};
    RecordedWindow first{"first", log};
    RecordedWindow second{"second", log};
};

TEST_F(FocusTest, TellsTheDisplayBeforeTheLoserAndTheLoserBeforeTheWinner) {
    HWND shownAtLoss = nullptr;
    first.on[WM_KILLFOCUS] = [&] { shownAtLoss = display.FocusShown(); };
    EXPECT_EQ(second.SetFocus(), first.m_hWnd);
    EXPECT_EQ(shownAtLoss, second.m_hWnd);
    EXPECT_THAT(Heard(), ElementsAre("first no focus", "second focus"));
    second.SetFocus();
    EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(FocusTest, StopsWhenItIsMovedOn) {
    struct CommittingDisplay : HeadlessDisplay {
        std::function<void()> commit = [] {};
        void Focus(HWND window) override {
            HeadlessDisplay::Focus(window);
            std::exchange(commit, [] {})();
        }
    } committing;
    SetDisplay(&committing);
    for (const auto& [border, byDisplay, winner] :
         Table<bool, RecordedWindow*>{{"by the loser", false, &group},
                                      {"by the loser, who holds it back", false, &first},
                                      {"by the display, which commits an input", true, &group}}) {
        first.on.clear();
        first.SetFocus();
        Heard();
        const auto moveOn = [next = winner] { next->SetFocus(); };
        (byDisplay ? committing.commit : first.on[WM_KILLFOCUS]) = moveOn;
        second.SetFocus();
        EXPECT_EQ(GetFocus(), winner->m_hWnd) << border;
        EXPECT_EQ(committing.FocusShown(), winner->m_hWnd) << border;
        EXPECT_THAT(Heard(), ElementsAre("first no focus", winner == &first ? "first focus" : "group focus"));
    }
}

TEST_F(FocusTest, LeavesWhileTheWindowStillCountsAsVisible) {
    for (const auto& [border, act, heir] : Table<std::function<void()>, HWND>{
             {"hidden", [this] { first.ShowWindow(SW_HIDE); }, group.m_hWnd},
             {"its parent hidden", [this] { group.ShowWindow(SW_HIDE); }, frame.m_hWnd},
             {"disabled", [this] { first.EnableWindow(false); }, nullptr},
             {"its parent disabled", [this] { group.EnableWindow(false); }, nullptr},
             {"its top-level window hidden", [this] { frame.ShowWindow(SW_HIDE); }, nullptr},
             {"destroyed", [this] { first.DestroyWindow(); }, group.m_hWnd}}) {
        bool visible = false;
        first.on[WM_KILLFOCUS] = [&] { visible = first.IsWindowVisible(); };
        act();
        EXPECT_TRUE(visible) << border;
        EXPECT_EQ(GetFocus(), heir) << border;
        for (RecordedWindow* window : {&frame, &group, &first})
            window->EnableWindow(true), window->ShowWindow(SW_SHOW);
        first.SetFocus();
    }
}

TEST_F(FocusTest, IsLostByItsWindowThoughAnotherHasGone) {
    second.DestroyWindow();
    group.SetFocus();
    EXPECT_THAT(Heard(), Contains("first no focus"));
}

TEST_F(FocusTest, FollowsTheDisplayButNotWhereInputIsDropped) {
    input::FocusMoved(second.m_hWnd);
    input::FocusMoved(nullptr);
    EXPECT_THAT(Heard(), ElementsAre("first no focus", "second focus", "second no focus"));
    frame.EnableWindow(false);
    Heard();
    EXPECT_EQ(second.SetFocus(), nullptr);
    input::FocusMoved(second.m_hWnd);
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(FocusTest, ComesBackFromABox) {
    display.AnswerNext(IDYES);
    EXPECT_EQ(MessageBoxA(frame.m_hWnd, "Erase?", "Korvel", MB_YESNO), IDYES);
    EXPECT_THAT(Heard(), ElementsAre("first no focus", "first focus"));
    EXPECT_THROW(MessageBoxA(frame.m_hWnd, "nobody answers", "Korvel", MB_OK), Error);
    EXPECT_EQ(GetFocus(), first.m_hWnd);
    first.on[WM_KILLFOCUS] = [&] { first.DestroyWindow(); };
    display.AnswerNext(IDNO);
    MessageBoxA(frame.m_hWnd, "Erase?", "Korvel", MB_YESNO);
    EXPECT_EQ(GetFocus(), nullptr) << "who had it is gone";
}

TEST_F(FocusTest, CaptureEndsWithItsWindow) {
    SetCapture(first.m_hWnd);
    SetCapture(second.m_hWnd);
    EXPECT_THAT(Heard(), ElementsAre("first capture lost"));
    second.ShowWindow(SW_HIDE);
    EXPECT_EQ(GetCapture(), nullptr);
    SetCapture(first.m_hWnd);
    group.EnableWindow(false);
    EXPECT_EQ(GetCapture(), nullptr);
    SetCapture(frame.m_hWnd);
    first.DestroyWindow();
    EXPECT_EQ(GetCapture(), frame.m_hWnd) << "another's end";
    frame.DestroyWindow();
    EXPECT_EQ(GetCapture(), nullptr);
}

} // namespace
} // namespace korvel
