#include "korvel/qt/keys.h"
#include "korvel/window/base/messages.h"

#include <QKeyEvent>
#include <gtest/gtest.h>

namespace korvel::test {

namespace {

constexpr Qt::KeyboardModifiers None = Qt::NoModifier;
constexpr UINT MainPlus = 0xBB;
constexpr UINT PadFive = 0x65;

TEST(Keys, AreToldAsTheWindowSystemTellsThem) {
    struct Case {
        const char* name;
        int key;
        Qt::KeyboardModifiers modifiers;
        const char16_t* text;
        UINT message;
        UINT code;
        const char* characters;
        quint32 symbol = 0;
    };
    const Case cases[] = {
        {"a capital letter has the same code", Qt::Key_A, Qt::ShiftModifier, u"A", WM_KEYDOWN, 'A', "A"},
        {"a letter of the code page", 0xE4, None, u"\u00e4", WM_KEYDOWN, 0, "\xE4"},
        {"the euro is one byte", Qt::Key_E, Qt::GroupSwitchModifier, u"\u20ac", WM_KEYDOWN, 'E', "\x80"},
        {"a letter outside the page is a sequence", 0x141, None, u"\u0141", WM_KEYDOWN, 0, "\x81\xE2\xE1"},
        {"Control", Qt::Key_C, Qt::ControlModifier, u"\u0003", WM_KEYDOWN, 'C', "\x03"},
        {"Alt makes system keys", Qt::Key_F, Qt::AltModifier, u"f", WM_SYSKEYDOWN, 'F', "f"},
        {"Control and Alt do not", Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, u"@", WM_KEYDOWN, 'Q',
         "@"},
        {"Delete types nothing", Qt::Key_Delete, None, u"\u007f", WM_KEYDOWN, VK_DELETE, ""},
        {"Backspace types itself", Qt::Key_Backspace, None, u"\b", WM_KEYDOWN, VK_BACK, "\b"},
        {"Enter of the pad", Qt::Key_Enter, Qt::KeypadModifier, u"\r", WM_KEYDOWN, VK_RETURN, "\r"},
        {"plus of the pad", Qt::Key_Plus, Qt::KeypadModifier, u"+", WM_KEYDOWN, VK_ADD, "+"},
        {"plus of the main row", Qt::Key_Plus, None, u"+", WM_KEYDOWN, MainPlus, "+"},
        {"plus of the pad on Wayland", Qt::Key_Plus, None, u"+", WM_KEYDOWN, VK_ADD, "+", 0xFFAB},
        {"minus there", Qt::Key_Minus, None, u"-", WM_KEYDOWN, VK_SUBTRACT, "-", 0xFFAD},
        {"times there", Qt::Key_Asterisk, None, u"*", WM_KEYDOWN, VK_MULTIPLY, "*", 0xFFAA},
        {"plus of the main row there", Qt::Key_Plus, None, u"+", WM_KEYDOWN, MainPlus, "+", '+'},
        {"a digit of the pad", Qt::Key_5, Qt::KeypadModifier, u"5", WM_KEYDOWN, PadFive, "5"},
        {"an arrow of the pad", Qt::Key_Left, Qt::KeypadModifier, u"", WM_KEYDOWN, VK_LEFT, ""},
        {"Shift and Tab", Qt::Key_Backtab, Qt::ShiftModifier, u"\t", WM_KEYDOWN, VK_TAB, "\t"},
    };
    for (const Case& row : cases)
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            SCOPED_TRACE(row.name);
            const bool isPress = type == QEvent::KeyPress;
            const QKeyEvent event(type, row.key, row.modifiers, 0, row.symbol, 0,
                                  QString::fromUtf16(row.text));
            const internal::KeyInput input = internal::TranslateKey(event);
            EXPECT_EQ(input.message, isPress ? row.message : row.message + (WM_KEYUP - WM_KEYDOWN));
            EXPECT_EQ(input.key, row.code);
            EXPECT_EQ(input.characters, isPress ? row.characters : "");
        }
}

} // namespace

} // namespace korvel::test
