#pragma once

#include "korvel/window/base/types.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace korvel::internal {

class ThreadQueue;

/// Which thread each window of the process belongs to. A handle is the number of a slot and the slot's
/// generation, so that a handle whose slot serves another window is recognised. Any thread may ask.
class WindowTable {
public:
    static WindowTable& Instance();
    static std::size_t SlotOf(HWND window) { return reinterpret_cast<std::uintptr_t>(window) & 0xFFFFFFFF; }

    /// The handle of a new window.
    HWND Add(std::shared_ptr<ThreadQueue> owner);
    /// The queue of the window's thread, or null for a null or stale handle.
    std::shared_ptr<ThreadQueue> OwnerOf(HWND window);
    /// Ends the handle and releases whoever waits for the window.
    void Remove(HWND window);

private:
    struct Slot {
        std::uint32_t generation = 1;
        std::shared_ptr<ThreadQueue> owner; // null: free
    };

    /// The slot of a living window, or null. Only under the mutex.
    Slot* Find(HWND window);
    std::shared_ptr<ThreadQueue> Take(HWND window);

    std::mutex m_mutex;
    std::vector<Slot> m_slots;
    std::vector<std::uint32_t> m_free;
};

} // namespace korvel::internal
