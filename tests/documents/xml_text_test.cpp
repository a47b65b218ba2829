#include "korvel/documents/xml_error.h"
#include "korvel/documents/xml_text.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

TEST(XmlText, StandsForCharacters) {
    const Table<const char*, const char*, const char*> cases = {
        {"references", "&#65;&lt;&amp;amp;&#x20AC;", "A<&amp;\xE2\x82\xAC", "A<&amp;\xE2\x82\xAC"},
        {"white space", "a\t\r\n\rb\n", "a   b ", "a\t\n\nb\n"},
        {"referenced white space stays", "&#9;&#13;&#10;", "\t\r\n", "\t\r\n"},
    };
    for (const auto& [name, raw, attribute, text] : cases) {
        EXPECT_EQ(DecodeXmlAttribute(raw, 100).utf8, attribute) << name;
        EXPECT_EQ(DecodeXmlText(raw, std::string::npos).utf8, text) << name;
    }
    EXPECT_EQ(DecodeXmlText("a<!-- & --><![CDATA[<b>&amp;\r\n]]>c<?pi ?>\r\n", 100).utf8, "a<b>&amp;\nc\n");
    EXPECT_THROW(DecodeXmlText("a & b", 100), XmlError);
    EXPECT_THROW(DecodeXmlText("a <!-- b", 100), XmlError);
}

TEST(XmlText, IsCutBetweenCharacters) {
    const std::tuple<const char*, std::size_t, const char*, bool> cases[] = {
        {"abc", 3, "abc", true},
        {"abcd", 3, "abc", false},
        {"ab&#x20AC;", 4, "ab", false},
        {"ab&#x20AC;", 5, "ab\xE2\x82\xAC", true},
        {"ab\xC3\xA4", 3, "ab", false},
        {"a &lt;", 2, "a ", false},
        {"", 0, "", true},
        {"a", 0, "", false},
    };
    for (const auto& [raw, longest, utf8, complete] : cases)
        for (const XmlCharacters& cut : {DecodeXmlAttribute(raw, longest), DecodeXmlText(raw, longest)}) {
            EXPECT_EQ(cut.complete, complete) << raw;
            EXPECT_EQ(cut.utf8, utf8) << raw;
        }
}

} // namespace
} // namespace korvel
