#include "korvel/qt/keys.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"

#include <QKeyEvent>
#include <algorithm>
#include <iterator>

namespace korvel::internal {

namespace {

struct KeyCode {
    int qtKey;
    UINT key;
};

// Codes that only arrive here, with the numbers of the window model.
constexpr UINT FirstKeypadDigit = 0x60;
constexpr UINT KeypadDecimal = 0x6E;
constexpr UINT KeypadDivide = 0x6F;
constexpr UINT FirstFunctionKey = 0x70;
constexpr UINT PauseKey = 0x13;
constexpr UINT CapsLock = 0x14;
constexpr UINT NumLock = 0x90;
constexpr UINT ScrollLock = 0x91;
constexpr UINT SuperKey = 0x5B;
constexpr UINT MenuKey = 0x5D;
constexpr UINT MainPlus = 0xBB;
constexpr UINT MainComma = 0xBC;
constexpr UINT MainMinus = 0xBD;
constexpr UINT MainPeriod = 0xBE;

constexpr KeyCode Everywhere[] = {
    {Qt::Key_Backspace, VK_BACK},     {Qt::Key_Tab, VK_TAB},        {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN},      {Qt::Key_Enter, VK_RETURN},   {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Control, VK_CONTROL},    {Qt::Key_Alt, VK_MENU},       {Qt::Key_AltGr, VK_MENU},
    {Qt::Key_Escape, VK_ESCAPE},      {Qt::Key_Space, VK_SPACE},    {Qt::Key_PageUp, VK_PRIOR},
    {Qt::Key_PageDown, VK_NEXT},      {Qt::Key_End, VK_END},        {Qt::Key_Home, VK_HOME},
    {Qt::Key_Left, VK_LEFT},          {Qt::Key_Up, VK_UP},          {Qt::Key_Right, VK_RIGHT},
    {Qt::Key_Down, VK_DOWN},          {Qt::Key_Insert, VK_INSERT},  {Qt::Key_Delete, VK_DELETE},
    {Qt::Key_Pause, PauseKey},        {Qt::Key_CapsLock, CapsLock}, {Qt::Key_NumLock, NumLock},
    {Qt::Key_ScrollLock, ScrollLock}, {Qt::Key_Meta, SuperKey},     {Qt::Key_Menu, MenuKey},
};

constexpr KeyCode OnTheKeypad[] = {
    {Qt::Key_Plus, VK_ADD},        {Qt::Key_Minus, VK_SUBTRACT},    {Qt::Key_Asterisk, VK_MULTIPLY},
    {Qt::Key_Slash, KeypadDivide}, {Qt::Key_Period, KeypadDecimal}, {Qt::Key_Comma, KeypadDecimal},
};

constexpr KeyCode OnTheMainBlock[] = {
    {Qt::Key_Plus, MainPlus},
    {Qt::Key_Comma, MainComma},
    {Qt::Key_Minus, MainMinus},
    {Qt::Key_Period, MainPeriod},
};

template <std::size_t Size>
UINT LookUp(const KeyCode (&table)[Size], int qtKey) {
    const auto found = std::ranges::find(table, qtKey, &KeyCode::qtKey);
    return found == std::end(table) ? 0 : found->key;
}

// On Wayland Qt sets no modifier for the keypad; the key symbols of X11 and Wayland say it as well.
bool IsOnTheKeypad(const QKeyEvent& event) {
    constexpr quint32 FirstKeypadSymbol = 0xFF80;
    constexpr quint32 LastKeypadSymbol = 0xFFBD;
    const quint32 symbol = event.nativeVirtualKey();
    return event.modifiers().testFlag(Qt::KeypadModifier) ||
           (symbol >= FirstKeypadSymbol && symbol <= LastKeypadSymbol);
}

UINT CodeOf(const QKeyEvent& event) {
    const int key = event.key();
    const bool isKeypad = IsOnTheKeypad(event);
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return static_cast<UINT>(key - Qt::Key_0) + (isKeypad ? FirstKeypadDigit : UINT{'0'});
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return static_cast<UINT>(key - Qt::Key_A) + UINT{'A'};
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<UINT>(key - Qt::Key_F1) + FirstFunctionKey;
    if (const UINT code = LookUp(Everywhere, key))
        return code;
    return isKeypad ? LookUp(OnTheKeypad, key) : LookUp(OnTheMainBlock, key);
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

} // namespace korvel::internal
