#pragma once

namespace korvel::internal {

/// Called in place of the default panic; the text has no prefix.
using PanicHandler = void (*)(const char* text);

/// Ends a parse from any depth: thrown after a panic whose handler returned, caught by ANTLRParser::Run.
struct ParseEnded {};

/// Base of what can panic: the scanner, the tokens and their buffer, the parser.
///
/// A panic is a failure that the caller's code or an impossible input causes, unlike a syntax error.
/// Without a handler it writes "<kind> panic: <text>" to the standard error stream and ends the process
/// with status 1. With a handler it calls that instead and then throws ParseEnded.
class PanicSource {
public:
    void SetPanicHandler(PanicHandler handler) { m_handler = handler; }

protected:
    explicit PanicSource(const char* kind, PanicHandler handler = nullptr)
        : m_kind(kind), m_handler(handler) {}
    ~PanicSource() = default;

    [[noreturn]] void Panic(const char* text) const;
    PanicHandler GetPanicHandler() const { return m_handler; }

private:
    const char* m_kind;
    PanicHandler m_handler;
};

} // namespace korvel::internal
