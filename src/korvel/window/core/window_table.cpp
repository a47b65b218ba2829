#include "korvel/window/core/window_table.h"

#include "korvel/window/core/thread_queue.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {
namespace {

constexpr int SlotBits = 32;

HWND HandleOf(std::size_t slot, std::uint32_t generation) {
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(generation) << SlotBits | slot);
}

} // namespace

static_assert(sizeof(std::uintptr_t) == 8, "a handle holds two 32-bit numbers");

WindowTable& WindowTable::Instance() {
    static auto& table = *new WindowTable; // objects of static lifetime may outlive every other static
    return table;
}

HWND WindowTable::Add(std::shared_ptr<ThreadQueue> owner) {
    const std::lock_guard lock(m_mutex);
    if (m_free.empty()) {
        m_free.push_back(static_cast<std::uint32_t>(m_slots.size()));
        m_slots.emplace_back();
    }
    const std::size_t index = m_free.back();
    m_free.pop_back();
    m_slots[index].owner = std::move(owner);
    return HandleOf(index, m_slots[index].generation);
}

WindowTable::Slot* WindowTable::Find(HWND window) {
    const std::size_t index = SlotOf(window);
    const bool isLiving = index < m_slots.size() && HandleOf(index, m_slots[index].generation) == window;
    return isLiving ? &m_slots[index] : nullptr;
}

std::shared_ptr<ThreadQueue> WindowTable::OwnerOf(HWND window) {
    const std::lock_guard lock(m_mutex);
    const Slot* slot = Find(window);
    return slot ? slot->owner : nullptr;
}

void WindowTable::Remove(HWND window) {
    // Whoever waits for the window is released after it is gone from the table: a sender that still found
    // it there has either been seen in the queue by then, or sees that it is gone.
    if (const auto owner = Take(window))
        owner->Forget(window);
}

std::shared_ptr<ThreadQueue> WindowTable::Take(HWND window) {
    const std::lock_guard lock(m_mutex);
    Slot* slot = Find(window);
    if (!slot)
        return nullptr;
    slot->generation = std::max(slot->generation + 1, 1u); // 0 would make the null handle of slot 0
    m_free.push_back(static_cast<std::uint32_t>(SlotOf(window)));
    return std::exchange(slot->owner, nullptr);
}

} // namespace korvel::internal
