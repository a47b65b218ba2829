#include "platform/error.h"
#include "recorded_window.h"
#include "window/input.h"
#include "window/window_view.h"

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

TEST_F(ThreadsTest, SendsRunOnTheOwnersThreadInTheSendersOrder) {
    static std::vector<WPARAM> heard;
    static std::thread::id thread;
    heard.clear();
    RegisterClassA("ThreadsTestClass",
                   [](HWND handle, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
                       if (message != WM_USER)
                           return DefWindowProcA(handle, message, wParam, lParam);
                       heard.push_back(wParam);
                       thread = std::this_thread::get_id();
                       return static_cast<LRESULT>(wParam) * 2;
                   });
    const HWND target = CreateWindowExA(0, "ThreadsTestClass", "", 0, {}, nullptr, 0);
    constexpr WPARAM Count = 500;
    const bool right = InWorker([&] {
        bool doubled = true;
        for (WPARAM i = 0; i < Count; ++i)
            doubled &= korvel::SendMessageA(target, WM_USER, i, 0) == static_cast<LRESULT>(i) * 2;
        return doubled;
    });
    EXPECT_TRUE(right);
    EXPECT_EQ(thread, std::this_thread::get_id());
    ASSERT_EQ(heard.size(), Count);
    EXPECT_TRUE(std::is_sorted(heard.begin(), heard.end()));
    DestroyWindow(target);
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
    const LRESULT answer = InWorker([&, handle = window.m_hWnd] {
        const LRESULT result = korvel::SendMessageA(handle, WM_USER, 0, 0);
        released = true;
        return result;
    });
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(heard, "broken");
    EXPECT_TRUE(releasedFirst);
}

TEST_F(ThreadsTest, WithoutHandlerTheFailureReachesWhoPumps) {
    window.on[WM_USER] = [] { throw Error("broken"); };
    EXPECT_THROW(InWorker([handle = window.m_hWnd] { return korvel::SendMessageA(handle, WM_USER, 0, 0); }),
                 Error);
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
    int id = 0;
    window.on[WM_USER] = [&] { // while the worker waits for the answer
        text = GetWindowTextA(theirs);
        id = GetDlgCtrlID(theirs);
    };
    window.answer[WM_USER] = 4;
    display.PumpUntil([&] { return worker.wait_for(0s) == std::future_status::ready; });
    EXPECT_EQ(worker.get(), 4);
    EXPECT_EQ(text, "worker's");
    EXPECT_EQ(id, 33);
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

TEST_F(ThreadsTest, PostsFromManyThreadsAllArriveOnceInEachOnesOrder) {
    constexpr int Threads = 4;
    constexpr int Each = 250;
    static std::vector<int> last;
    static int wrong;
    last.assign(Threads, -1);
    wrong = 0;
    RegisterClassA("PostsTestClass", [](HWND handle, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message != WM_USER)
            return DefWindowProcA(handle, message, wParam, lParam);
        int& before = last[static_cast<std::size_t>(wParam)];
        wrong += lParam != before + 1;
        before = static_cast<int>(lParam);
        return 0;
    });
    const HWND target = CreateWindowExA(0, "PostsTestClass", "", 0, {}, nullptr, 0);
    std::vector<std::thread> threads;
    for (int number = 0; number < Threads; ++number)
        threads.emplace_back([target, number] {
            for (int i = 0; i < Each; ++i)
                PostMessageA(target, WM_USER, static_cast<WPARAM>(number), i);
        });
    display.PumpUntil(
        [&] { return std::all_of(last.begin(), last.end(), [](int i) { return i == Each - 1; }); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    DestroyWindow(target);
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
