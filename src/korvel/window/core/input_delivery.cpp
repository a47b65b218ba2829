#include "korvel/window/core/input_delivery.h"

#include "korvel/window/core/display.h"

#include <utility>

namespace korvel::internal {
namespace {

InputDelivery*& Innermost() {
    static thread_local InputDelivery* delivery = nullptr;
    return delivery;
}

} // namespace

InputDelivery::InputDelivery(HWND window, UINT message)
    : m_window(window), m_message(message), m_outer(std::exchange(Innermost(), this)) {}

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

bool LeaveToNativeWidget(HWND window, UINT message) {
    InputDelivery* delivery = InputDelivery::Of(window, message);
    if (!delivery || Display().IsHeadless())
        return false;
    delivery->LeaveToDefault();
    return true;
}

} // namespace korvel::internal
