#include "korvel/layout/binary_memory_stream.h"

namespace korvel::internal {
namespace {

constexpr std::size_t NumberSize = sizeof(std::int32_t);
constexpr unsigned BitsInByte = 8;

} // namespace

void CBinaryMemoryStream::Write(std::int32_t number) {
    auto rest = static_cast<std::uint32_t>(number);
    for (std::size_t i = 0; i < NumberSize; ++i, rest >>= BitsInByte)
        m_bytes.push_back(static_cast<char>(rest & 0xFF));
}

bool CBinaryMemoryStream::Read(std::int32_t& number) {
    if (m_bytes.size() - m_read < NumberSize)
        return false;
    std::uint32_t read = 0;
    for (std::size_t i = NumberSize; i-- > 0;)
        read = read << BitsInByte | static_cast<unsigned char>(m_bytes[m_read + i]);
    m_read += NumberSize;
    number = static_cast<std::int32_t>(read);
    return true;
}

} // namespace korvel::internal
