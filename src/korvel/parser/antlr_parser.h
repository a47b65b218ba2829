#pragma once

#include "korvel/parser/antlr_token_buffer.h"
#include "korvel/parser/syntax_error_text.h"

#include <cstdint>
#include <span>

namespace korvel::internal {

/// A set of tokens: one bit of the byte that each token has in ParserTables::tokenSets.
using TokenSet = std::uint8_t;

/// What a grammar says of its tokens, both by token number. Must outlive the parser.
struct ParserTables {
    std::span<const char* const> tokenNames;
    std::span<const TokenSet> tokenSets;
};

/// Base of a recursive-descent parser that decides by one token of lookahead.
///
/// Rules of a derived class test the lookahead, match or consume it, and pass a failure up themselves.
class ANTLRParser : public PanicSource {
public:
    /// The tokens must outlive the parser.
    ANTLRParser(ANTLRTokenBuffer& tokens, const ParserTables& tables)
        : PanicSource("ANTLR"), m_tokens(tokens), m_tables(tables) {}
    virtual ~ANTLRParser() = default;
    ANTLRParser(const ANTLRParser&) = delete;
    ANTLRParser& operator=(const ANTLRParser&) = delete;

    /// Fetches the first lookahead and calls the rule. False when a panic ended the parse: this is the
    /// place to which a failure at any depth returns.
    template <typename Rule>
    bool Run(Rule rule) {
        try {
            Consume();
            rule();
            return true;
        } catch (const ParseEnded&) {
            return false;
        }
    }

protected:
    int Lookahead() const { return m_lookahead; }
    const ANTLRAbstractToken& LookaheadToken() const { return *m_lookaheadToken; }
    bool LookaheadIn(TokenSet set) const { return (m_lookaheadSets & set) != 0; }

    /// Goes on to the next token.
    void Consume() {
        m_lookaheadToken = &m_tokens.GetToken();
        m_lookahead = m_lookaheadToken->GetType();
        if (static_cast<std::size_t>(m_lookahead) >= m_tables.tokenSets.size())
            Panic("invalid token");
        m_lookaheadSets = m_tables.tokenSets[static_cast<std::size_t>(m_lookahead)];
    }

    /// Consumes the lookahead when it is this token, else reports it. The rule is named in the report.
    [[nodiscard]] bool Match(int token, const char* rule = nullptr) {
        if (m_lookahead == token) {
            Consume();
            return true;
        }
        OnSyntaxError({{NameOf(token)}, rule});
        return false;
    }
    /// Consumes the lookahead when it is one of the set, else reports it.
    [[nodiscard]] bool MatchSet(TokenSet set, const char* rule = nullptr) {
        if (LookaheadIn(set)) {
            Consume();
            return true;
        }
        OnSyntaxError({NamesOf(set), rule});
        return false;
    }

    /// Called for a lookahead that fits nowhere. Writes the report to the standard error stream.
    virtual void OnSyntaxError(const WantedTokens& wanted);
    /// Reports a condition of a rule that does not hold.
    void ReportFailedPredicate(const char* predicate);

private:
    const char* NameOf(int token) const { return m_tables.tokenNames[static_cast<std::size_t>(token)]; }
    std::vector<const char*> NamesOf(TokenSet set) const;

    ANTLRTokenBuffer& m_tokens;
    ParserTables m_tables;
    const ANTLRAbstractToken* m_lookaheadToken = nullptr;
    int m_lookahead = Invalid;
    TokenSet m_lookaheadSets = 0;
};

} // namespace korvel::internal
