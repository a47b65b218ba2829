#include "korvel/qt/keys.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"

#include <QKeyEvent>
#include <algorithm>
#include <iterator>

namespace korvel::qt {

namespace {

struct KeyCode {
    int qtKey;
    UINT key;
};

// Codes that only arrive here, with the platform's numbers.
constexpr UINT firstPadDigit = 0x60;
constexpr UINT padDecimal = 0x6E;
constexpr UINT padDivide = 0x6F;
constexpr UINT firstFunctionKey = 0x70;
constexpr UINT pauseKey = 0x13;
constexpr UINT capsLock = 0x14;
constexpr UINT numLock = 0x90;
constexpr UINT scrollLock = 0x91;
constexpr UINT superKey = 0x5B;
constexpr UINT menuKey = 0x5D;
constexpr UINT mainPlus = 0xBB;
constexpr UINT mainComma = 0xBC;
constexpr UINT mainMinus = 0xBD;
constexpr UINT mainPeriod = 0xBE;

constexpr KeyCode everywhere[] = {
    {Qt::Key_Backspace, VK_BACK},     {Qt::Key_Tab, VK_TAB},        {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN},      {Qt::Key_Enter, VK_RETURN},   {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Control, VK_CONTROL},    {Qt::Key_Alt, VK_MENU},       {Qt::Key_AltGr, VK_MENU},
    {Qt::Key_Escape, VK_ESCAPE},      {Qt::Key_Space, VK_SPACE},    {Qt::Key_PageUp, VK_PRIOR},
    {Qt::Key_PageDown, VK_NEXT},      {Qt::Key_End, VK_END},        {Qt::Key_Home, VK_HOME},
    {Qt::Key_Left, VK_LEFT},          {Qt::Key_Up, VK_UP},          {Qt::Key_Right, VK_RIGHT},
    {Qt::Key_Down, VK_DOWN},          {Qt::Key_Insert, VK_INSERT},  {Qt::Key_Delete, VK_DELETE},
    {Qt::Key_Pause, pauseKey},        {Qt::Key_CapsLock, capsLock}, {Qt::Key_NumLock, numLock},
    {Qt::Key_ScrollLock, scrollLock}, {Qt::Key_Meta, superKey},     {Qt::Key_Menu, menuKey},
};

constexpr KeyCode onThePad[] = {
    {Qt::Key_Plus, VK_ADD},     {Qt::Key_Minus, VK_SUBTRACT}, {Qt::Key_Asterisk, VK_MULTIPLY},
    {Qt::Key_Slash, padDivide}, {Qt::Key_Period, padDecimal}, {Qt::Key_Comma, padDecimal},
};

constexpr KeyCode onTheMainBlock[] = {
    {Qt::Key_Plus, mainPlus},
    {Qt::Key_Comma, mainComma},
    {Qt::Key_Minus, mainMinus},
    {Qt::Key_Period, mainPeriod},
};

template <std::size_t size>
UINT LookUp(const KeyCode (&table)[size], int qtKey) {
    const auto found = std::ranges::find(table, qtKey, &KeyCode::qtKey);
    return found == std::end(table) ? 0 : found->key;
}

UINT CodeOf(const QKeyEvent& event) {
    const int key = event.key();
    const bool pad = event.modifiers().testFlag(Qt::KeypadModifier);
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return static_cast<UINT>(key - Qt::Key_0) + (pad ? firstPadDigit : UINT{'0'});
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return static_cast<UINT>(key - Qt::Key_A) + UINT{'A'};
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<UINT>(key - Qt::Key_F1) + firstFunctionKey;
    if (const UINT code = LookUp(everywhere, key))
        return code;
    return pad ? LookUp(onThePad, key) : LookUp(onTheMainBlock, key);
}

} // namespace

KeyInput TranslateKey(const QKeyEvent& event) {
    const bool press = event.type() == QEvent::KeyPress;
    // Alt and Control together stand for AltGr on many keyboards, and make plain keys.
    const bool system =
        event.modifiers().testFlag(Qt::AltModifier) && !event.modifiers().testFlag(Qt::ControlModifier);
    KeyInput input;
    input.message = press ? (system ? WM_SYSKEYDOWN : WM_KEYDOWN) : (system ? WM_SYSKEYUP : WM_KEYUP);
    input.key = CodeOf(event);
    // Delete has a text in Qt, but types nothing.
    if (press && input.key != VK_DELETE)
        input.characters = FromQString(event.text());
    return input;
}

bool ComesBeforeShortcuts(const QKeyEvent& event) {
    return !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

} // namespace korvel::qt
