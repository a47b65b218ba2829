#include "window/current_message.h"

#include <utility>

namespace korvel {
namespace {

MSG& Current() {
    static thread_local MSG message;
    return message;
}

} // namespace

CurrentMessageScope::CurrentMessageScope(const MSG& message) : m_former(std::exchange(Current(), message)) {}

CurrentMessageScope::~CurrentMessageScope() {
    Current() = m_former;
}

MSG CWnd::GetCurrentMessage() {
    return Current();
}

} // namespace korvel
