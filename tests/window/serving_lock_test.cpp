#include "korvel/platform/error.h"
#include "korvel/window/core/serve_sends.h"
#include "korvel/window/core/serving_lock.h"
#include "support/recorded_window.h"

#include <atomic>
#include <future>
#include <mutex>

namespace korvel {
namespace {

using namespace std::chrono_literals;
using internal::ServingLock;

class ServingLockTest : public WindowTest {
protected:
    ServingLockTest() {
        window.Create(WS_VISIBLE, nullptr);
        Heard();
    }

    /// Has a worker hold the lock, and there do `work`, while this thread waits for the lock.
    void WaitForWorker(std::function<void()> work) {
        std::promise<void> holds;
        auto worker = std::async(std::launch::async, [&] {
            const std::lock_guard own(lock);
            holds.set_value();
            work();
        });
        holds.get_future().wait();
        const std::lock_guard own(lock);
        log.push_back("has the lock");
    }
    LRESULT Send() { return korvel::SendMessageA(window.m_hWnd, WM_USER, 0, 0); }
    void TakeAndLeave() { const std::lock_guard own(lock); }

    RecordedWindow window{"window", log};
    ServingLock lock;
};

TEST_F(ServingLockTest, WhoWaitsRunsWhatIsSentAndNothingElse) {
    PostMessageA(window.m_hWnd, WM_CLOSE, 0, 0);
    window.SetTimer(1, 10);
    display.Then([] { ADD_FAILURE() << "no input is taken"; });
    WaitForWorker([&] { Send(), Send(); });
    EXPECT_THAT(Heard(), ElementsAre("window user", "window user", "has the lock"));
}

TEST_F(ServingLockTest, WhatTheHolderHasSentGetsTheLock) {
    window.on[WM_USER] = [&] { TakeAndLeave(), TakeAndLeave(); };
    WaitForWorker([&] { Send(), TakeAndLeave(); });
    EXPECT_THAT(Heard(), ElementsAre("window user", "has the lock"));
}

TEST_F(ServingLockTest, WhatASendOfTheHolderSendsOnGetsTheLock) {
    std::promise<HWND> made;
    std::atomic<bool> mayEnd = false;
    auto third = std::async(std::launch::async, [&] {
        RecordedWindow own("third", log);
        own.Create(0, nullptr);
        own.on[WM_USER] = [&] { TakeAndLeave(); };
        made.set_value(own.m_hWnd);
        ServeSendsUntil([&] { return mayEnd.load(); });
    });
    const HWND other = made.get_future().get();
    Heard();
    window.on[WM_USER] = [&] { korvel::SendMessageA(other, WM_USER, 0, 0); };
    WaitForWorker([&] { Send(); });
    mayEnd = true;
    third.get();
    EXPECT_THAT(Heard(), Contains("third user"));
}

// A window of the holder hears a third thread, while what the holder has sent is in the lock.
TEST_F(ServingLockTest, TheHoldersOwnThreadWaitsForWhatItHasSent) {
    std::promise<void> isInside;
    std::promise<void> mayLeave;
    window.on[WM_USER] = [&] {
        const std::lock_guard own(lock);
        log.push_back("in");
        isInside.set_value();
        mayLeave.get_future().wait();
        log.push_back("out");
    };
    std::promise<HWND> made;
    auto third = std::async(
        std::launch::async,
        [&] {
            const HWND holders = made.get_future().get();
            isInside.get_future().wait();
            korvel::SendMessageA(holders, WM_USER, 0, 0);
        });
    WaitForWorker([&] {
        struct Taking : CWnd {
            std::function<void()> take;
            LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
                if (message == WM_USER)
                    take();
                return CWnd::WindowProc(message, wParam, lParam);
            }
        } own;
        own.CreateEx(0, "KorvelFrame", "", 0, {}, nullptr, 0);
        own.take = [&] {
            mayLeave.set_value();
            const std::lock_guard again(lock);
            log.push_back("taken");
        };
        made.set_value(own.m_hWnd);
        Send();
        ServeSendsUntil([&] { return third.wait_for(0s) == std::future_status::ready; });
    });
    EXPECT_THAT(Heard(), ElementsAre("window user", "in", "out", "taken", "has the lock"));
}

TEST_F(ServingLockTest, AFailureOfASendEndsNoWait) {
    CString heard;
    SetExceptionHandler([&](const CString& text) { heard = text; });
    window.on[WM_USER] = [] { throw Error("broken"); };
    WaitForWorker([&] { Send(); });
    EXPECT_EQ(heard, "broken");
    EXPECT_THAT(Heard(), ElementsAre("window user", "has the lock"));
}

} // namespace
} // namespace korvel
