#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvel::internal {

/// A growing stream of bytes in memory, of which the numbers of a saved record are written and read one after
/// another, the lowest byte first.
///
///     CBinaryMemoryStream out;
///     out.Write(-2);
///     CBinaryMemoryStream in(out.Bytes());   // "\xFE\xFF\xFF\xFF"
///     std::int32_t number = 0;
///     in.Read(number);   // true, -2
class CBinaryMemoryStream {
public:
    static constexpr std::size_t FirstCapacity = 0x400;

    CBinaryMemoryStream() { m_bytes.reserve(FirstCapacity); }
    explicit CBinaryMemoryStream(std::string_view bytes) : m_bytes(bytes) {}

    void Write(std::int32_t number);
    /// False, and `number` unchanged, where fewer than four bytes are left.
    bool Read(std::int32_t& number);
    /// All that was written.
    std::string_view Bytes() const { return m_bytes; }

private:
    std::string m_bytes;
    std::size_t m_read = 0;
};

} // namespace korvel::internal
