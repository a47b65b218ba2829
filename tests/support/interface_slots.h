#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>

namespace korvel {

/// The operations follow each other in the table of their class, from this entry on. A destructor
/// takes two entries, so with one in front slot 1 is entry 2.
template <typename... Operations>
void ExpectEntries(std::uintptr_t first, Operations... operations) {
    struct SlotPointer {
        std::uintptr_t place; // one more than the distance in bytes from the start of the table
        std::ptrdiff_t adjustment;
    };
    for (const SlotPointer& pointer : {std::bit_cast<SlotPointer>(operations)...})
        EXPECT_EQ((pointer.place - 1) / sizeof(void*), first++);
}

} // namespace korvel
