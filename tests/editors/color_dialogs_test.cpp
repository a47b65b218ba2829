#include "korvel/editors/color_aplha_dlg.h"
#include "korvel/editors/color_dialog.h"
#include "support/dialog_fixture.h"

namespace korvel {
namespace {

constexpr int ColorId = 4044;
constexpr int SliderId = 4045;
constexpr int NumberId = 4046;

class ColorDialogs : public DialogTest {
protected:
    // What a dialog that begins with `word` makes of it.
    COLORREF Run(COLORREF word, std::function<void(CWnd& dialog)> act) {
        CColorAplhaDlg dialog(word, &frame);
        display.Then([&] {
            act(dialog);
            Press(VK_RETURN);
        });
        EXPECT_EQ(dialog.DoModal(), IDOK);
        return dialog.GetColorWord();
    }
};

TEST_F(ColorDialogs, AColorIsChosenOrKept) {
    CColorDialog dialog(0xFF112233, 0, &frame);
    display.AnswerNextColor(std::nullopt);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.GetColor(), 0x112233u);
    display.AnswerNextColor(0x445566);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetColor(), 0x445566u);
}

TEST_F(ColorDialogs, AnOpacityComesBackThroughItsPercent) {
    for (const auto& [border, word, number, result] :
         Table<COLORREF, const char*, COLORREF>{{"opaque", 0xFF3366FFu, "0", 0xFF3366FFu},
                                                {"nearly opaque", 0xFE3366FFu, "0", 0xFF3366FFu},
                                                {"half", 0x803366FFu, "50", 0x7F3366FFu},
                                                {"transparent", 0x003366FFu, "100", 0x003366FFu}}) {
        CString shown;
        EXPECT_EQ(Run(word, [&](CWnd& dialog) { shown = GetDlgItemTextA(dialog.m_hWnd, NumberId); }), result)
            << border;
        EXPECT_EQ(shown, number) << border;
    }
}

TEST_F(ColorDialogs, SliderAndButtonChangeTheWord) {
    CString number;
    const COLORREF word = Run(0xFF000000, [&](CWnd& dialog) {
        input::Key(GetDlgItem(dialog.m_hWnd, SliderId), WM_KEYDOWN, VK_END, {});
        input::Key(GetDlgItem(dialog.m_hWnd, SliderId), WM_KEYDOWN, VK_LEFT, {});
        number = GetDlgItemTextA(dialog.m_hWnd, NumberId);
        display.AnswerNextColor(0x0000FF);
        SendMessageA(GetDlgItem(dialog.m_hWnd, ColorId), BM_CLICK, 0, 0);
        display.AnswerNextColor(std::nullopt);
        SendMessageA(GetDlgItem(dialog.m_hWnd, ColorId), BM_CLICK, 0, 0);
        const auto calls = display.PaintWindow(GetDlgItem(dialog.m_hWnd, ColorId));
        EXPECT_TRUE(std::any_of(calls.begin(), calls.end(), [](const PaintCall& call) {
            return call.kind == PaintCall::Kind::Fill && call.color == 0x0000FF;
        }));
    });
    EXPECT_EQ(number, "99");
    EXPECT_EQ(word, 0x030000FFu);
}

TEST_F(ColorDialogs, AColoredButtonShowsWhatItIsToldTo) {
    mfcSharedCtrls::CColoredButton button;
    button.Create("on", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, {0, 0, 40, 20}, &frame, 9);
    button.color = 0xFF123456; // the top byte does not count
    const auto find = [&](PaintCall::Kind kind) {
        const auto calls = display.PaintWindow(button.m_hWnd);
        const auto found = std::find_if(calls.rbegin(), calls.rend(),
                                        [&](const PaintCall& call) { return call.kind == kind; });
        return found == calls.rend() ? std::nullopt : std::optional(*found);
    };
    EXPECT_EQ(find(PaintCall::Kind::Fill)->color, 0x123456u);
    EXPECT_EQ(find(PaintCall::Kind::Fill)->rect, (CRect{1, 1, 39, 19}));
    EXPECT_FALSE(find(PaintCall::Kind::Text));
    EXPECT_FALSE(find(PaintCall::Kind::Focus));
    button.showText = true;
    button.SetFocus();
    EXPECT_TRUE(find(PaintCall::Kind::Focus));
    for (const auto& [border, color, text] :
         Table<COLORREF, COLORREF>{{"dark", 0x000000, 0xFFFFFF},
                                   {"below the middle", 0x80807F, 0xFFFFFF},
                                   {"the middle", 0x808080, 0x000000},
                                   {"bright", 0xFFFFFF, 0x000000},
                                   {"red counts as dark", 0x0000FF, 0xFFFFFF}}) {
        button.color = color;
        EXPECT_EQ(find(PaintCall::Kind::Text)->color, text) << border;
    }
}

} // namespace
} // namespace korvel
