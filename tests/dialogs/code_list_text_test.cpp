#include "korvel/dialogs/code_list_text.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

TEST(CodeListText, IsReadAndWrittenBack) {
    using Pairs = std::vector<CodePair>;
    for (const auto& [text, pairs, written] :
         Table<Pairs, std::string>{{"", {}, ""},
                                   {"a:b;c:d", {{"a", "b"}, {"c", "d"}}, "a:b;c:d"},
                                   {";;a:b;", {{"a", "b"}}, "a:b"},
                                   {"a", {{"", "a"}}, ":a"},
                                   {":;a:", {{"", ""}, {"a", ""}}, ":;a:"},
                                   {" a : b ; ", {{" a ", " b "}, {"", " "}}, " a : b ;: "}}) {
        EXPECT_EQ(ParseCodeList(text), pairs) << text;
        EXPECT_EQ(WriteCodeList(pairs), written) << text;
    }
    for (const auto& [border, pair, fits] :
         Table<CodePair, bool>{{"plain", {"a b", "1,5"}, true},
                               {"colon in the value", {"", "a:b"}, true},
                               {"colon in the code", {"a:", "b"}, false},
                               {"semicolon in the code", {";a", "b"}, false},
                               {"semicolon in the value", {"a", "b;"}, false}})
        EXPECT_EQ(CanHoldPair(pair), fits) << border;
}

} // namespace
} // namespace korvel
