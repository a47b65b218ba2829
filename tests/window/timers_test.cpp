#include "korvel/platform/error.h"
#include "support/recorded_window.h"

namespace korvel {
namespace {

using namespace std::chrono_literals;

class TimersTest : public WindowTest {
protected:
    TimersTest() {
        fast.Create(0, nullptr);
        slow.Create(0, nullptr);
        Heard();
    }

    RecordedWindow fast{"fast", log};
    RecordedWindow slow{"slow", log};
};

TEST_F(TimersTest, FireInTheOrderOfTheirTimesAndBeginAnewWhenSetAgain) {
    slow.SetTimer(1, 250);
    fast.SetTimer(1, 100);
    display.Advance(90ms);
    fast.SetTimer(1, 100);
    display.Advance(99ms);
    EXPECT_THAT(Heard(), IsEmpty());
    display.Advance(101ms);
    EXPECT_THAT(Heard(), ElementsAre("fast timer", "slow timer", "fast timer"));
    EXPECT_TRUE(slow.KillTimer(1));
    EXPECT_TRUE(fast.KillTimer(1));
    EXPECT_FALSE(fast.KillTimer(1));
    fast.SetTimer(1, 0); // not without a pause
    display.Advance(20ms);
    EXPECT_THAT(Heard(), ElementsAre("fast timer", "fast timer"));
}

TEST_F(TimersTest, AHandlerMayKillWhatIsDueAtTheSameTime) {
    fast.SetTimer(1, 100);
    fast.SetTimer(2, 100);
    slow.SetTimer(1, 100);
    fast.on[WM_TIMER] = [&] {
        fast.KillTimer(2);
        slow.DestroyWindow(); // which ends its own timers alone
    };
    display.Advance(200ms);
    EXPECT_THAT(Heard(), ElementsAre("fast timer", "slow destroy", "slow end", "fast timer"));
}

TEST_F(TimersTest, GoOnInsideAModalLoopOfTheirHandler) {
    fast.SetTimer(1, 100);
    int ticks = 0;
    fast.on[WM_TIMER] = [&] {
        if (++ticks == 1) {
            display.Then([&] { display.Advance(200ms); });
            display.RunUntil(nullptr, [&] { return ticks == 3; });
        }
    };
    display.Advance(100ms);
    EXPECT_EQ(ticks, 3);
}

TEST_F(TimersTest, AFailureComesOutAndLosesNoTimer) {
    fast.SetTimer(1, 100);
    slow.SetTimer(1, 100);
    fast.on[WM_TIMER] = [] { throw Error("tick"); };
    EXPECT_THROW(display.Advance(150ms), Error);
    EXPECT_EQ(display.Now(), 100ms);
    fast.on.clear();
    display.Advance(50ms);
    EXPECT_THAT(Heard(), ElementsAre("fast timer", "slow timer"));
}

TEST_F(TimersTest, AModalLoopPlaysStepsOnlyWhenIdleAndFailsWithoutOne) {
    PostMessageA(fast.m_hWnd, WM_USER, 0, 0);
    for (const char* step : {"first step", "second step"})
        display.Then([=, this] { log.push_back(step); });
    fast.on[WM_USER] = [&] { PostMessageA(slow.m_hWnd, WM_USER, 0, 0); };
    display.RunUntil(nullptr, [&] { return log.size() == 4; });
    EXPECT_THAT(Heard(), ElementsAre("fast user", "slow user", "first step", "second step"));
    EXPECT_THROW(display.RunUntil(nullptr, [] { return false; }), Error);
    EXPECT_THROW(MessageBoxA(nullptr, "nobody answers", "", MB_OK), Error);
}

TEST_F(TimersTest, PostedMessagesOfADeadWindowAreGoneAndOthersAreNotStarved) {
    PostMessageA(slow.m_hWnd, WM_USER, 0, 0);
    PostMessageA(fast.m_hWnd, WM_USER, 0, 0);
    fast.on[WM_USER] = [&] { PostMessageA(fast.m_hWnd, WM_USER, 0, 0); }; // never idle by itself
    slow.DestroyWindow();
    Heard();
    int looks = 0;
    display.RunUntil(nullptr, [&] { return ++looks > 3; });
    EXPECT_THAT(Heard(), ElementsAre("fast user", "fast user", "fast user"));
    fast.on.clear();
}

} // namespace
} // namespace korvel
