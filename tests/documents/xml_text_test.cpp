#include "korvel/documents/xml_error.h"
#include "korvel/documents/xml_text.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

TEST(XmlText, StandsForCharacters) {
    struct Case {
        const char* name;
        const char* raw;
        const char* attribute;
        const char* text;
    };
    const Case cases[] = {
        {"references", "&#65;&lt;&amp;amp;&#x20AC;", "A<&amp;\xE2\x82\xAC", "A<&amp;\xE2\x82\xAC"},
        {"white space", "a\t\r\n\rb\n", "a   b ", "a\t\n\nb\n"},
        {"referenced white space stays", "&#9;&#13;&#10;", "\t\r\n", "\t\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(DecodeXmlAttribute(c.raw, 100).utf8, c.attribute);
        EXPECT_EQ(DecodeXmlText(c.raw, std::string::npos).utf8, c.text);
    }
    EXPECT_EQ(DecodeXmlText("a<!-- & --><![CDATA[<b>&amp;\r\n]]>c<?pi ?>\r\n", 100).utf8, "a<b>&amp;\nc\n");
    EXPECT_THROW(DecodeXmlText("a & b", 100), XmlError);
    EXPECT_THROW(DecodeXmlText("a <!-- b", 100), XmlError);
}

TEST(XmlText, IsCutBetweenCharacters) {
    struct Case {
        const char* raw;
        std::size_t longest;
        const char* utf8;
        bool complete;
    };
    const Case cases[] = {
        {"abc", 3, "abc", true},
        {"abcd", 3, "abc", false},
        {"ab&#x20AC;", 4, "ab", false},
        {"ab&#x20AC;", 5, "ab\xE2\x82\xAC", true},
        {"ab\xC3\xA4", 3, "ab", false},
        {"a &lt;", 2, "a ", false},
        {"", 0, "", true},
        {"a", 0, "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.raw);
        for (const XmlCharacters& cut :
             {DecodeXmlAttribute(c.raw, c.longest), DecodeXmlText(c.raw, c.longest)}) {
            EXPECT_EQ(cut.complete, c.complete);
            EXPECT_EQ(cut.utf8, c.utf8);
        }
    }
}

} // namespace
} // namespace korvel
