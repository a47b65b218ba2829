#include "korvel/parser/antlr_parser.h"

namespace korvel::internal {

void ANTLRParser::OnSyntaxError(const WantedTokens& wanted) {
    const ANTLRAbstractToken& token = LookaheadToken();
    const std::string_view found = m_lookahead == EndOfInput ? "<eof>" : token.GetText();
    WriteErrorText(SyntaxErrorText(token.GetLine(), found, wanted));
}

void ANTLRParser::ReportFailedPredicate(const char* predicate) {
    WriteErrorText(SemanticErrorText(LookaheadToken().GetLine(), predicate));
}

std::vector<const char*> ANTLRParser::NamesOf(TokenSet set) const {
    std::vector<const char*> names;
    for (std::size_t number = 0; number < m_tables.tokenSets.size(); ++number)
        if ((m_tables.tokenSets[number] & set) != 0)
            names.push_back(m_tables.tokenNames[number]);
    return names;
}

} // namespace korvel::internal
