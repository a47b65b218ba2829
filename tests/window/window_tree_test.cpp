#include "korvel/platform/error.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/window_view.h"
#include "support/recorded_window.h"

#include <limits>
#include <memory>
#include <stdexcept>

namespace korvel {
namespace {

constexpr UINT OnlyOrder = SWP_NOMOVE | SWP_NOSIZE;

using WindowTreeTest = WindowTest;

TEST_F(WindowTreeTest, HearsItsCreationBeforeItIsShownAndMayRefuseIt) {
    RecordedWindow frame("frame", log), refused("refused", log);
    frame.on[WM_CREATE] = [&] { EXPECT_FALSE(frame.IsWindowVisible()); };
    ASSERT_TRUE(frame.Create(WS_VISIBLE, nullptr));
    EXPECT_TRUE(frame.IsWindowVisible());
    EXPECT_THAT(Heard(), ElementsAre("frame create", "frame size", "frame move", "frame show 1"));
    refused.answer[WM_CREATE] = -1;
    EXPECT_FALSE(refused.Create(0, nullptr));
    EXPECT_EQ(refused.m_hWnd, nullptr);
    EXPECT_THAT(Heard(), ElementsAre("refused create", "refused destroy", "refused end"));
    const HWND gone = frame.m_hWnd;
    frame.DestroyWindow();
    RegisterClassA("NoProcedure", nullptr);
    RegisterClassA(nullptr, DefWindowProcA);
    for (const auto& [border, className, style, parent] :
         Table<const char*, UINT, HWND>{{"no such class", "NoSuchClass", 0, nullptr},
                                        {"no class", nullptr, 0, nullptr},
                                        {"a class without a procedure", "NoProcedure", 0, nullptr},
                                        {"a child of nobody", "KorvelFrame", WS_CHILD, nullptr},
                                        {"a child of who is gone", "KorvelFrame", WS_CHILD, gone}})
        EXPECT_EQ(CreateWindowExA(0, className, "", style, {}, parent, 0), nullptr) << border;
}

TEST_F(WindowTreeTest, DestroysFromTheRootAndEndsFromTheLeaves) {
    RecordedWindow frame("frame", log), left("left", log), leaf("leaf", log), right("right", log);
    RecordedWindow owned("owned", log);
    frame.Create(0, nullptr);
    left.Create(WS_CHILD, &frame);
    leaf.Create(WS_CHILD, &left);
    right.Create(WS_CHILD, &frame);
    owned.Create(WS_POPUP, &leaf);
    EXPECT_EQ(GetOwner(owned.m_hWnd), frame.m_hWnd) << "owners are top-level windows";
    Heard();
    EXPECT_TRUE(frame.DestroyWindow());
    EXPECT_THAT(Heard(),
                ElementsAre("owned destroy", "owned end", "frame destroy", "left destroy", "leaf destroy",
                            "right destroy", "leaf end", "left end", "right end", "frame end"));
    EXPECT_EQ(leaf.m_hWnd, nullptr);
}

TEST_F(WindowTreeTest, AHandlerOfAnEndMayEndSiblings) {
    RecordedWindow frame("frame", log), left("left", log), right("right", log);
    frame.Create(0, nullptr);
    left.Create(WS_CHILD, &frame);
    right.Create(WS_CHILD, &frame);
    left.on[WM_DESTROY] = [&] { right.DestroyWindow(); };
    Heard();
    frame.DestroyWindow();
    EXPECT_THAT(Heard(), ElementsAre("frame destroy", "left destroy", "right destroy", "right end",
                                     "left end", "frame end"));
}

TEST_F(WindowTreeTest, AStaleHandleReachesNoOtherWindow) {
    const HWND stale = CreateWindowExA(0, "KorvelFrame", "old", 0, {}, nullptr, 0);
    DestroyWindow(stale);
    RecordedWindow next("next", log); // takes the place of the window that is gone
    next.Create(WS_VISIBLE, nullptr, 7);
    Heard();
    EXPECT_FALSE(IsWindow(stale));
    EXPECT_FALSE(PostMessageA(stale, WM_USER, 0, 0));
    EXPECT_FALSE(SetWindowTextA(stale, "lost"));
    EXPECT_FALSE(DestroyWindow(stale));
    EXPECT_FALSE(ShowWindow(stale, SW_HIDE));
    EXPECT_FALSE(SetFocus(stale));
    EXPECT_EQ(SendMessageA(stale, WM_USER, 0, 0), 0);
    EXPECT_EQ(SetTimer(stale, 1, 10), 0u);
    EXPECT_EQ(GetDlgCtrlID(stale), 0);
    EXPECT_EQ(GetWindowRect(stale), CRect());
    EXPECT_EQ(SetParent(next.m_hWnd, stale), nullptr);
    display.Advance(std::chrono::seconds(1));
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(next.GetWindowTextA(), "next");
}

TEST_F(WindowTreeTest, AWindowMayDieInsideItsOwnHandlers) {
    RecordedWindow frame("frame", log);
    frame.Create(WS_VISIBLE, nullptr);
    for (const UINT message : {WM_USER, WM_SIZE, WM_SHOWWINDOW, WM_KILLFOCUS, WM_DESTROY, WM_NCDESTROY}) {
        auto window = std::make_unique<RecordedWindow>("window", log);
        window->Create(WS_CHILD | WS_VISIBLE, &frame);
        window->SetFocus();
        const HWND handle = window->m_hWnd;
        window->on[message] = [&window, handle] {
            DestroyWindow(handle);
            window.reset();
        };
        SendMessageA(handle, WM_USER, 0, 0);
        MoveWindow(handle, {1, 2, 300, 400});
        DestroyWindow(handle); // hides it first, which takes the focus away
        EXPECT_FALSE(IsWindow(handle)) << message;
        EXPECT_EQ(window, nullptr) << message;
    }
}

TEST_F(WindowTreeTest, AHandlerThatThrowsOrDestroysTheParentLeavesNoWindow) {
    for (const bool throws : {false, true}) {
        RecordedWindow frame("frame", log), child("child", log);
        frame.Create(0, nullptr);
        child.Create(WS_CHILD, &frame);
        child.on[WM_DESTROY] = [&] { throws ? throw Error("first") : frame.DestroyWindow(); };
        child.on[WM_NCDESTROY] = [&] { throws ? throw Error("second") : false; };
        CString failure;
        try {
            (throws ? frame : child).DestroyWindow();
        } catch (const Error& error) {
            failure = error.what();
        }
        EXPECT_EQ(failure, throws ? "first" : "");
        EXPECT_EQ(frame.m_hWnd, nullptr);
        EXPECT_EQ(child.m_hWnd, nullptr);
    }
}

TEST_F(WindowTreeTest, AnObjectThatDiesHandsItsFailureToTheNextPump) {
    {
        RecordedWindow frame("frame", log);
        frame.Create(0, nullptr);
        korvel::SetWindowLongPtrA(
            frame.m_hWnd, GWLP_WNDPROC,
            reinterpret_cast<LPARAM>(+[](HWND, UINT, WPARAM, LPARAM) -> LRESULT { throw Error("late"); }));
    }
    EXPECT_THROW(display.Advance(std::chrono::milliseconds(0)), Error);
    EXPECT_NO_THROW(display.Advance(std::chrono::milliseconds(0)));
}

TEST_F(WindowTreeTest, TurnsPointsThroughBordersAndParents) {
    RecordedWindow frame("frame", log);
    frame.Create(WS_OVERLAPPEDWINDOW, nullptr, 0, {100, 200, 500, 600});
    const HWND edged = CreateWindowExA(WS_EX_CLIENTEDGE, "KorvelFrame", "", WS_CHILD | WS_BORDER,
                                       {10, 20, 110, 70}, frame.m_hWnd, 0);
    const HWND inner = CreateWindowExA(0, "KorvelFrame", "", WS_CHILD, {5, 5, 25, 15}, edged, 0);
    EXPECT_EQ(GetClientRect(frame.m_hWnd), (CRect{0, 0, 400, 400})) << "the caption is the desktop's";
    EXPECT_EQ(GetClientRect(edged), (CRect{0, 0, 94, 44}));
    EXPECT_EQ(GetWindowRect(inner), (CRect{118, 228, 138, 238}));
    EXPECT_EQ(ScreenToClient(inner, {120, 230}), (CPoint{2, 2}));
    constexpr int Least = std::numeric_limits<int>::min();
    constexpr int Most = std::numeric_limits<int>::max();
    frame.MoveWindow({Least, Least, Most, Most});
    frame.MoveWindow({Most, Most, Least, Least});
    EXPECT_TRUE(frame.GetClientRect().IsRectEmpty());
    SetWindowPos(frame.m_hWnd, nullptr, {Most, Most, 0, 0}, SWP_NOSIZE);
    EXPECT_EQ(ClientToScreen(inner, {Most, Most}), (CPoint{Most, Most}));
    EXPECT_EQ(ScreenToClient(inner, {Least, Least}), (CPoint{Least, Least}));
}

TEST_F(WindowTreeTest, RefusesToHangAWindowBelowItself) {
    RecordedWindow frame("frame", log), child("child", log), other("other", log), owned("owned", log);
    frame.Create(0, nullptr);
    child.Create(WS_CHILD, &frame);
    owned.Create(WS_POPUP, &frame);
    other.Create(0, nullptr);
    EXPECT_EQ(SetParent(frame.m_hWnd, child.m_hWnd), nullptr);
    EXPECT_EQ(SetParent(frame.m_hWnd, owned.m_hWnd), nullptr) << "each would take the other along";
    EXPECT_EQ(GetParent(frame.m_hWnd), nullptr);
    EXPECT_EQ(SetParent(child.m_hWnd, other.m_hWnd), frame.m_hWnd);
    EXPECT_TRUE(IsChild(other.m_hWnd, child.m_hWnd));
    EXPECT_EQ(GetFirstChild(frame.m_hWnd), nullptr);
    SetParent(owned.m_hWnd, other.m_hWnd);
    frame.DestroyWindow();
    EXPECT_TRUE(IsWindow(owned.m_hWnd)) << "a parent takes the place of the owner";
}

TEST_F(WindowTreeTest, TellsOnlyWhatMovesAndTheDisplayOnceWhenRedrawIsOnAgain) {
    RecordedWindow frame("frame", log);
    frame.Create(0, nullptr, 0, {0, 0, 100, 50});
    Heard();
    frame.MoveWindow({0, 0, 100, 50});
    EXPECT_THAT(Heard(), IsEmpty());
    frame.MoveWindow({5, 0, 105, 50});
    EXPECT_THAT(Heard(), ElementsAre("frame placed", "frame move"));
    SetWindowPos(frame.m_hWnd, nullptr, {0, 0, 20, 30}, SWP_NOMOVE);
    EXPECT_THAT(Heard(), ElementsAre("frame placed", "frame size"));
    EXPECT_EQ(frame.GetWindowRect(), (CRect{5, 0, 25, 30}));
    EXPECT_EQ(display.PaintWindow(frame.m_hWnd).size(), 1u) << "the background";
    display.TakeChanges(frame.m_hWnd);
    frame.SetRedraw(false);
    frame.SetWindowTextA("changed");
    frame.Invalidate();
    EXPECT_EQ(display.TakeChanges(frame.m_hWnd), Aspects());
    EXPECT_FALSE(display.IsInvalid(frame.m_hWnd));
    frame.SetRedraw(true);
    EXPECT_EQ(display.TakeChanges(frame.m_hWnd), Aspect::Text);
    EXPECT_TRUE(display.IsInvalid(frame.m_hWnd));
}

TEST_F(WindowTreeTest, AHandlerThatFailsKeepsNothingOfAnActBack) {
    RecordedWindow frame("frame", log), child("child", log);
    frame.Create(WS_VISIBLE, nullptr);
    child.Create(WS_CHILD | WS_VISIBLE, &frame);
    const HWND window = child.m_hWnd;
    const auto place = [window](CRect rect, UINT flags) {
        return [=] { SetWindowPos(window, HWND_TOP, rect, flags); };
    };
    const auto show = [window](int how) { return [=] { ShowWindow(window, how); }; };
    const auto disable = [window] { EnableWindow(window, false); };
    const Log placed{"child placed", "child move", "child size"};
    const Log placedAndHidden{"child placed", "child size", "child no focus", "frame focus", "child show 0"};
    for (const auto& [border, fails, act, heard] : Table<UINT, std::function<void()>, Log>{
             {"placed", WM_WINDOWPOSCHANGED, place({1, 1, 9, 9}, 0), placed},
             {"moved", WM_MOVE, place({2, 1, 9, 9}, 0), placed},
             {"hidden by its place", WM_SIZE, place({2, 1, 8, 8}, SWP_HIDEWINDOW), placedAndHidden},
             {"shown", WM_SHOWWINDOW, show(SW_SHOW), {"child show 1"}},
             {"hidden", WM_KILLFOCUS, show(SW_HIDE), {"child no focus", "child show 0"}},
             {"shown again", WM_SHOWWINDOW, show(SW_SHOW), {"child show 1"}},
             {"disabled", WM_KILLFOCUS, disable, {"child no focus", "child enable 0"}}}) {
        child.SetFocus();
        Heard();
        child.on[fails] = [] { throw std::runtime_error("full"); };
        EXPECT_THROW(act(), std::runtime_error) << border;
        child.on.clear();
        EXPECT_EQ(Heard(), heard) << border;
        EXPECT_EQ(IsWindowVisible(window), !std::string(border).starts_with("hidden")) << border;
    }
    EXPECT_FALSE(IsWindowEnabled(window));
}

TEST_F(WindowTreeTest, SiblingsLieInTheOrderThatTheyAreGiven) {
    RecordedWindow frame("frame", log);
    frame.Create(0, nullptr);
    RecordedWindow a("a", log), b("b", log), c("c", log);
    for (RecordedWindow* child : {&a, &b, &c})
        child->Create(WS_CHILD, &frame);
    const auto put = [&](CWnd& window, HWND after, UINT flags = OnlyOrder) {
        return [&window, after, flags] { SetWindowPos(window.m_hWnd, after, {}, flags); };
    };
    for (const auto& [border, act, first, second, third] : Table<std::function<void()>, HWND, HWND, HWND>{
             {"at first", [] {}, a.m_hWnd, b.m_hWnd, c.m_hWnd},
             {"to the top", [&] { BringWindowToTop(c.m_hWnd); }, c.m_hWnd, a.m_hWnd, b.m_hWnd},
             {"to the bottom", put(c, HWND_BOTTOM), a.m_hWnd, b.m_hWnd, c.m_hWnd},
             {"after a later one", put(a, b.m_hWnd), b.m_hWnd, a.m_hWnd, c.m_hWnd},
             {"after an earlier one", put(c, b.m_hWnd), b.m_hWnd, c.m_hWnd, a.m_hWnd},
             {"where it is already", put(c, b.m_hWnd), b.m_hWnd, c.m_hWnd, a.m_hWnd},
             {"after itself", put(c, c.m_hWnd), b.m_hWnd, c.m_hWnd, a.m_hWnd},
             {"after no sibling", put(c, frame.m_hWnd), b.m_hWnd, c.m_hWnd, a.m_hWnd},
             {"with its order kept", put(a, HWND_TOP, OnlyOrder | SWP_NOZORDER), b.m_hWnd, c.m_hWnd,
              a.m_hWnd}}) {
        display.TakeChanges(c.m_hWnd);
        act();
        EXPECT_EQ(view::Children(frame.m_hWnd), (std::vector<HWND>{first, second, third})) << border;
        const bool told = std::string(border) == "to the bottom";
        EXPECT_TRUE(!told || (display.TakeChanges(c.m_hWnd) & Aspect::Order)) << border;
    }
}

TEST_F(WindowTreeTest, OnlyTopLevelWindowsAreKeptOnTop) {
    RecordedWindow frame("frame", log), other("other", log), child("child", log);
    frame.Create(0, nullptr);
    other.Create(WS_CHILD, &frame);
    child.Create(WS_CHILD, &frame);
    const Aspects order = Aspect::Order, both = Aspect::Order | Aspect::Style;
    for (const auto& [border, window, after, isTopmost, told] :
         Table<CWnd*, HWND, bool, Aspects>{{"to the front", &frame, HWND_TOP, false, order},
                                           {"on top", &frame, HWND_TOPMOST, true, both},
                                           {"on top again", &frame, HWND_TOPMOST, true, order},
                                           {"to the front of those on top", &frame, HWND_TOP, true, order},
                                           {"as others", &frame, HWND_NOTOPMOST, false, both},
                                           {"as others already", &frame, HWND_NOTOPMOST, false, {}},
                                           {"on top once more", &frame, HWND_TOPMOST, true, both},
                                           {"to the bottom", &frame, HWND_BOTTOM, false, Aspect::Style},
                                           {"a child", &child, HWND_TOPMOST, false, order},
                                           {"a child as others", &other, HWND_NOTOPMOST, false, {}}}) {
        display.TakeChanges(window->m_hWnd);
        window->SetWindowPos(after, {}, OnlyOrder);
        EXPECT_EQ((view::ExStyle(window->m_hWnd) & WS_EX_TOPMOST) != 0, isTopmost) << border;
        EXPECT_EQ(display.TakeChanges(window->m_hWnd), told) << border;
    }
    EXPECT_EQ(view::Children(frame.m_hWnd), (std::vector<HWND>{child.m_hWnd, other.m_hWnd}));
}

TEST_F(WindowTreeTest, AWindowThatIsSizedIsAskedForItsLimits) {
    struct Limited : CWnd {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_GETMINMAXINFO)
                *reinterpret_cast<MINMAXINFO*>(lParam) = {{200, 100}, {300, 50}};
            return CWnd::WindowProc(message, wParam, lParam);
        }
    };
    for (const auto& [border, style, size, limited] : Table<UINT, CSize, CSize>{
             {"too small", WS_OVERLAPPEDWINDOW, {10, 10}, {200, 100}},
             {"too large; the least height counts", WS_OVERLAPPEDWINDOW, {999, 999}, {300, 100}},
             {"between", WS_OVERLAPPEDWINDOW, {250, 100}, {250, 100}},
             {"of a fixed size", WS_POPUP, {10, 10}, {10, 10}}}) {
        Limited window;
        window.CreateEx(0, "KorvelFrame", "", style, {0, 0, 220, 120}, nullptr, 0);
        input::Placed(window.m_hWnd, {5, 5, 5 + size.cx, 5 + size.cy});
        EXPECT_EQ(window.GetWindowRect(), (CRect{5, 5, 5 + limited.cx, 5 + limited.cy})) << border;
        EXPECT_EQ(static_cast<bool>(display.TakeChanges(window.m_hWnd) & Aspect::Rectangle), size != limited)
            << border << ": the desktop has to follow";
    }
}

TEST_F(WindowTreeTest, ANewDisplayIsToldOfTheWindowsThatExist) {
    RecordedWindow frame("frame", log), child("child", log);
    frame.Create(WS_VISIBLE, nullptr);
    child.Create(WS_CHILD | WS_VISIBLE, &frame);
    child.SetFocus();
    auto second = std::make_unique<HeadlessDisplay>();
    SetDisplay(second.get());
    EXPECT_TRUE(second->IsInvalid(frame.m_hWnd));
    EXPECT_TRUE(second->IsInvalid(child.m_hWnd));
    EXPECT_EQ(second->FocusShown(), child.m_hWnd);
    second = nullptr;
    EXPECT_NE(&Display(), &display) << "a display that dies leaves the default one";
    frame.Invalidate();
}

} // namespace
} // namespace korvel
