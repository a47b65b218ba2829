#include "platform/error.h"
#include "recorded_window.h"
#include "window/input.h"
#include "window/window_view.h"

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

    /// Runs `work` in a thread of its own while this one pumps, and answers what it answered.
    template <class Work>
    auto InWorker(Work work) {
        auto result = std::async(std::launch::async, work);
        display.PumpUntil([&] { return result.wait_for(0s) == std::future_status::ready; });
        return result.get();
    }

    RecordedWindow window{"window", log};
};

TEST_F(ThreadsTest, SendsAndPostsRunOnTheOwnersThreadInTheOrderOfEachSender) {
    constexpr int Threads = 4;
    constexpr int Each = 250;
    struct Counting : CWnd {
        std::array<std::vector<LPARAM>, Threads> heard;
        bool onOtherThread = false;
        const std::thread::id owner = std::this_thread::get_id();

        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_USER)
                return CWnd::WindowProc(message, wParam, lParam);
            heard[wParam].push_back(lParam);
            onOtherThread |= std::this_thread::get_id() != owner;
            return lParam * 2;
        }
    } target;
    target.CreateEx(0, "KorvelFrame", "", 0, {}, nullptr, 0);
    const auto work = [](HWND handle, WPARAM number) {
        int wrong = 0;
        for (int i = 0; i < Each; ++i)
            if (number % 2 == 0)
                PostMessageA(handle, WM_USER, number, i);
            else
                wrong += korvel::SendMessageA(handle, WM_USER, number, i) != i * 2;
        return wrong;
    };
    std::vector<std::future<int>> workers;
    for (WPARAM number = 0; number < Threads; ++number)
        workers.push_back(std::async(std::launch::async, work, target.m_hWnd, number));
    display.PumpUntil([&] {
        return std::all_of(target.heard.begin(), target.heard.end(),
                           [](const auto& numbers) { return numbers.size() == Each; });
    });
    for (std::future<int>& worker : workers)
        EXPECT_EQ(worker.get(), 0) << "answers went astray";
    for (const auto& numbers : target.heard)
        EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    EXPECT_FALSE(target.onOtherThread);
}

TEST_F(ThreadsTest, ASenderIsReleasedWhenTheWindowGoes) {
    std::atomic<bool> started = false;
    auto result = std::async(std::launch::async, [&, handle = window.m_hWnd] {
        started = true;
        return korvel::SendMessageA(handle, WM_USER, 0, 0);
    });
    while (!started)
        std::this_thread::yield();
    window.DestroyWindow(); // nothing pumps: the send waits, or finds no window
    EXPECT_EQ(result.get(), 0);
    EXPECT_THAT(Heard(), ElementsAre("window destroy", "window end"));
}

TEST_F(ThreadsTest, ASenderIsReleasedBeforeItsFailureIsHeard) {
    std::atomic<bool> released = false;
    bool releasedFirst = false;
    CString heard;
    SetExceptionHandler([&](const CString& text) {
        const auto end = std::chrono::steady_clock::now() + 30s;
        while (!released && std::chrono::steady_clock::now() < end)
            std::this_thread::yield();
        releasedFirst = released;
        heard = text;
    });
    window.on[WM_USER] = [] { throw Error("broken"); };
    window.answer[WM_USER] = 3;
    const auto send = [&, handle = window.m_hWnd] {
        const LRESULT result = korvel::SendMessageA(handle, WM_USER, 0, 0);
        released = true;
        return result;
    };
    EXPECT_EQ(InWorker(send), 0);
    EXPECT_EQ(heard, "broken");
    EXPECT_TRUE(releasedFirst);
    SetExceptionHandler(nullptr);
    EXPECT_THROW(InWorker(send), Error) << "without handler it reaches who pumps";
}

TEST_F(ThreadsTest, TwoThreadsMaySendToEachOther) {
    std::promise<HWND> made;
    auto worker = std::async(std::launch::async, [&, handle = window.m_hWnd] {
        const HWND own = CreateWindowExA(0, "KorvelFrame", "worker's", 0, {}, nullptr, 33);
        made.set_value(own);
        const LRESULT answer = korvel::SendMessageA(handle, WM_USER, 0, 0);
        DestroyWindow(own);
        return answer;
    });
    const HWND theirs = made.get_future().get();
    CString text;
    window.on[WM_USER] = [&] { text = GetWindowTextA(theirs); }; // while the worker waits for the answer
    window.answer[WM_USER] = 4;
    display.PumpUntil([&] { return worker.wait_for(0s) == std::future_status::ready; });
    EXPECT_EQ(worker.get(), 4);
    EXPECT_EQ(text, "worker's");
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

TEST_F(ThreadsTest, AWindowOfAnotherThreadIsNotShown) {
    struct ListeningDisplay : HeadlessDisplay {
        std::vector<HWND> created;
        void Created(HWND handle) override { created.push_back(handle); }
    } listening;
    SetDisplay(&listening);
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
    EXPECT_THAT(listening.created, ElementsAre(window.m_hWnd));
}

} // namespace
} // namespace korvel
