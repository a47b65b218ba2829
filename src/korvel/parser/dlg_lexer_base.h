#pragma once

#include "korvel/parser/antlr_token.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace korvel::internal {

/// What a scanner does where a token ends.
enum class ScannerAction : std::uint8_t {
    /// No token may end here.
    Refuse,
    Deliver,
    /// The token is dropped, and the next one is begun at once.
    Skip,
    /// Counts a line as well.
    SkipLine,
    /// What is matched next is added to the text of this token and decides its number.
    More
};

/// What a state of the automaton accepts.
struct AcceptedToken {
    int number = Invalid;
    ScannerAction action = ScannerAction::Refuse;
};

/// The automaton of a scanner. All tables must outlive the scanner.
struct ScannerTables {
    static constexpr std::size_t ClassEntries = 257;
    static constexpr std::size_t RowSize = 16;
    static constexpr std::uint8_t Start = 0;
    static constexpr std::uint8_t NoState = 255;

    /// The character class by input byte plus one: entry 0 is the class of the end of the input.
    std::span<const std::uint8_t, ClassEntries> classes;
    /// The next state by state and class, one row of RowSize entries a state; NoState ends the token.
    std::span<const std::uint8_t> transitions;
    /// By state.
    std::span<const AcceptedToken> accepted;
};

/// Cuts an input into tokens by table; derived classes bring the tables.
///
/// A token is the longest run of bytes for which the automaton has a transition. Where that run ends in a
/// state that refuses, the token is Invalid and has the text that was read, at least one byte of it.
///
/// Panics: no input set, no text buffer set, no token to fill, a token longer than the text buffer.
class DLGLexerBase : public PanicSource {
public:
    explicit DLGLexerBase(const ScannerTables& tables) : PanicSource("DLG"), m_tables(tables) {}
    virtual ~DLGLexerBase() = default;
    DLGLexerBase(const DLGLexerBase&) = delete;
    DLGLexerBase& operator=(const DLGLexerBase&) = delete;

    /// Starts at the beginning of the input, which must stay while tokens are fetched.
    void SetInput(std::string_view input);

    /// Sets the memory in which the text of a token is gathered, which must outlive the scanner; its size is
    /// the longest token.
    void SetTextBuffer(std::span<char> buffer) { m_textBuffer = buffer; }

    /// Fills in the next token. After the end of the input every further token is EndOfInput.
    void NextToken(ANTLRAbstractToken* tokenToFill);

    int GetLine() const { return m_line; }

protected:
    /// Called for text that is no token. Writes the line and the text to the standard error stream.
    virtual void ReportError(std::string_view text) const;

private:
    void RequireInput() const;
    std::size_t RunAutomaton();
    std::size_t StateAfter(std::size_t state) const;
    void TakeInvalidText(std::size_t state);
    std::string_view GetText() const { return {m_textBuffer.data(), m_textLength}; }

    ScannerTables m_tables;
    const char* m_current = nullptr;
    const char* m_end = nullptr;
    std::span<char> m_textBuffer;
    std::size_t m_textLength = 0;
    int m_line = 1;
};

} // namespace korvel::internal
