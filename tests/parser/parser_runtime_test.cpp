#include "korvel/parser/antlr_parser.h"
#include "korvel/parser/lexer_numeric_parser.h"
#include "korvel/parser/numeric_tokens.h"

#include <array>
#include <gtest/gtest.h>

namespace korvel {
namespace {

using namespace internal;

std::string lastPanic;

void RecordPanic(const char* text) {
    lastPanic = text;
}

// Words of "a", cut off by "|" into one token of several words; ";" ends a line.
class WordScanner : public DLGLexerBase {
public:
    WordScanner() : DLGLexerBase({Classes, Transitions, Accepted}) {}

    enum Tokens { Word = 2, Joint = 3, LineEnd = 4 };

private:
    static constexpr std::uint8_t X = ScannerTables::NoState;
    static constexpr auto Classes = [] {
        std::array<std::uint8_t, ScannerTables::ClassEntries> classes{};
        classes.fill(4);
        std::uint8_t number = 0;
        for (const std::size_t place : {0, 'a' + 1, '|' + 1, ';' + 1})
            classes[place] = number++;
        return classes;
    }();
    static constexpr std::array<std::uint8_t, 5 * ScannerTables::RowSize> Transitions = [] {
        std::array<std::uint8_t, 5 * ScannerTables::RowSize> rows{};
        rows.fill(X);
        for (std::uint8_t number = 0; number < 4; ++number)
            rows[number] = number + 1;
        rows[2 * ScannerTables::RowSize + 1] = 2;
        return rows;
    }();
    static constexpr std::array<AcceptedToken, 5> Accepted = {{
        {Invalid, ScannerAction::Refuse},
        {EndOfInput, ScannerAction::Deliver},
        {Word, ScannerAction::Deliver},
        {Joint, ScannerAction::More},
        {LineEnd, ScannerAction::SkipLine},
    }};
};

template <typename Scanner>
struct Input {
    explicit Input(std::string_view text) {
        scanner.SetPanicHandler(RecordPanic);
        scanner.SetInput(text);
        scanner.SetTextBuffer(buffer);
    }
    std::array<char, 8> buffer;
    Scanner scanner;
};

TEST(Scanner, AddsTextThatAsksForMoreAndCountsLines) {
    Input<WordScanner> input("aa;;|a|aa;x");
    ANTLRTokenBuffer tokens(input.scanner, 4);
    const std::pair<const char*, int> wanted[] = {{"aa", 1}, {"|a", 3}, {"|aa", 3}};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(tokens.Look(i + 1).GetText(), wanted[i].first);
        EXPECT_EQ(tokens.Look(i + 1).GetLine(), wanted[i].second);
        EXPECT_EQ(tokens.Look(i + 1).GetType(), WordScanner::Word);
    }
    testing::internal::CaptureStderr();
    EXPECT_EQ(tokens.Look(4).GetType(), Invalid);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "line 4: syntax error at \"x\"\n");
    EXPECT_EQ(tokens.Look(4).GetText(), "x");

    input.scanner.SetInput(";a");
    ANTLRCommonToken again;
    input.scanner.NextToken(&again);
    EXPECT_EQ(again.GetText(), "a");
    EXPECT_EQ(again.GetLine(), 2) << "a new input begins at its own beginning";
}

TEST(Panic, ComesWithoutWhatIsNeededAndForATokenLongerThanItsBuffer) {
    Input<WordScanner> input("aaaaaaaa;aaaaaaaaa");
    ANTLRCommonToken token;
    input.scanner.NextToken(&token);
    EXPECT_EQ(token.GetText(), "aaaaaaaa");
    EXPECT_THROW(input.scanner.NextToken(&token), ParseEnded);
    EXPECT_EQ(lastPanic, "FAIL: overflowed buffer");
    EXPECT_THROW(input.scanner.NextToken(nullptr), ParseEnded);
    EXPECT_EQ(lastPanic, "NULL token_to_fill");
    input.scanner.SetTextBuffer({});
    EXPECT_THROW(input.scanner.NextToken(&token), ParseEnded);
    EXPECT_EQ(lastPanic, "text buffer is NULL");

    WordScanner bare;
    EXPECT_EXIT(bare.NextToken(&token), testing::ExitedWithCode(1),
                "^DLG panic: No input stream, function, or string\n\n$");
    EXPECT_EXIT(ANTLRTokenBuffer(bare, ~std::size_t{0} / 2), testing::ExitedWithCode(1),
                "^ANTLR panic: cannot alloc token buffer\n$");
}

TEST(TokenBuffer, SlidesOverMoreTokensThanItHolds) {
    Input<CLexerNumericParser> input("1 2 3 4 5 6 7 8");
    ANTLRTokenBuffer tokens(input.scanner, 2, RecordPanic);
    EXPECT_EQ(tokens.Look(2).GetText(), "2");
    EXPECT_THROW(tokens.Look(3), ParseEnded);
    EXPECT_THROW(tokens.Look(0), ParseEnded);
    EXPECT_EQ(lastPanic, "FAIL: overflowed buffer");
    const ANTLRAbstractToken& first = tokens.GetToken();
    EXPECT_EQ(tokens.Look(2).GetText(), "3");
    EXPECT_EQ(first.GetText(), "1") << "the token taken last stays beside a full window";
    for (const char* text : {"2", "3", "4", "5", "6"})
        EXPECT_EQ(tokens.GetToken().GetText(), text);
    tokens.Rewind(3);
    EXPECT_EQ(tokens.GetToken().GetText(), "4");
    EXPECT_THROW(tokens.Rewind(2), ParseEnded) << "no longer in the window";
    EXPECT_THROW(tokens.Rewind(5), ParseEnded) << "not yet taken";
    tokens.Reset();
    EXPECT_EQ(tokens.GetToken().GetText(), "7");
}

constexpr std::array<const char*, 10> Names = {"Invalid", "<eof>",   "ADD",   "MINUS", "MUL",
                                               "DIV",     "BRACE_O", "BRACE", "FLOAT", "INT"};
constexpr std::array<TokenSet, 10> Sets = {0, 0, 1, 1, 0, 0, 0, 0, 2, 2};

// A parser that reports, unlike that of a cell.
class ReportingParser : public ANTLRParser {
public:
    using ANTLRParser::ANTLRParser;
    using ANTLRParser::Consume;
    using ANTLRParser::Lookahead;
    using ANTLRParser::Match;
    using ANTLRParser::MatchSet;
    using ANTLRParser::ReportFailedPredicate;
};

TEST(Parser, ReportsWhatItFoundAndWhatItWanted) {
    Input<CLexerNumericParser> input("1\n)");
    ANTLRTokenBuffer tokens(input.scanner, 4);
    ReportingParser parser(tokens, {Names, Sets});
    testing::internal::CaptureStderr();
    EXPECT_TRUE(parser.Run([&] {
        EXPECT_TRUE(parser.MatchSet(2));
        EXPECT_FALSE(parser.Match(INT_VALUE));
        EXPECT_FALSE(parser.Match(S_MUL, "product"));
        EXPECT_FALSE(parser.MatchSet(1, "sum"));
        parser.ReportFailedPredicate("x > 0");
        EXPECT_EQ(parser.Lookahead(), S_BRACE_C) << "a mismatch consumes nothing";
        parser.Consume();
        EXPECT_FALSE(parser.Match(S_BRACE_C));
    }));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "line 2: syntax error at \")\" missing INT\n"
              "line 2: syntax error at \")\" missing MUL in product\n"
              "line 2: syntax error at \")\"; \")\" not { ADD MINUS } in sum\n"
              "line 2: semantic error; failed predicate: 'x > 0'\n"
              "line 2: syntax error at \"<eof>\" missing BRACE\n");
}

TEST(Parser, EndsAtItsEntryWhenAHandlerReturnsFromAPanic) {
    Input<CLexerNumericParser> input("1+2");
    ANTLRTokenBuffer tokens(input.scanner, 4);
    ReportingParser parser(tokens, {Names, std::span(Sets).first(9)});
    parser.SetPanicHandler(RecordPanic);
    EXPECT_FALSE(parser.Run([] { ADD_FAILURE(); }));
    EXPECT_EQ(lastPanic, "invalid token") << "the grammar's tables do not know integers";
}

} // namespace
} // namespace korvel
