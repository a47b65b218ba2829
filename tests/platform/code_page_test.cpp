#include "korvel/platform/code_page.h"
#include "korvel/platform/utf8.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace korvel::platform {
namespace {

// The borders between the characters of a text, found from its beginning.
std::vector<std::size_t> BordersOf(std::string_view text) {
    std::vector<std::size_t> borders{0};
    while (borders.back() < text.size())
        borders.push_back(borders.back() + CharacterAt(text, borders.back()).length);
    return borders;
}

// Whether the text comes back from Unicode, and its characters are found from each byte of it.
void ExpectWhole(const std::string& text) {
    const ConvertedText back = FromUtf8(ToUtf8(text));
    ASSERT_EQ(back.text, text) << testing::PrintToString(ToUtf8(text));
    ASSERT_TRUE(back.exact);
    const std::vector<std::size_t> borders = BordersOf(text);
    ASSERT_EQ(borders.back(), text.size());
    ASSERT_EQ(CountCharacters(text), borders.size() - 1);
    std::size_t next = 0; // the first border after the byte
    for (std::size_t at = 0; at < text.size(); ++at) {
        next += at == borders[next];
        ASSERT_EQ(CharacterBorder(text, at), borders[next - 1])
            << at << " of " << testing::PrintToString(text);
        ASSERT_EQ(NextCharacter(text, at), borders[next]) << at;
        const bool isBorder = at == borders[next - 1];
        ASSERT_EQ(PreviousCharacter(text, at), isBorder && next >= 2 ? borders[next - 2] : borders[next - 1])
            << at;
    }
}

TEST(CodePage, KnowsItsCharacters) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"the page's own", "12 m\xB2, 5 \x80, \xC4\xDF\x92", "12 m\u00B2, 5 \u20AC, \u00C4\u00DF\u2019"},
        {"bytes without a letter", "\x81\x8D\x8F\x90\x9D", "\u0081\u008D\u008F\u0090\u009D"},
        {"the first and the last of two bytes", "\x81\xE0\xE0\x81\xFF\xFF", "\u0100\u04FF"},
        {"a letter of the page among them",
         "\x81\xE2\xE1\xF3"
         "d\x81\xE3\xFA",
         "\u0141\u00F3d\u017A"},
        {"three bytes, from the controls to the half", "\x8D\xE0\xE4\xE0\x8D\xFF\xFF\xFF", "\u0080\u7FFF"},
        {"three bytes, the upper half", "\x8F\xE0\xE0\xE0\x8F\xFF\xFF\xFF", "\u8000\uFFFF"},
        {"four bytes", "\x9D\xE0\xE0\xE0\xE0\x9D\xFF\xFF\xFF\xFF", "\U00010000\U0010FFFF"},
        {"a longer form than needed", "\x8D\xE0\xE8\xE0", "\u008D\u00E0\u00E8\u00E0"},
        {"a sequence for a letter of the page", "\x8D\xE1\xE5\xF2", "\u008D\u00E1\u00E5\u00F2"},
        {"half of a pair", "\x8F\xF6\xE0\xE0", "\u008F\u00F6\u00E0\u00E0"},
        {"cut off", "\x9D\xE0\xE0\xE0", "\u009D\u00E0\u00E0\u00E0"},
        {"quoted", "\x81\x90\xE0\xE0", "\u0081\u00E0\u00E0"},
        {"quoted twice", "\x81\x90\x90\xE0\xE0", "\u0081\u0090\u00E0\u00E0"},
        {"a quote of nothing",
         "\x81\x90\xE0"
         "a",
         "\u0081\u0090\u00E0a"},
        {"a lead after a lead", "\x81\x81\xE0\xE0", "\u0081\u0100"},
    };
    for (const auto& [border, text, utf8] : rows) {
        EXPECT_EQ(ToUtf8(text), utf8) << border;
        EXPECT_EQ(FromUtf8(utf8).text, text) << border;
        ExpectWhole(text);
    }
}

TEST(CodePage, BringsEveryCharacterBack) {
    for (char32_t first = 0; first <= 0x10FFFF; first += 0x800) {
        if (first == 0xD800)
            continue; // halves of pairs are no characters
        std::string utf8;
        for (char32_t character = first; character < first + 0x800; ++character)
            AppendUtf8(utf8, character);
        const ConvertedText text = FromUtf8(utf8);
        ASSERT_TRUE(text.exact);
        ASSERT_EQ(ToUtf8(text.text), utf8);
        ASSERT_EQ(CountCharacters(text.text), 0x800u);
    }
}

TEST(CodePage, BringsEveryTextOfBytesBack) {
    const std::string critical = "a\x81\x8D\x8F\x90\x9D\xE0\xE4\xFF";
    std::vector<std::size_t> digits(5);
    for (bool isDone = false; !isDone;) {
        std::string text;
        for (const std::size_t digit : digits)
            text.push_back(critical[digit]);
        ASSERT_NO_FATAL_FAILURE(ExpectWhole(text));
        std::size_t place = 0;
        while (place < digits.size() && ++digits[place] == critical.size())
            digits[place++] = 0;
        isDone = place == digits.size();
    }
    std::mt19937 random(1252);
    const auto upTo = [&](std::size_t last) {
        return std::uniform_int_distribution<std::size_t>(0, last)(random);
    };
    for (int round = 0; round < 20'000; ++round) {
        std::string text(upTo(12), '\0');
        for (char& byte : text)
            byte = upTo(3) > 0 ? critical[upTo(critical.size() - 1)] : static_cast<char>(upTo(255));
        ASSERT_NO_FATAL_FAILURE(ExpectWhole(text));
    }
}

TEST(CodePage, BringsTextsOfCharactersBack) {
    const char32_t critical[] = {'a',  0x81, 0x8D, 0x8F,  0x90,   0x9D,   0xE0,
                                 0xE4, 0xF6, 0xFF, 0x141, 0x3042, 0x9000, 0x1F600};
    std::mt19937 random(437);
    std::uniform_int_distribution<std::size_t> any(0, std::size(critical) - 1);
    for (int round = 0; round < 20'000; ++round) {
        std::string utf8;
        for (std::size_t left = any(random); left > 0; --left)
            AppendUtf8(utf8, critical[any(random)]);
        ASSERT_EQ(ToUtf8(FromUtf8(utf8).text), utf8);
    }
}

TEST(CodePage, ReadsHostileTextsInOnePass) {
    constexpr std::size_t Many = 200'000; // a cost with the square of it would take minutes
    const std::string quotes = "\x81" + std::string(Many, '\x90') + "\xE0\xE0";
    for (const std::string& text : {std::string(Many, '\x81'), std::string(Many, '\xE0'), quotes}) {
        const std::string utf8 = ToUtf8(text);
        EXPECT_EQ(FromUtf8(utf8).text, text);
        EXPECT_EQ(CountCharacters(text), utf8.size() / 2);
    }
}

TEST(CodePage, ShowsWhatIsNoCharacter) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"a tail byte alone", "a\x80z", "a?z"},
        {"cut off in the middle", "a\xE2\x82", "a?"},
        {"too long a form of three bytes", "\xE0\x80\xAF", "???"},
        {"a surrogate", "\xED\xA0\x80", "???"},
        {"above the last character", "\xF4\x90\x80\x80", "????"},
        {"bytes that never occur", "\xFE\xFF", "??"},
    };
    for (const auto& [border, utf8, bytes] : cases) {
        const ConvertedText result = FromUtf8(utf8);
        EXPECT_EQ(result.text, bytes) << border;
        EXPECT_FALSE(result.exact) << border;
    }
}

TEST(CodePage, FoldsCase) {
    EXPECT_EQ(FoldCase("AZaz[\xC0\xD6\xDE\xDF\x8A\x8C\x8E\x9F"), "azaz[\xE0\xF6\xFE\xDF\x9A\x9C\x9E\xFF");
    EXPECT_EQ(FoldCase("\xD7\xF7"), "\xD7\xF7") << "the signs of multiplication and division are no letters";
    EXPECT_EQ(ToUtf8(FoldCase(FromUtf8("\u0141\u00D3D\u0179 \u0428\u212A \U00010400").text)),
              "\u0142\u00F3d\u017A \u0448k \U00010428");
    EXPECT_EQ(ToUtf8(FoldCase("\x81\xC0\xC1")), "\u0081\u00E0\u00E1") << "small letters make no sequence";
}

TEST(CodePage, CutsAndComparesWholeCharacters) {
    const std::string text = FromUtf8("a\u0141\U0001F600z").text; // 1, 3, 5 and 1 bytes
    for (const auto& [longest, length] : {std::pair(0, 0), {1, 1}, {3, 1}, {4, 4}, {8, 4}, {9, 9}, {99, 10}})
        EXPECT_EQ(CutCharacters(text, longest).size(), length) << longest;
    EXPECT_EQ(Abbreviate(text, 10), text);
    EXPECT_EQ(Abbreviate(text, 8), FromUtf8("a\u0141...").text);
    EXPECT_EQ(Abbreviate(std::string(99, '\n'), 99), std::string(29, '\n') + "...");
    EXPECT_TRUE(BeginsWith(text, FromUtf8("a\u0141").text));
    EXPECT_TRUE(BeginsWith(text, ""));
    EXPECT_FALSE(BeginsWith(text, "a\x81")) << "half a letter is another one";
    EXPECT_FALSE(BeginsWith("a", "ab"));
    EXPECT_TRUE(BeginsWith("\x81\x90\xE0\xE0", "\x81")) << "the quote has no character of its own";
}

} // namespace
} // namespace korvel::platform
