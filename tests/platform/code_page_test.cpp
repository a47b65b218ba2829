#include "korvel/platform/code_page.h"

#include <gtest/gtest.h>

namespace korvel::platform {
namespace {

TEST(CodePage, BringsEveryByteBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    const ConvertedText back = FromUtf8(ToUtf8(all));
    EXPECT_EQ(back.text, all);
    EXPECT_TRUE(back.exact);
}

TEST(CodePage, KnowsItsCharacters) {
    EXPECT_EQ(ToUtf8("12 m\xB2, 5 \x80, \xC4\xDF\x92"), "12 m\u00B2, 5 \u20AC, \u00C4\u00DF\u2019");
    EXPECT_EQ(ToUtf8("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
}

TEST(CodePage, ShowsWhatItCannotHold) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"letters outside the page", "\u0141\u00F3o\u017A", "?\xF3o?"},
        {"beyond the basic plane, one mark", "a\U0001F600b", "a?b"},
        {"a control number that the page uses otherwise", "\u0080", "?"},
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
}

} // namespace
} // namespace korvel::platform
