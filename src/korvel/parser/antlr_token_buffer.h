#pragma once

#include "korvel/parser/dlg_lexer_base.h"

#include <cstddef>
#include <memory_resource>
#include <vector>

namespace korvel::internal {

/// A sliding window over the tokens of a scanner.
///
/// Tokens are fetched when they are first asked for. Up to `size` of them can be looked at ahead; the one
/// that was taken last stays readable beside a full window, so the buffer has one slot more. The window holds
/// its tokens itself: a reference is valid until its slot is needed again.
///
/// Panics: no memory for the window, a look or a rewind beyond it ("FAIL: overflowed buffer").
class ANTLRTokenBuffer : public PanicSource {
public:
    /// What a window of this size takes from its memory.
    static constexpr std::size_t BytesFor(std::size_t size) { return (size + 1) * sizeof(ANTLRCommonToken); }

    /// The scanner and the memory must outlive the buffer. The handler is the one of all tokens.
    ANTLRTokenBuffer(DLGLexerBase& scanner, std::size_t size, PanicHandler handler = nullptr,
                     std::pmr::memory_resource& memory = *std::pmr::get_default_resource());

    /// Takes the next token.
    ANTLRAbstractToken& GetToken() {
        if (m_ahead == 0)
            Fetch();
        ANTLRAbstractToken& token = m_window[m_nextSlot];
        m_nextSlot = SlotOf(1);
        --m_ahead;
        ++m_position;
        return token;
    }
    /// The token that the nth GetToken from now on will take, n from 1.
    ANTLRAbstractToken& Look(std::size_t n) {
        if (n - 1 >= m_size)
            Panic("FAIL: overflowed buffer");
        while (m_ahead < n)
            Fetch();
        return m_window[SlotOf(n - 1)];
    }
    /// The number of tokens taken so far.
    std::size_t GetPosition() const { return m_position; }
    /// Goes back to a position: the tokens after it are taken again.
    void Rewind(std::size_t position);
    /// Forgets all tokens; the next one comes from the scanner.
    void Reset();

private:
    std::size_t SlotOf(std::size_t tokensAhead) const {
        const std::size_t slot = m_nextSlot + tokensAhead;
        return slot <= m_size ? slot : slot - m_size - 1;
    }
    void Fetch();
    void AddSlot();

    DLGLexerBase& m_scanner;
    std::size_t m_size;
    std::size_t m_nextSlot = 0;
    std::size_t m_ahead = 0;
    std::size_t m_position = 0;
    std::pmr::vector<ANTLRCommonToken> m_window;
};

} // namespace korvel::internal
