#include "korvel/layout/subclass_wnd.h"
#include "korvel/window/core/cwnd.h"
#include "korvel/window/display/headless_display.h"
#include "support/table.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace korvel {
namespace {

constexpr UINT Ping = WM_USER + 1;
std::string heard; // by hooks and windows

LRESULT WindowOfItsOwn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    heard += message == Ping ? "window" : message == WM_NCDESTROY ? "end" : "";
    return message == Ping ? 42 : DefWindowProcA(window, message, wParam, lParam);
}

struct Hook : CSubclassWnd {
    explicit Hook(char letter) : name(letter) {}
    const char name;
    std::function<void()> before, after; // a Ping is passed on

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const auto then = message == Ping ? after : nullptr;
        if (message == Ping || message == WM_NCDESTROY)
            heard += name;
        if (message == Ping && before)
            before();
        const LRESULT result = CSubclassWnd::WindowProc(message, wParam, lParam);
        if (then)
            then();
        return result;
    }
};

class SubclassWndTest : public testing::Test {
protected:
    static HWND MakeWindow() {
        RegisterClassA("HookedWindow", WindowOfItsOwn);
        return CreateWindowExA(0, "HookedWindow", "", 0, {0, 0, 9, 9}, nullptr, 0);
    }
    void SetUp() override { SetDisplay(&display); }
    void TearDown() override { DestroyWindow(window); }

    LPARAM Procedure() const { return GetWindowLongPtrA(window, GWLP_WNDPROC); }
    std::string Send(LRESULT answer = 42) {
        heard.clear();
        EXPECT_EQ(SendMessageA(window, Ping, 0, 0), answer);
        return heard;
    }
    void Set(const std::string& names, HWND hooked) {
        for (const char name : names)
            EXPECT_EQ((name == 'a' ? a : name == 'b' ? b : c).HookWindow(hooked), 1);
    }

    HeadlessDisplay display;
    HWND window = MakeWindow();
    const LPARAM own = Procedure();
    Hook a{'a'}, b{'b'}, c{'c'};
};

TEST_F(SubclassWndTest, HooksLeaveInAnyOrder) {
    std::string order = "abc";
    do {
        std::string chain = "cba"; // the newest first
        Set("abc", window);
        EXPECT_EQ(Send(), "cbawindow");
        for (const char leaving : order) {
            EXPECT_NE(Procedure(), own);
            Set({leaving}, nullptr);
            std::erase(chain, leaving);
            EXPECT_EQ(Send(), chain + "window") << order;
        }
        EXPECT_EQ(Procedure(), own);
        Set("a", nullptr); // is off already
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(SubclassWndTest, HooksThatLeaveWhileAMessagePassesLoseNoneForTheOthers) {
    for (const auto& [leaving, hearing, hearingNext] : // leaving while b handles the message
         Table<const char*, const char*>{{"b", "cbawindow", "cawindow"},
                                         {"ba", "cbwindow", "cwindow"},
                                         {"ab", "cbwindow", "cwindow"},
                                         {"c", "cbawindow", "bawindow"},
                                         {"cba", "cbwindow", "window"}}) {
        Set("abc", window);
        b.before = [&names = leaving, this] { Set(names, nullptr); };
        EXPECT_EQ(Send(), hearing) << leaving;
        b.before = nullptr;
        EXPECT_EQ(Send(), hearingNext) << leaving;
        Set("abc", nullptr);
        EXPECT_EQ(Procedure(), own);
    }
}

TEST_F(SubclassWndTest, HooksAndWindowsMayEndInsideAHook) {
    auto dying = std::make_unique<Hook>('d');
    Set("abc", window);
    dying->HookWindow(window);
    dying->after = [&] { dying.reset(); };
    EXPECT_EQ(Send(), "dcbawindow");
    b.before = [&] { DestroyWindow(window); };
    EXPECT_EQ(Send(0), "cbend"); // no hook hears of the end
    for (const Hook* hook : {&a, &b, &c})
        EXPECT_EQ(hook->GetHookedWindow(), nullptr);
    Set("a", window); // which is no more
    EXPECT_EQ(a.GetHookedWindow(), nullptr);
}

TEST_F(SubclassWndTest, TheCurrentMessageIsTheHookedOneInsideAndTheFormerOneAfter) {
    const HWND outer = MakeWindow();
    WPARAM inside = 0, behind = 0;
    Set("a", window);
    Set("b", outer);
    a.before = [&] { inside = CWnd::GetCurrentMessage().wParam; };
    b.before = [&] { SendMessageA(window, Ping, 1, 2); };
    b.after = [&] { behind = CWnd::GetCurrentMessage().wParam; };
    SendMessageA(outer, Ping, 7, 0);
    EXPECT_EQ(inside, 1u);
    EXPECT_EQ(behind, 7u);
    DestroyWindow(outer);
}

} // namespace
} // namespace korvel
