#include "korvel/qt/keys.h"
#include "korvel/window/base/messages.h"

#include <QKeyEvent>
#include <gtest/gtest.h>

namespace korvel::test {

namespace {

struct KeyCase {
    const char* name;
    int key;
    Qt::KeyboardModifiers modifiers;
    const char16_t* text;
    UINT message;
    UINT code;
    const char* characters;
};

class Keys : public testing::TestWithParam<KeyCase> {};

constexpr Qt::KeyboardModifiers None = Qt::NoModifier;
constexpr UINT MainPlus = 0xBB;
constexpr UINT PadFive = 0x65;

const KeyCase KeyCases[] = {
    {"CapitalLetterHasTheSameCode", Qt::Key_A, Qt::ShiftModifier, u"A", WM_KEYDOWN, 'A', "A"},
    {"LetterOfTheCodePage", 0xE4, None, u"\u00e4", WM_KEYDOWN, 0, "\xE4"},
    {"EuroIsOneByte", Qt::Key_E, Qt::GroupSwitchModifier, u"\u20ac", WM_KEYDOWN, 'E', "\x80"},
    {"LetterOutsideTheCodePage", 0x141, None, u"\u0141", WM_KEYDOWN, 0, "\x81\xE2\xE1"},
    {"ControlMakesAControlCharacter", Qt::Key_C, Qt::ControlModifier, u"\u0003", WM_KEYDOWN, 'C', "\x03"},
    {"AltMakesSystemKeys", Qt::Key_F, Qt::AltModifier, u"f", WM_SYSKEYDOWN, 'F', "f"},
    {"ControlAndAltMakePlainKeys", Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, u"@", WM_KEYDOWN, 'Q',
     "@"},
    {"DeleteTypesNothing", Qt::Key_Delete, None, u"\u007f", WM_KEYDOWN, VK_DELETE, ""},
    {"BackspaceTypesItself", Qt::Key_Backspace, None, u"\b", WM_KEYDOWN, VK_BACK, "\b"},
    {"EnterOfThePadIsReturn", Qt::Key_Enter, Qt::KeypadModifier, u"\r", WM_KEYDOWN, VK_RETURN, "\r"},
    {"PlusOfThePadExpandsTrees", Qt::Key_Plus, Qt::KeypadModifier, u"+", WM_KEYDOWN, VK_ADD, "+"},
    {"PlusOfTheMainBlockDoesNot", Qt::Key_Plus, None, u"+", WM_KEYDOWN, MainPlus, "+"},
    {"DigitOfThePad", Qt::Key_5, Qt::KeypadModifier, u"5", WM_KEYDOWN, PadFive, "5"},
    {"ArrowOfThePad", Qt::Key_Left, Qt::KeypadModifier, u"", WM_KEYDOWN, VK_LEFT, ""},
    {"ShiftedTab", Qt::Key_Backtab, Qt::ShiftModifier, u"\t", WM_KEYDOWN, VK_TAB, "\t"},
};

TEST_P(Keys, AreToldAsTheWindowSystemTellsThem) {
    const KeyCase& row = GetParam();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        const bool isPress = type == QEvent::KeyPress;
        const QKeyEvent event(type, row.key, row.modifiers, QString::fromUtf16(row.text));
        const internal::KeyInput input = internal::TranslateKey(event);
        EXPECT_EQ(input.message, isPress ? row.message : row.message + (WM_KEYUP - WM_KEYDOWN));
        EXPECT_EQ(input.key, row.code);
        EXPECT_EQ(input.characters, isPress ? row.characters : "");
    }
}

INSTANTIATE_TEST_SUITE_P(All, Keys, testing::ValuesIn(KeyCases),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace korvel::test
