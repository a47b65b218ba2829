#include "korvel/window/core/current_message.h"

#include <utility>

namespace korvel::internal {
namespace {

constinit thread_local const MSG* t_current = nullptr;

} // namespace

CurrentMessageScope::CurrentMessageScope(const MSG& message) : m_former(std::exchange(t_current, &message)) {}

CurrentMessageScope::~CurrentMessageScope() {
    t_current = m_former;
}

MSG CurrentMessageScope::Current() {
    return t_current ? *t_current : MSG();
}

} // namespace korvel::internal
