#pragma once

// Replaces the allocation of the whole program: to be included by one source of it.

#include <cstdlib>
#include <new>

namespace korvel {

/// For its lifetime lets one allocation of this thread throw std::bad_alloc: the one after `passing` others.
class FailingMemory {
public:
    FailingMemory(int passing, bool& hasFailed) {
        t_passing = passing;
        t_hasFailed = &hasFailed;
    }
    ~FailingMemory() { t_passing = -1; }
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    static void* Allocate(std::size_t size) {
        if (t_passing >= 0 && t_passing-- == 0) {
            *t_hasFailed = true;
            throw std::bad_alloc();
        }
        if (void* memory = std::malloc(size ? size : 1))
            return memory;
        throw std::bad_alloc();
    }

private:
    inline static thread_local int t_passing = -1; // allocations before the one that fails; -1: none does
    inline static thread_local bool* t_hasFailed = nullptr;
};

} // namespace korvel

// Not inlined: GCC warns of a std::free that follows a `new`, once it sees both in one function.
[[gnu::noinline]] void* operator new(std::size_t size) {
    return korvel::FailingMemory::Allocate(size);
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
