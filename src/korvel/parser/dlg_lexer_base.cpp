#include "korvel/parser/dlg_lexer_base.h"

#include "korvel/parser/syntax_error_text.h"

#include <algorithm>

namespace korvel::internal {

void DLGLexerBase::SetInput(std::string_view input) {
    // An empty view may hold no address at all, but it is an input nevertheless.
    m_current = input.empty() ? "" : input.data();
    m_end = m_current + input.size();
    m_line = 1;
}

void DLGLexerBase::RequireInput() const {
    if (m_current == nullptr)
        Panic("No input stream, function, or string\n");
    if (m_textBuffer.data() == nullptr)
        Panic("text buffer is NULL");
}

void DLGLexerBase::NextToken(ANTLRAbstractToken* tokenToFill) {
    if (tokenToFill == nullptr)
        Panic("NULL token_to_fill");
    RequireInput();
    m_textLength = 0;
    for (;;) {
        const std::size_t state = RunAutomaton();
        const AcceptedToken& accepted = m_tables.accepted[state];
        switch (accepted.action) {
        case ScannerAction::Refuse:
            TakeInvalidText(state);
            [[fallthrough]];
        case ScannerAction::Deliver:
            tokenToFill->Fill(accepted.number, m_line, GetText());
            return;
        case ScannerAction::SkipLine:
            ++m_line;
            [[fallthrough]];
        case ScannerAction::Skip:
            m_textLength = 0;
            break;
        case ScannerAction::More:
            break;
        }
    }
}

std::size_t DLGLexerBase::RunAutomaton() {
    // All in locals: the text is written through a pointer to char, which may point to any member.
    const std::uint8_t* classes = m_tables.classes.data() + 1;
    const std::uint8_t* transitions = m_tables.transitions.data();
    const char* at = m_current;
    const std::size_t space = m_textBuffer.size() - m_textLength;
    const char* stop = at + std::min(static_cast<std::size_t>(m_end - at), space);
    char* text = m_textBuffer.data() + m_textLength;
    std::size_t state = ScannerTables::Start;
    std::size_t next = ScannerTables::NoState;
    for (; at != stop; ++at, ++text) {
        next = transitions[state * ScannerTables::RowSize + classes[static_cast<unsigned char>(*at)]];
        if (next == ScannerTables::NoState)
            break;
        state = next;
        *text = *at;
    }
    m_textLength = static_cast<std::size_t>(text - m_textBuffer.data());
    m_current = at;
    return at == stop ? StateAfter(state) : state;
}

std::size_t DLGLexerBase::StateAfter(std::size_t state) const {
    const std::size_t byte = m_current == m_end ? 0 : static_cast<unsigned char>(*m_current) + 1U;
    const std::size_t next = m_tables.transitions[state * ScannerTables::RowSize + m_tables.classes[byte]];
    if (next == ScannerTables::NoState)
        return state;
    if (m_current != m_end)
        Panic("FAIL: overflowed buffer");
    return next;
}

void DLGLexerBase::TakeInvalidText(std::size_t state) {
    if (state == ScannerTables::Start && m_current != m_end) {
        if (m_textLength == m_textBuffer.size())
            Panic("FAIL: overflowed buffer");
        m_textBuffer[m_textLength++] = *m_current++;
    }
    ReportError(GetText());
}

void DLGLexerBase::ReportError(std::string_view text) const {
    WriteErrorText(SyntaxErrorText(m_line, text, {}));
}

} // namespace korvel::internal
