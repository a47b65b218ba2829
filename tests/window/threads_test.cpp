#include "korvel/platform/error.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/serve_sends.h"
#include "korvel/window/display/window_view.h"
#include "support/recorded_window.h"

#include <array>
#include <atomic>
#include <future>
#include <thread>

namespace korvel {
namespace {

using namespace std::chrono_literals;

class ThreadsTest : public WindowTest {
protected:
    ThreadsTest() {
        window.Create(WS_VISIBLE, nullptr);
        Heard();
    }

    // Runs `work` in a thread of its own while this one pumps, and returns what it returned.
    template <class Work>
    auto InWorker(Work work) {
        auto result = std::async(std::launch::async, work);
        display.PumpUntil([&] { return result.wait_for(0s) == std::future_status::ready; });
        return result.get();
    }

    RecordedWindow window{"window", log};
};

TEST_F(ThreadsTest, SendsAndPostsRunOnTheOwnersThreadInTheOrderOfEachSender) {
    constexpr int Each = 250;
    struct Counting : CWnd {
        std::array<std::vector<LPARAM>, 4> heard; // by thread
        const std::thread::id owner = std::this_thread::get_id();

        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_USER)
                return CWnd::WindowProc(message, wParam, lParam);
            EXPECT_EQ(std::this_thread::get_id(), owner);
            heard[wParam].push_back(lParam);
            return lParam * 2;
        }
    } target;
    target.CreateEx(0, "KorvelFrame", "", 0, {}, nullptr, 0);
    const auto send = [handle = target.m_hWnd](WPARAM number) {
        for (int i = 0; i < Each; ++i)
            if (number % 2 == 0)
                PostMessageA(handle, WM_USER, number, i);
            else
                EXPECT_EQ(korvel::SendMessageA(handle, WM_USER, number, i), i * 2);
    };
    std::vector<std::future<void>> workers;
    for (WPARAM number = 0; number < target.heard.size(); ++number)
        workers.push_back(std::async(std::launch::async, send, number));
    const auto isComplete = [](const auto& numbers) { return numbers.size() == Each; };
    display.PumpUntil([&] { return std::ranges::all_of(target.heard, isComplete); });
    for (const auto& numbers : target.heard)
        EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
}

TEST_F(ThreadsTest, ASenderIsReleasedWhenTheWindowGoes) {
    std::promise<void> started;
    auto result = std::async(std::launch::async, [&, handle = window.m_hWnd] {
        started.set_value();
        return korvel::SendMessageA(handle, WM_USER, 0, 0);
    });
    started.get_future().wait();
    window.DestroyWindow(); // nothing pumps: the send waits, or finds no window
    EXPECT_EQ(result.get(), 0);
    EXPECT_THAT(Heard(), ElementsAre("window destroy", "window end"));
}

TEST_F(ThreadsTest, ASenderIsReleasedBeforeItsFailureIsHeard) {
    std::promise<LRESULT> answered;
    auto answer = answered.get_future();
    CString heard;
    SetExceptionHandler([&](const CString& text) {
        EXPECT_EQ(answer.wait_for(30s), std::future_status::ready);
        heard = text;
    });
    window.on[WM_USER] = [] { throw Error("broken"); };
    window.answer[WM_USER] = 3;
    const auto send = [handle = window.m_hWnd] { return korvel::SendMessageA(handle, WM_USER, 0, 0); };
    InWorker([&] { answered.set_value(send()); });
    EXPECT_EQ(answer.get(), 0);
    EXPECT_EQ(heard, "broken");
    SetExceptionHandler(nullptr);
    EXPECT_THROW(InWorker(send), Error) << "without handler it reaches who pumps";
}

TEST_F(ThreadsTest, TwoThreadsMaySendToEachOther) {
    CString text;
    window.answer[WM_USER] = 4;
    std::atomic<HWND> theirs = nullptr;
    window.on[WM_USER] = [&] { text = GetWindowTextA(theirs); }; // while the worker waits for the answer
    EXPECT_EQ(InWorker([&, handle = window.m_hWnd] {
                  theirs = CreateWindowExA(0, "KorvelFrame", "worker's", 0, {}, nullptr, 33);
                  return korvel::SendMessageA(handle, WM_USER, 0, 0);
              }),
              4);
    EXPECT_EQ(text, "worker's");
}

TEST_F(ThreadsTest, WhoWaitsForAThreadServesItsSendsAndNothingElse) {
    window.on[WM_USER] = [&] { throw Error("broken"); };
    PostMessageA(window.m_hWnd, WM_CLOSE, 0, 0);
    auto worker = std::async(
        std::launch::async,
        [handle = window.m_hWnd] {
            korvel::SendMessageA(handle, WM_USER, 0, 0);
            SetWindowTextA(handle, "last words");
        });
    const auto hasEnded = [&] { return worker.wait_for(0s) == std::future_status::ready; };
    ServeSendsUntil(hasEnded);
    EXPECT_EQ(window.GetWindowTextA(), "last words");
    EXPECT_THAT(Heard(), ElementsAre("window user"));
    EXPECT_THROW(ServeSendsUntil([]() -> bool { throw Error("tired"); }), Error);
    SetExceptionHandler([](const CString&) {});
    input::DispatchMessages();
    EXPECT_THAT(Heard(), ElementsAre("window close", "window destroy", "window end"));
}

TEST_F(ThreadsTest, EveryWindowFunctionBecomesAMessage) {
    display.SetColor(COLOR_WINDOW, RGB(1, 2, 3));
    display.AnswerNext(IDOK);
    const HWND child = InWorker([&, handle = window.m_hWnd] {
        SetWindowTextA(handle, "from a worker");
        MoveWindow(handle, {0, 0, 70, 80});
        SetTimer(handle, 5, 100);
        SetFocus(handle);
        EXPECT_EQ(GetFocus(), nullptr) << "the focus is the display's thread's";
        EXPECT_EQ(GetClientRect(handle), (CRect{0, 0, 70, 80}));
        EXPECT_EQ(GetSysColor(COLOR_WINDOW), RGB(1, 2, 3));
        EXPECT_EQ(MessageBoxA(handle, "text", "caption", MB_OK), IDOK);
        return CreateWindowExA(0, "KorvelFrame", "", WS_CHILD, {}, handle, 12);
    });
    EXPECT_EQ(window.GetWindowTextA(), "from a worker");
    EXPECT_EQ(GetFocus(), window.m_hWnd);
    EXPECT_EQ(GetDlgItem(window.m_hWnd, 12), child);
    Heard();
    display.Advance(100ms);
    EXPECT_THAT(Heard(), ElementsAre("window timer"));
    EXPECT_TRUE(view::BelongsToDisplay(child));
}

TEST_F(ThreadsTest, AThreadThatEndsTakesItsWindowsAlong) {
    CWnd orphan;
    HWND left = nullptr;
    std::thread([&] {
        orphan.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {}, nullptr, 0);
        left = orphan.m_hWnd;
        PostMessageA(left, WM_USER, 0, 0);
    }).join();
    EXPECT_NE(left, nullptr);
    EXPECT_EQ(orphan.m_hWnd, nullptr);
    EXPECT_FALSE(IsWindow(left));
    EXPECT_EQ(korvel::SendMessageA(left, WM_USER, 0, 0), 0);
    EXPECT_FALSE(PostMessageA(left, WM_USER, 0, 0));
}

TEST_F(ThreadsTest, ADisplayOfAnotherThreadShowsNoWindowOfThisOne) {
    struct ListeningDisplay : HeadlessDisplay {
        std::vector<HWND> created;
        void Created(HWND handle) override { created.push_back(handle); }
    } other;
    SetFocus(window.m_hWnd);
    SetCapture(window.m_hWnd);
    SetTimer(window.m_hWnd, 5, 100);
    std::thread([&] {
        SetDisplay(&other);
        EXPECT_EQ(GetFocus(), nullptr);
        EXPECT_EQ(GetCapture(), nullptr);
        other.Advance(1s);
    }).join();
    EXPECT_THAT(other.created, IsEmpty());
    EXPECT_FALSE(view::BelongsToDisplay(window.m_hWnd));
    EXPECT_EQ(SetTimer(window.m_hWnd, 6, 100), 0u);
    Heard();
    SetDisplay(&display);
    EXPECT_EQ(display.FocusShown(), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
    display.Advance(1s);
    EXPECT_THAT(Heard(), IsEmpty()) << "the timer went with its display";
    SetFocus(window.m_hWnd);
    EXPECT_THAT(Heard(), ElementsAre("window focus"));
}

TEST_F(ThreadsTest, OnlyTheDisplayInForceHearsAndOnlyOfItsThread) {
    struct ListeningDisplay : HeadlessDisplay {
        int wakes = 0;
        std::vector<HWND> created;
        void Wake() override { ++wakes; }
        void Created(HWND handle) override { created.push_back(handle); }
    } former, next;
    SetDisplay(&former);
    SetDisplay(&next);
    const HWND owned = CreateWindowExA(0, "KorvelFrame", "", WS_POPUP, {}, window.m_hWnd, 0);
    const HWND other = CreateWindowExA(0, "KorvelFrame", "", 0, {}, nullptr, 0);
    next.created.clear();
    SetDisplay(&next);
    EXPECT_THAT(next.created, ElementsAre(window.m_hWnd, owned, other)) << "owners before whom they own";
    former.wakes = next.wakes = 0;
    SetCapture(window.m_hWnd);
    PostMessageA(window.m_hWnd, WM_USER, 0, 0);
    std::thread([] {
        const HWND own = CreateWindowExA(0, "KorvelFrame", "", WS_VISIBLE, {}, nullptr, 0);
        EXPECT_EQ(SetTimer(own, 1, 100), 0u);
        EXPECT_EQ(SetCapture(own), nullptr);
        EXPECT_EQ(SetFocus(own), nullptr);
        EXPECT_FALSE(view::BelongsToDisplay(own));
        EXPECT_EQ(ClientToScreen(own, {1, 2}), (CPoint{1, 2}));
        PostMessageA(own, WM_CLOSE, 0, 0);
        input::DispatchMessages();
        EXPECT_FALSE(IsWindow(own)) << "a thread pumps for its own windows";
    }).join();
    EXPECT_EQ(former.wakes, 0);
    EXPECT_EQ(next.wakes, 1);
    EXPECT_THAT(next.created, SizeIs(3));
    EXPECT_EQ(GetCapture(), window.m_hWnd);
}

} // namespace
} // namespace korvel
