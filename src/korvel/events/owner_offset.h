#pragma once

#include <cstdint>

namespace korvel {

/// How a part of an object finds that object: by its distance. So the part of a copy finds the copy. For parts
/// that lie within their owner, or live as long as it without being copied.
template <typename Owner>
class OwnerOffset {
public:
    OwnerOffset(const void* part, const Owner* owner) : m_offset(AddressOf(owner) - AddressOf(part)) {}

    Owner& From(const void* part) const { return *reinterpret_cast<Owner*>(AddressOf(part) + m_offset); }

private:
    static std::intptr_t AddressOf(const void* object) { return reinterpret_cast<std::intptr_t>(object); }

    std::intptr_t m_offset;
};

} // namespace korvel
