#include "korvel/parser/antlr_token_buffer.h"

#include <exception>

namespace korvel::internal {

ANTLRTokenBuffer::ANTLRTokenBuffer(DLGLexerBase& scanner, std::size_t size, PanicHandler handler,
                                   std::pmr::memory_resource& memory)
    : PanicSource("ANTLR", handler), m_scanner(scanner), m_size(size), m_window(&memory) {
    try {
        m_window.reserve(size + 1);
    } catch (const std::exception&) {
        Panic("cannot alloc token buffer");
    }
}

void ANTLRTokenBuffer::Rewind(std::size_t position) {
    const std::size_t back = m_position - position;
    if (position > m_position || back + m_ahead > m_size + 1)
        Panic("FAIL: overflowed buffer");
    m_nextSlot = SlotOf(m_size + 1 - back);
    m_ahead += back;
    m_position = position;
}

void ANTLRTokenBuffer::Reset() {
    m_nextSlot = 0;
    m_ahead = 0;
    m_position = 0;
}

void ANTLRTokenBuffer::Fetch() {
    const std::size_t slot = SlotOf(m_ahead);
    if (slot == m_window.size())
        AddSlot();
    m_scanner.NextToken(&m_window[slot]);
    ++m_ahead;
}

void ANTLRTokenBuffer::AddSlot() {
    m_window.emplace_back(GetPanicHandler());
}

} // namespace korvel::internal
