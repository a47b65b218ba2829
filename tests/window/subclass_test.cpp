#include "korvel/window/core/dc.h"
#include "support/recorded_window.h"

namespace korvel {
namespace {

using SubclassTest = WindowTest;

Log* hookLog = nullptr;
WNDPROC formerProcedure = nullptr;

LRESULT HookProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_USER)
        hookLog->push_back("hook user");
    return CallWindowProcA(formerProcedure, window, message, wParam, lParam);
}

LRESULT ClassProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_USER) {
        hookLog->push_back("class user");
        return static_cast<LRESULT>(wParam) + 1;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND MakeClassWindow() {
    RegisterClassA("SubclassTestClass", ClassProcedure);
    return CreateWindowExA(0, "subclasstestCLASS", "", 0, {}, nullptr, 0);
}

TEST_F(SubclassTest, AnObjectMayGoFromBelowAHook) {
    hookLog = &log;
    RecordedWindow object("object", log), next("next", log);
    const HWND window = MakeClassWindow();
    ASSERT_TRUE(object.SubclassWindow(window));
    formerProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LPARAM>(HookProcedure)));
    EXPECT_EQ(SendMessageA(window, WM_USER, 41, 0), 42);
    EXPECT_THAT(Heard(), ElementsAre("hook user", "object user", "class user")) << "the newest first";
    EXPECT_EQ(object.UnsubclassWindow(), window);
    SendMessageA(window, WM_USER, 0, 0);
    EXPECT_THAT(Heard(), ElementsAre("hook user", "class user"));
    next.SubclassWindow(window);
    SendMessageA(window, WM_USER, 0, 0);
    EXPECT_THAT(Heard(), ElementsAre("hook user", "next user", "class user"));
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LPARAM>(formerProcedure));
    next.UnsubclassWindow();
    EXPECT_EQ(GetWindowLongPtrA(window, GWLP_WNDPROC), reinterpret_cast<LPARAM>(ClassProcedure));
    ASSERT_TRUE(object.Create(0, nullptr));
    EXPECT_FALSE(next.SubclassWindow(object.m_hWnd)) << "one object a window";
    EXPECT_FALSE(object.SubclassWindow(window)) << "one window an object";
    EXPECT_FALSE(object.Create(0, nullptr));
    const HWND child = CreateWindowExA(0, "KorvelFrame", "", WS_CHILD, {}, object.m_hWnd, 7);
    EXPECT_FALSE(next.SubclassDlgItem(7, nullptr));
    EXPECT_FALSE(next.SubclassDlgItem(8, &object));
    EXPECT_TRUE(next.SubclassDlgItem(7, &object));
    EXPECT_EQ(next.m_hWnd, child);
    EXPECT_EQ(CWnd::FromHandlePermanent(window), nullptr);
    DestroyWindow(window);
}

TEST_F(SubclassTest, AWindowWithoutObjectHasATemporaryOne) {
    CWnd* temporary = nullptr;
    {
        RecordedWindow frame("frame", log), button("button", log);
        frame.Create(WS_VISIBLE, nullptr);
        const HWND child = CreateWindowExA(0, "BUTTON", "OK", WS_CHILD, {}, frame.m_hWnd, 7);
        EXPECT_EQ(CWnd::FromHandle(frame.m_hWnd), &frame);
        temporary = frame.GetDlgItem(7);
        ASSERT_NE(temporary, nullptr);
        EXPECT_EQ(temporary->GetWindowTextA(), "OK");
        EXPECT_EQ(temporary->GetParent(), &frame);
        EXPECT_EQ(CWnd::FromHandle(child), temporary) << "one for a window";
        EXPECT_EQ(CWnd::FromHandlePermanent(child), nullptr);
        button.SubclassWindow(child);
        EXPECT_EQ(frame.GetDlgItem(7), &button);
        temporary->UnsubclassWindow();
        EXPECT_EQ(frame.GetDlgItem(7), &button) << "which the temporary one does not detach";
        frame.on[WM_USER] = [&] {
            temporary->DestroyWindow();
            EXPECT_EQ(temporary->m_hWnd, nullptr) << "its window is gone; the object is not, yet";
        };
        frame.SendMessageA(WM_USER);
        EXPECT_EQ(frame.GetDlgItem(7), nullptr);
        EXPECT_EQ(CWnd::FromHandle(child), nullptr);
        display.Advance(std::chrono::milliseconds(0));
        temporary = CWnd::FromHandle(CreateWindowExA(0, "BUTTON", "", WS_CHILD, {}, frame.m_hWnd, 8));
    }
    EXPECT_EQ(temporary->m_hWnd, nullptr) << "gone with its parent";
    display.Advance(std::chrono::milliseconds(0));
}

struct ReflectingControl : CWnd {
    int offered = 0;
    bool handles = true;
    bool OnChildNotify(UINT, WPARAM, LPARAM, LRESULT* result) override {
        ++offered;
        *result = 5;
        return handles;
    }
};

// Each message with the control named where that message names it.
LRESULT SendFrom(HWND control, HWND parent, UINT message) {
    NMHDR notification;
    DRAWITEMSTRUCT item;
    item.hwndItem = control;
    if (message == WM_COMMAND)
        return NotifyParentCommand(control, 1);
    if (message == WM_NOTIFY)
        return NotifyParent(control, 1, notification);
    return SendMessageA(parent, message, 0, reinterpret_cast<LPARAM>(&item));
}

TEST_F(SubclassTest, AParentLeavesToTheControlWhatItDoesNotHandle) {
    RecordedWindow frame("frame", log);
    frame.Create(0, nullptr);
    const HWND plain = MakeClassWindow();
    for (const HWND parent : {frame.m_hWnd, plain})
        for (const UINT message : {WM_COMMAND, WM_NOTIFY, WM_DRAWITEM}) {
            ReflectingControl control;
            control.SubclassWindow(CreateWindowExA(0, "KorvelFrame", "", WS_CHILD, {}, parent, 9));
            const bool answersOne = message == WM_COMMAND && parent == frame.m_hWnd;
            EXPECT_EQ(SendFrom(control.m_hWnd, parent, message), answersOne ? 1 : 5) << message;
            control.handles = false;
            SendFrom(control.m_hWnd, parent, message);
            EXPECT_EQ(control.offered, 2) << message << ": a control that declines is not asked again";
        }
    EXPECT_EQ(SendMessageA(frame.m_hWnd, WM_NOTIFY, 0, 0), 0);
    EXPECT_EQ(SendMessageA(frame.m_hWnd, WM_DRAWITEM, 0, 0), 0);
    DestroyWindow(plain);
}

TEST_F(SubclassTest, DefaultPassesOnTheMessageThatIsHandledAlsoAfterANestedOne) {
    hookLog = &log;
    struct DefaultingWindow : CWnd {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_USER)
                return CWnd::WindowProc(message, wParam, lParam);
            SetWindowTextA("nested");
            return Default();
        }
    } object;
    object.SubclassWindow(MakeClassWindow());
    EXPECT_EQ(object.SendMessageA(WM_USER, 6), 7);
    EXPECT_EQ(CWnd::GetCurrentMessage().message, 0u);
    object.DestroyWindow();
}

} // namespace
} // namespace korvel
