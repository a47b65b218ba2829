#include "korvel/parser/lexer_numeric_parser.h"

#include "korvel/parser/numeric_tokens.h"

#include <array>

namespace korvel::internal {

namespace {

constexpr std::uint8_t OtherClass = 13;

// The bytes of each character class. Class 0 is the end of the input; OtherClass is every other byte.
constexpr std::array<std::string_view, OtherClass> BytesOfClass = {
    "", "+", "-", "*", "/", "(", ")", "0123456789", ".", "Ee", "\t f", "\n", "\r"};

constexpr std::array<std::uint8_t, ScannerTables::ClassEntries> MakeClasses() {
    std::array<std::uint8_t, ScannerTables::ClassEntries> classes{};
    classes.fill(OtherClass);
    classes[0] = 0;
    for (std::uint8_t number = 1; number < OtherClass; ++number)
        for (const char byte : BytesOfClass[number])
            classes[static_cast<unsigned char>(byte) + 1U] = number;
    return classes;
}

constexpr auto Classes = MakeClasses();

constexpr std::uint8_t X = ScannerTables::NoState;

enum State : std::uint8_t {
    Begin,
    End,
    Add,
    Minus,
    Mul,
    Div,
    Open,
    Close,
    Digits,
    Point,
    Fraction,
    Exponent,
    ExponentSign,
    ExponentDigits,
    Blank,
    LineEnd,
    Return,
    StateCount
};

// clang-format off
constexpr std::array<std::uint8_t, StateCount * ScannerTables::RowSize> Transitions = {
    // end  +             -             *    /    (     )      0-9             .         e         blank  \n
    // \r      other   -  -
    End,    Add,          Minus,        Mul, Div, Open, Close, Digits,         Point,    X,        Blank, LineEnd, Return, X,      X, X, // Begin
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     X,       X,      X,      X, X, // End
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     X,       X,      X,      X, X, // Add
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     X,       X,      X,      X, X, // Minus
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     X,       X,      X,      X, X, // Mul
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     X,       X,      X,      X, X, // Div
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     X,       X,      X,      X, X, // Open
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     X,       X,      X,      X, X, // Close
    X,      X,            X,            X,   X,   X,    X,     Digits,         Fraction, Exponent, X,     X,       X,      X,      X, X, // Digits
    X,      X,            X,            X,   X,   X,    X,     Fraction,       X,        X,        X,     X,       X,      X,      X, X, // Point
    X,      X,            X,            X,   X,   X,    X,     Fraction,       X,        Exponent, X,     X,       X,      X,      X, X, // Fraction
    X,      ExponentSign, ExponentSign, X,   X,   X,    X,     ExponentDigits, X,        X,        X,     X,       X,      X,      X, X, // Exponent
    X,      X,            X,            X,   X,   X,    X,     ExponentDigits, X,        X,        X,     X,       X,      X,      X, X, // ExponentSign
    X,      X,            X,            X,   X,   X,    X,     ExponentDigits, X,        X,        X,     X,       X,      X,      X, X, // ExponentDigits
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     X,       X,      X,      X, X, // Blank
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     X,       X,      X,      X, X, // LineEnd
    X,      X,            X,            X,   X,   X,    X,     X,              X,        X,        X,     LineEnd, X,      X,      X, X, // Return
};
// clang-format on

constexpr std::array<AcceptedToken, StateCount> Accepted = {{
    {Invalid, ScannerAction::Refuse},      // Begin
    {EndOfInput, ScannerAction::Deliver},  // End
    {S_ADD, ScannerAction::Deliver},       // Add
    {S_MINUS, ScannerAction::Deliver},     // Minus
    {S_MUL, ScannerAction::Deliver},       // Mul
    {S_DIV, ScannerAction::Deliver},       // Div
    {S_BRACE_O, ScannerAction::Deliver},   // Open
    {S_BRACE_C, ScannerAction::Deliver},   // Close
    {INT_VALUE, ScannerAction::Deliver},   // Digits
    {Invalid, ScannerAction::Refuse},      // Point
    {FLOAT_VALUE, ScannerAction::Deliver}, // Fraction
    {Invalid, ScannerAction::Refuse},      // Exponent
    {Invalid, ScannerAction::Refuse},      // ExponentSign
    {FLOAT_VALUE, ScannerAction::Deliver}, // ExponentDigits
    {Whitespace, ScannerAction::Skip},     // Blank
    {Newline, ScannerAction::SkipLine},    // LineEnd
    {Newline, ScannerAction::SkipLine},    // Return
}};

} // namespace

CLexerNumericParser::CLexerNumericParser() : DLGLexerBase({Classes, Transitions, Accepted}) {}

} // namespace korvel::internal
