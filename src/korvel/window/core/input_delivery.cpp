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

} // namespace

InputDelivery::InputDelivery(HWND window, UINT message, TypedCharacter* typed)
    : m_window(window), m_message(message), m_typed(typed), m_outer(std::exchange(Innermost(), this)) {}

InputDelivery::~InputDelivery() {
    Innermost() = m_outer;
}

InputDelivery* InputDelivery::Of(HWND window, UINT message) {
    InputDelivery* delivery = Innermost();
    const bool same = delivery && delivery->m_window == window && delivery->m_message == message;
    return same ? delivery : nullptr;
}

void NoteDefaultReached(HWND window, UINT message) {
    if (InputDelivery* delivery = InputDelivery::Of(window, message))
        delivery->LeaveToDefault();
}

std::optional<CString> TypedText(HWND window, char byte) {
    const InputDelivery* delivery = InputDelivery::Of(window, WM_CHAR);
    TypedCharacter* typed = delivery ? delivery->Typed() : nullptr;
    if (!typed)
        return CString(1, byte);
    typed->reached += byte;
    const bool isWhole = typed->sent == typed->length && typed->reached.size() == typed->length;
    return isWhole ? std::optional(typed->reached) : std::nullopt;
}

bool LeaveToNativeWidget(HWND window, UINT message) {
    InputDelivery* delivery = InputDelivery::Of(window, message);
    if (!delivery || Display().IsHeadless())
        return false;
    delivery->LeaveToDefault();
    return true;
}

} // namespace korvel::internal
