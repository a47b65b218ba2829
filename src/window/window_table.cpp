#include "window/window_table.h"

#include "window/desktop.h"
#include "window/thread_queue.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {
namespace {

constexpr int SlotBits = 32;

HWND HandleOf(std::size_t slot, std::uint32_t generation) {
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(generation) << SlotBits | slot);
}

std::size_t SlotOf(HWND window) {
    return reinterpret_cast<std::uintptr_t>(window) & 0xFFFFFFFF;
}

} // namespace

static_assert(sizeof(HWND) == 8, "a handle holds two 32-bit numbers");

WindowTable& WindowTable::Instance() {
    static auto& table = *new WindowTable; // objects of static lifetime may outlive every other static
    return table;
}

RecordRef WindowTable::Add() {
    const std::lock_guard lock(m_mutex);
    if (m_free.empty()) {
        m_free.push_back(static_cast<std::uint32_t>(m_slots.size()));
        m_slots.emplace_back();
    }
    const std::size_t index = m_free.back();
    Slot& slot = m_slots[index];
    slot.record = std::make_shared<WindowRecord>(HandleOf(index, slot.generation), ThreadQueue::Current());
    slot.order = ++m_created;
    m_free.pop_back();
    return slot.record;
}

RecordRef WindowTable::Find(HWND window) {
    const std::lock_guard lock(m_mutex);
    const std::size_t index = SlotOf(window);
    if (index >= m_slots.size() || HandleOf(index, m_slots[index].generation) != window)
        return nullptr;
    return m_slots[index].record;
}

void WindowTable::Remove(HWND window) {
    // Whoever waits for the window is released after it is gone from the table: a sender that still found
    // it there has either been seen in the queue by then, or sees that it is gone.
    if (const RecordRef record = Take(window))
        record->queue->Forget(window);
}

RecordRef WindowTable::Take(HWND window) {
    const std::lock_guard lock(m_mutex);
    const std::size_t index = SlotOf(window);
    if (index >= m_slots.size() || HandleOf(index, m_slots[index].generation) != window)
        return nullptr;
    Slot& slot = m_slots[index];
    slot.generation = std::max(slot.generation + 1, 1u); // 0 would make the null handle of slot 0
    m_free.push_back(static_cast<std::uint32_t>(index));
    return std::exchange(slot.record, nullptr);
}

std::vector<RecordRef> WindowTable::OfThread(const ThreadQueue& queue) {
    std::vector<std::pair<std::uint64_t, RecordRef>> found;
    {
        const std::lock_guard lock(m_mutex);
        for (const Slot& slot : m_slots)
            if (slot.record && slot.record->queue.get() == &queue)
                found.emplace_back(slot.order, slot.record);
    }
    std::sort(found.begin(), found.end(),
              [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<RecordRef> records;
    for (auto& [order, record] : found)
        records.push_back(std::move(record));
    return records;
}

void WindowTable::EndThread(const ThreadQueue& queue) {
    for (const RecordRef& record : OfThread(queue)) {
        ForgetWindow(*record);
        Remove(record->handle);
    }
}

RecordRef Find(HWND window) {
    return WindowTable::Instance().Find(window);
}

} // namespace korvel::internal
