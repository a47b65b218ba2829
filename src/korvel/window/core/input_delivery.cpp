#include "korvel/window/core/input_delivery.h"

#include "korvel/window/base/messages.h"
#include "korvel/window/core/display.h"

#include <utility>

namespace korvel::internal {
namespace {

InputDelivery*& Innermost() {
    static thread_local InputDelivery* delivery = nullptr;
    return delivery;
}

bool IsKey(UINT message) {
    return message >= WM_KEYDOWN && message <= WM_KEYLAST;
}

} // namespace

InputDelivery::InputDelivery(const MSG& message, TypedCharacter* typed)
    : m_message(message), m_typed(typed), m_outer(std::exchange(Innermost(), this)) {}

InputDelivery::~InputDelivery() {
    Innermost() = m_outer;
}

InputDelivery* InputDelivery::Of(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    InputDelivery* delivery = Innermost();
    if (!delivery)
        return nullptr;
    const MSG& own = delivery->m_message;
    const bool isSame = own.hwnd == window && own.message == message && own.wParam == wParam &&
                        (IsKey(message) || own.lParam == lParam);
    return isSame ? delivery : nullptr;
}

void NoteDefaultReached(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (InputDelivery* delivery = InputDelivery::Of(window, message, wParam, lParam))
        delivery->LeaveToDefault();
}

std::optional<CString> TypedText(HWND window, WPARAM byte) {
    const InputDelivery* delivery = InputDelivery::Of(window, WM_CHAR, byte, 0);
    TypedCharacter* typed = delivery ? delivery->Typed() : nullptr;
    const CString text(1, static_cast<char>(byte));
    if (!typed || typed->reached.size() >= typed->sent)
        return text;
    typed->reached += text;
    return typed->reached == typed->bytes ? std::optional(typed->bytes) : std::nullopt;
}

bool LeaveToNativeWidget(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    InputDelivery* delivery = InputDelivery::Of(window, message, wParam, lParam);
    if (!delivery || delivery->WasLeftToDefault() || Display().IsHeadless())
        return false;
    delivery->LeaveToDefault();
    return true;
}

} // namespace korvel::internal
