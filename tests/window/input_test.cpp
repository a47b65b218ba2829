#include "korvel/platform/error.h"
#include "korvel/window/controls/edit.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/input_delivery.h"
#include "support/recorded_window.h"

namespace korvel {
namespace {

// Like a display on a screen: native widgets act on what is left to them.
struct NativeDisplay : HeadlessDisplay {
    bool IsHeadless() const override { return false; }
};

class InputTest : public WindowTest {
protected:
    InputTest() {
        frame.Create(WS_VISIBLE, nullptr, 0, {100, 100, 400, 400});
        child.Create(WS_CHILD | WS_VISIBLE, &frame, 1, {10, 20, 110, 120});
        Heard();
    }

    RecordedWindow frame{"frame", log};
    RecordedWindow child{"child", log};
};

TEST_F(InputTest, IsDroppedForADisabledAncestor) {
    frame.EnableWindow(false);
    Heard();
    EXPECT_TRUE(input::Key(child.m_hWnd, WM_KEYDOWN, 'A', "a"));
    EXPECT_TRUE(input::Mouse(child.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {1, 1}));
    input::Close(frame.m_hWnd);
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_FALSE(input::Key(nullptr, WM_KEYDOWN, 'A', "a"));
}

TEST_F(InputTest, ObjectsSeeItFromTheInside) {
    const auto watch = [this](const char* name, WPARAM dropped) {
        return [=, this](const MSG& message) {
            log.push_back(name + std::to_string(message.message));
            return message.message == WM_KEYDOWN && message.wParam == dropped;
        };
    };
    child.preTranslate = watch("c", 0);
    frame.preTranslate = watch("f", VK_RETURN);
    input::Key(child.m_hWnd, WM_KEYDOWN, VK_RETURN, "\r");
    EXPECT_THAT(Heard(), ElementsAre("c256", "f256", "frame drops")) << "a dropped key makes no characters";
    input::Key(child.m_hWnd, WM_KEYDOWN, 'A', "a");
    EXPECT_THAT(Heard(), ElementsAre("c256", "f256", "child key 65", "c258", "f258", "child char 97"));
    input::Key(child.m_hWnd, WM_SYSKEYDOWN, 'A', "a");
    EXPECT_THAT(Heard(), ElementsAre("c260", "f260", "child syskey 65", "c262", "f262", "child syschar 97"));
    input::Mouse(child.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {1, 1});
    EXPECT_THAT(Heard(), ElementsAre("c513", "f513", "child press"));
}

TEST_F(InputTest, AWindowMayDieOnTheWay) {
    child.preTranslate = [&](const MSG&) {
        frame.DestroyWindow();
        return false;
    };
    EXPECT_TRUE(input::Key(child.m_hWnd, WM_KEYDOWN, 'A', "aa"));
    EXPECT_THAT(Heard(), ElementsAre("frame destroy", "child destroy", "child end", "frame end"));
}

TEST_F(InputTest, ANativeWidgetActsOnlyWhenEverythingWasLeftToIt) {
    NativeDisplay native;
    static bool acted;
    RegisterClassA("InputTestControl",
                   [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
                       if (message == WM_KEYDOWN || message == WM_CHAR)
                           acted |= !internal::LeaveToNativeWidget(window, message, wParam, lParam);
                       return DefWindowProcA(window, message, wParam, lParam);
                   });
    RecordedWindow control("control", log);
    control.CreateEx(0, "InputTestControl", "", WS_CHILD | WS_VISIBLE, {}, &frame, 2);
    for (const auto& [border, prepare, consumed, actedItself] : Table<std::function<void()>, bool, bool>{
             {"all left", [] {}, false, false},
             {"the key is handled", [&] { control.answer[WM_KEYDOWN] = 0; }, true, false},
             {"a character is handled", [&] { control.answer[WM_CHAR] = 0; }, true, false},
             {"a handler sends a character of its own",
              [&] { control.on[WM_KEYDOWN] = [&] { control.SendMessageA(WM_CHAR, 'x'); }; }, false, true},
             {"no native widgets", [&] { SetDisplay(&display); }, false, true}}) {
        SetDisplay(&native);
        acted = false;
        control.on.clear();
        control.answer.clear();
        prepare();
        EXPECT_EQ(input::Key(control.m_hWnd, WM_KEYDOWN, 'A', "a"), consumed) << border;
        EXPECT_EQ(acted, actedItself) << border;
    }
}

TEST_F(InputTest, WhatAHandlerSendsIsTypedByTheWindowItself) {
    struct Hooked : CEdit {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_CHAR || wParam != static_cast<unsigned char>(from) ||
                std::exchange(isBusy, true))
                return CEdit::WindowProc(message, wParam, lParam);
            for (const char character : sent)
                SendMessageA(WM_CHAR, static_cast<unsigned char>(character));
            isBusy = false;
            return passes ? CEdit::WindowProc(message, wParam, lParam) : 0;
        }
        char from = 0;
        CString sent;
        bool passes = false;
        bool isBusy = false;
    };
    NativeDisplay native;
    for (const auto& [border, from, sent, passes, typed, headless, besideNative, consumed] :
         Table<char, const char*, bool, const char*, const char*, const char*, bool>{
             {"three for one", 'k', "000", false, "k", "000", "000", true},
             {"one before its own", '(', ")", true, "(", ")(", ")", false},
             {"a point for a comma", ',', ".", false, ",", ".", ".", true},
             {"itself twice: once it is the user's", 'k', "kk", false, "k", "kk", "k", false},
             {"the trailing byte of a letter", '\xE1', "\xE1", true, "\x81\xE2\xE1", "\x81\xE2\xE1\xE1",
              "\xE1", false},
             {"no room for all of the key", 0, "", false, "abcdef", "abcd", "abcd", true}})
        for (const bool isNative : {false, true}) {
            SCOPED_TRACE(border);
            SetDisplay(isNative ? &native : static_cast<IDisplay*>(&display));
            Hooked edit;
            edit.Create(WS_CHILD | WS_VISIBLE, {}, &frame, 3);
            edit.LimitText(4);
            edit.from = from;
            edit.sent = sent;
            edit.passes = passes;
            EXPECT_EQ(input::Key(edit.m_hWnd, WM_KEYDOWN, 0, typed), !isNative || consumed);
            EXPECT_EQ(edit.GetWindowTextA(), isNative ? besideNative : headless);
            edit.DestroyWindow();
        }
    SetDisplay(&display);
}

TEST_F(InputTest, TheWheelAndTheMenuGoOutwardsAndTheMouseToWhoHasTheCapture) {
    CPoint at;
    const auto look = [&](const MSG& message) { return at = PointOf(message.lParam), false; };
    frame.preTranslate = look;
    input::Mouse(child.m_hWnd, WM_MOUSEWHEEL, 0, {1, 2}, -120);
    EXPECT_THAT(Heard(), ElementsAre("child wheel", "frame wheel"));
    EXPECT_EQ(at, (CPoint{111, 122})) << "on the screen";
    input::Mouse(child.m_hWnd, WM_RBUTTONUP, 0, {1, 2});
    EXPECT_THAT(Heard(), ElementsAre("child menu", "frame menu"));
    SetCapture(child.m_hWnd);
    input::Mouse(frame.m_hWnd, WM_MOUSEMOVE, 0, {5, 5});
    EXPECT_EQ(at, (CPoint{-5, -15}));
}

TEST_F(InputTest, TheOutermostWindowThatSetsACursorDecides) {
    input::Mouse(child.m_hWnd, WM_MOUSEMOVE, 0, {1, 2});
    EXPECT_EQ(display.CursorShown(), IDC_ARROW);
    frame.answer[WM_SETCURSOR] = 1;
    SetCursor(IDC_SIZEWE);
    input::Mouse(child.m_hWnd, WM_MOUSEMOVE, 0, {1, 2});
    EXPECT_EQ(display.CursorShown(), IDC_SIZEWE);
}

TEST_F(InputTest, WhatTheUserMovedIsNotToldBackToTheDisplay) {
    display.TakeChanges(frame.m_hWnd);
    input::Placed(frame.m_hWnd, {0, 0, 50, 60});
    EXPECT_EQ(display.TakeChanges(frame.m_hWnd), Aspects());
    EXPECT_THAT(Heard(), ElementsAre("frame placed", "frame move", "frame size"));
    EXPECT_EQ(frame.GetWindowRect(), (CRect{0, 0, 50, 60}));
}

TEST_F(InputTest, AFailureLeavesNoFunctionThatADisplayCalls) {
    const HWND window = child.m_hWnd;
    const CRect place{0, 0, 7, 7};
    for (const auto& [border, message, report] : Table<UINT, std::function<void()>>{
             {"key", WM_KEYDOWN, [&] { input::Key(window, WM_KEYDOWN, 'A', ""); }},
             {"mouse", WM_LBUTTONDOWN, [&] { input::Mouse(window, WM_LBUTTONDOWN, 0, {}); }},
             {"focus", WM_SETFOCUS, [&] { input::FocusMoved(nullptr), input::FocusMoved(window); }},
             {"placed", WM_SIZE, [&] { input::Placed(window, {}), input::Placed(window, place); }},
             {"close", WM_CLOSE, [&] { input::Close(window); }},
             {"activation", WM_ACTIVATE, [&] { input::Activated(window, true); }},
             {"paint", WM_PAINT, [&] { display.PaintWindow(window); }},
             {"post", WM_USER, [&] { PostMessageA(window, WM_USER, 0, 0), input::DispatchMessages(); }}}) {
        child.on = {{message, [] { throw Error("handler"); }}};
        EXPECT_THROW(report(), Error) << border << ": nobody else hears of it";
        Log heard;
        SetExceptionHandler([&](const CString& text) {
            heard.push_back(text);
            throw Error("the handler itself");
        });
        EXPECT_NO_THROW(report()) << border;
        EXPECT_THAT(heard, testing::Contains("handler")) << border;
        SetExceptionHandler(nullptr);
    }
    child.on.clear();
}

TEST_F(InputTest, OnAScreenAFailureIsShownOnceAtATime) {
    NativeDisplay native;
    SetDisplay(&native);
    native.AnswerNext(IDOK);
    child.SetFocus();
    child.on[WM_KILLFOCUS] = [&] { // as a paint that fails while the box stands
        input::Key(child.m_hWnd, WM_KEYDOWN, 'A', "");
    };
    child.on[WM_KEYDOWN] = [] { throw Error("no such member"); };
    input::Key(child.m_hWnd, WM_KEYDOWN, 'A', "");
    ASSERT_EQ(native.ShownBoxes().size(), 1u);
    EXPECT_EQ(native.ShownBoxes()[0].text, "no such member");
    EXPECT_EQ(native.ShownBoxes()[0].caption, "Korvel");
    native.AnswerNext(IDOK);
    input::Key(child.m_hWnd, WM_KEYDOWN, 'A', "");
    EXPECT_EQ(native.ShownBoxes().size(), 2u) << "the next failure is shown again";
    child.on.clear();
    frame.DestroyWindow();
}

TEST_F(InputTest, WaitCursorsNest) {
    EndWaitCursor(); // none has begun
    {
        CWaitCursor outer;
        CWaitCursor().Restore();
        EXPECT_EQ(display.CursorShown(), IDC_WAIT);
        SetCursor(IDC_ARROW);
        outer.Restore();
        EXPECT_EQ(display.CursorShown(), IDC_WAIT);
    }
    EXPECT_EQ(display.CursorShown(), IDC_ARROW);
    RestoreWaitCursor();

    EXPECT_EQ(display.CursorShown(), IDC_ARROW);
}

} // namespace
} // namespace korvel
