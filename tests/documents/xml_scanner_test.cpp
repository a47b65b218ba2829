#include "korvel/documents/xml_scanner.h"
#include "support/xml_refusals.h"

namespace korvel {
namespace {

// Reads a document piece by piece and writes down what the pieces hold; the order of the tags is not checked.
std::string Read(std::string_view document) {
    XmlScanner scanner(document);
    std::string pieces;
    while (!scanner.AtEnd()) {
        if (scanner.Skip("</")) {
            pieces += "/" + std::string(scanner.TakeName());
            scanner.SkipBlanks();
            scanner.Skip(">");
        } else if (scanner.IsAt("<!--")) {
            scanner.SkipComment();
        } else if (scanner.IsAt("<?")) {
            scanner.SkipInstruction();
        } else if (scanner.IsAt("<!DOCTYPE")) {
            scanner.SkipDocumentType();
        } else if (scanner.IsAt("<![CDATA[")) {
            pieces += "[" + std::string(scanner.TakeCharacterSection()) + "]";
        } else if (scanner.Skip("<")) {
            pieces += "<" + std::string(scanner.TakeName());
            for (XmlAttribute attribute; scanner.NextAttribute(attribute);)
                pieces += " " + std::string(attribute.name) + "=" + std::string(attribute.value);
            pieces += scanner.Skip("/>") || scanner.Skip(">") ? ">" : "no end";
        } else {
            pieces += scanner.TakeCharacterData();
        }
    }
    return pieces;
}

TEST(XmlScanner, ReadsWhatIsRareButAllowed) {
    EXPECT_EQ(
        Read("<?xml version='1.0'?>\n<!DOCTYPE a SYSTEM \"x>y\" [<!ELEMENT a ANY> <!-- ]> --><?pi ]> ?>]>"
             "<!-- c --><?pi ?><\xC3\xA4:_.-9 b = '>' c=\"'\" >&lt;]]&#x10FFFF;<![CDATA[]<&]]>"
             "<b/></\xC3\xA4:_.-9\t>"),
        "\n<\xC3\xA4:_.-9 b=> c='>&lt;]]&#x10FFFF;[]<&]<b>/\xC3\xA4:_.-9");
}

TEST(XmlScanner, RefusesWhatIsNotWellFormedWithItsPlace) {
    const std::vector<XmlRefusal> rows = {
        {"cut in a tag", "<a><b c='1'", 1, 12, "ends inside a tag"},
        {"cut before a name", "<", 1, 2, "a name is expected"},
        {"cut before a value", "<a b=", 1, 6, "the value of the attribute 'b' is not in quotes"},
        {"cut in a value", "<a>\r\n<b c='1", 2, 4, "the value of the attribute 'c' does not end"},
        {"cut in a comment", "<a><!-- ", 1, 4, "inside a comment"},
        {"cut in a section", "<a><![CDATA[ ", 1, 4, "inside a character section"},
        {"cut in an instruction", "<?pi >", 1, 5, "inside a processing instruction"},
        {"cut in a document type", "<!DOCTYPE a [>", 1, 1, "inside a document type"},
        {"cut in its quotes", "<!DOCTYPE a 'x>", 1, 14, "inside a quoted text"},
        {"dashes in a comment", "<!-- a -- b -->", 1, 8, "'--' is not allowed"},
        {"end of a section in text", "<a>x]]></a>", 1, 5, "ends no character section"},
        {"late declaration", "\r<?xml version='1.0'?><a/>", 2, 3, "does not stand at the beginning"},
        {"attribute without value", "<a b/>", 1, 5, "the attribute 'b' has no value"},
        {"attribute without quotes", "<a b=1/>", 1, 6, "not in quotes"},
        {"attributes without blank", "<a b='1'c='2'/>", 1, 9, "a blank is expected"},
        {"name that begins with a digit", "<a 1='x'/>", 1, 4, "a name is expected"},
        {"markup in an attribute", "<a b='x<y'/>", 1, 8, "'<' is not allowed"},
        {"undefined entity", "<a>x&nbsp;</a>", 1, 5, "the reference '&nbsp;' is not defined"},
        {"ampersand", "<a>\xC3\xA4\xF0\x9F\x98\x80 & D</a>", 1, 7, "'&' begins no reference"},
        {"far end of a reference", "<a>&" + std::string(64, 'x') + ";</a>", 1, 4, "'&' begins no reference"},
        {"reference to zero", "<a b='&#0;'/>", 1, 7, "not defined"},
        {"reference to a surrogate", "<a>&#xD800;</a>", 1, 4, "not defined"},
        {"reference beyond Unicode", "<a>&#1114112;</a>", 1, 4, "not defined"},
        {"reference beyond 32 bits", "<a>&#4294967361;</a>", 1, 4, "not defined"},
        {"reference with a rest", "<a>&#65x;</a>", 1, 4, "not defined"},
        {"entity bomb", "<!DOCTYPE a [\n<!ENTITY b \"bbbb\">\n<!ENTITY c \"&b;&b;\">]><a>&c;</a>", 2, 1,
         "declares entities"},
        {"long attribute", "<a\nb='" + std::string(10'000'001, 'x') + "'/>", 2, 1, "longer than 10 MB"},
        {"long name", "<" + std::string(1001, 'x') + "/>", 1, 2, "longer than 1,000 characters"},
    };
    ExpectRefusals(rows, Read);
}

TEST(XmlScanner, ReasonsAreShortAndInBothEncodings) {
    const std::string piece = std::string(59, 'x') + "\xC3\xA4"
                                                     "y";
    EXPECT_EQ(XmlError::Quoted(piece), "'" + std::string(59, 'x') + "...'") << "cut before the umlaut";
    const XmlError error("<a/>", 99, XmlError::Quoted("\xC3\xA4"));
    EXPECT_EQ(error.Reason(), "'\xC3\xA4'");
    EXPECT_STREQ(error.what(), "'\xE4'");
    EXPECT_EQ(error.Place().position, 5u) << "the end of the document";
    EXPECT_TRUE(XmlScanner("<a/>", 99).AtEnd());
}

} // namespace
} // namespace korvel
