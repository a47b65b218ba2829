#include "korvel/documents/xml_parser.h"
#include "support/xml_refusals.h"

namespace korvel {
namespace {

// Reads a document piece by piece and writes down what the pieces hold.
std::string Pieces(XmlParser parser) {
    std::string pieces;
    for (XmlParser::Piece piece; (piece = parser.Next()) != XmlParser::Piece::Finished;)
        if (piece == XmlParser::Piece::Text)
            pieces += "[" + std::string(parser.Raw()) + "]";
        else if (piece == XmlParser::Piece::EndTag)
            pieces += "/" + std::string(parser.Name()) + std::to_string(parser.Level());
        else {
            pieces += "<" + std::string(parser.Name());
            for (const XmlAttribute& attribute : parser.Attributes())
                pieces += " " + std::string(attribute.name) + "=" + std::string(attribute.value);
            pieces += ">";
        }
    return pieces;
}

std::string Read(std::string_view document) {
    return Pieces(XmlParser(document));
}

std::string Repeat(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

TEST(XmlParser, ReadsWhatIsRareButAllowed) {
    EXPECT_EQ(Read("<?xml version = '1.1'\tencoding=\"x-1_.A\" standalone='no' ?>\n"
                   "<!DOCTYPE a SYSTEM \"x>y\" [<!ELEMENT a ANY> <!-- ]> --><?pi ]> ?>]>"
                   "<!-- c --><?pi ?><\xC3\xA4:_.-9 b = '>' c=\"'\" xmlns:\xC3\xA4='u' "
                   ">&lt;]]&#x10FFFF;<![CDATA[]<&]]>"
                   "<b xml:lang='' xmlns:c='v' c:d=''/></\xC3\xA4:_.-9\t>\r\n<!-- end --><?pi ?>"),
              "<\xC3\xA4:_.-9 b=> c=' xmlns:\xC3\xA4=u>[&lt;]]&#x10FFFF;][<![CDATA[]<&]]>]"
              "<b xml:lang= xmlns:c=v c:d=>/b1/\xC3\xA4:_.-90");
    EXPECT_EQ(Read(Repeat("<a>", 1000) + Repeat("</a>", 1000)).substr(3000, 6), "/a999/");
}

TEST(XmlParser, RefusesWhatIsNotWellFormedWithItsPlace) {
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
        {"cut in an element", "<a>\n <b>x", 2, 6, "ends inside the element 'b', which begins in line 2"},
        {"only a comment", "<!-- x -->", 1, 11, "no element"},
        {"dashes in a comment", "<!-- a -- b -->", 1, 8, "'--' is not allowed"},
        {"end of a section in text", "<a>x]]></a>", 1, 5, "ends no character section"},
        {"attribute without value", "<a b/>", 1, 5, "the attribute 'b' has no value"},
        {"attribute without quotes", "<a b=1/>", 1, 6, "not in quotes"},
        {"attributes without blank", "<a b='1'c='2'/>", 1, 9, "a blank is expected"},
        {"attribute twice", "<a b='1' c='' b='2' d=3/>", 1, 15, "the attribute 'b' is here twice"},
        {"value without its second quote", "<a b='1>\n<c d='&x;'/></a>", 2, 1,
         "holds '<', or it does not end"},
        {"name that begins with a digit", "<a 1='x'/>", 1, 4, "a name is expected"},
        {"undefined entity", "<a>x&nbsp;</a>", 1, 5, "the reference '&nbsp;' is not defined"},
        {"before the end of a section", "<a>&nbsp;]]></a>", 1, 4, "is not defined"},
        {"ampersand", "<a>\xC3\xA4\xF0\x9F\x98\x80 & D</a>", 1, 7, "'&' begins no reference"},
        {"far end of a reference", "<a>&" + std::string(64, 'x') + ";</a>", 1, 4, "'&' begins no reference"},
        {"reference to zero", "<a b='&#0;'/>", 1, 7, "not defined"},
        {"reference to a surrogate", "<a>&#xD800;</a>", 1, 4, "not defined"},
        {"reference beyond Unicode", "<a>&#1114112;</a>", 1, 4, "not defined"},
        {"reference beyond 32 bits", "<a>&#4294967361;</a>", 1, 4, "not defined"},
        {"reference with a rest", "<a>&#65x;</a>", 1, 4, "not defined"},
        {"entity bomb", "<!DOCTYPE a [\n<!ENTITY b \"bbbb\">\n<!ENTITY c \"&b;&b;\">]><a>&c;</a>", 2, 1,
         "declares entities"},
        {"long name", "<" + std::string(1001, 'x') + "/>", 1, 2, "longer than 1,000 bytes"},
        {"wrong end", "<a>\n<b></a>", 2, 4, "the element 'b' is closed by 'a'"},
        {"end without start", "<a/></a>", 1, 5, "'a' is closed but not open"},
        {"second root", "<a/>\n<b/>", 2, 1, "a second root element"},
        {"text after the root", "<a/>\n x", 2, 2, "text outside the root element"},
        {"section before the root", "<![CDATA[x]]><a/>", 1, 1, "text outside the root element"},
        {"document type in the root", "<a><!DOCTYPE a></a>", 1, 4, "no declaration is allowed here"},
        {"end tag in a start tag", "<a / >", 1, 4, "'>' is expected"},
        {"too deep", Repeat("<a>", 1001), 1, 3001, "deeper than 1,000 levels"},
        {"prefix that is not declared", "<a>\n<p:b q:c=''/></a>", 2, 2, "the prefix 'p' is not declared"},
        {"prefix of an attribute", "<a xmlns:p='u' q:c=''/>", 1, 16, "the prefix 'q' is not declared"},
        {"prefix of a brother", "<a><b xmlns:p='u'/><p:c/></a>", 1, 21, "the prefix 'p' is not declared"},
        {"prefix for nothing", "<a xmlns:p=''/>", 1, 4, "stands for nothing"},
        {"two colons", "<a xmlns:p='u'><p:b:c/></a>", 1, 17, "not a prefix, ':' and a name"},
        {"prefix that only attributes have", "<xmlns:a/>", 1, 2, "the prefix 'xmlns' is not declared"},
        {"two document types", "<!DOCTYPE a><!DOCTYPE a><a/>", 1, 13, "no declaration is allowed here"},
        {"document type without name", "<!DOCTYPE ><a/>", 1, 11, "a name is expected"},
        {"document type without blank", "<!DOCTYPEa><a/>", 1, 10, "a blank is expected"},
        {"instruction without blank", "<a><?b+c?></a>", 1, 7, "a blank is expected"},
        {"declaration in capitals", "<?XML version='1.0'?><a/>", 1, 3, "the name 'XML'"},
        {"late declaration", "\r<?xml version='1.0'?><a/>", 2, 3, "is not at the beginning"},
        {"declaration without version", "<?xml encoding='UTF-8'?><a/>", 1, 7, "holds 'encoding' where"},
        {"declaration of nothing", "<?xml ?><a/>", 1, 7, "says no version"},
        {"declaration of XML 2", "<?xml version='2.0'?><a/>", 1, 16, "not 1.0"},
        {"declaration in another order", "<?xml version='1.0' standalone='no' encoding='UTF-8'?><a/>", 1, 37,
         "holds 'encoding' where"},
        {"declaration of more", "<?xml version='1.0' level='1'?><a/>", 1, 21, "holds 'level' where"},
        {"declaration with '>' alone", "<?xml version='1.0'><a/>", 1, 20, "'?>' is expected"},
        {"encoding that is no name", "<?xml version='1.0' encoding='8 bit'?><a/>", 1, 31, "no name of an"},
    };
    ExpectRefusals(rows, Read);
}

// The bytes after the text are wrong; whatever the text itself does wrong comes first.
TEST(XmlParser, TellsTheFirstFaultOfAFileWhateverItsKind) {
    const XmlFault fault{"wrong bytes"};
    const char* const cutOff[] = {
        "",           " ",         "<",          "<a",     "<a b",      "<a b='x&am", "<a b='x",
        "<a/",        "<a>x",      "<a>&am",     "<a><!-", "<a><!-- -", "<a><![CDA",  "<a><![CDATA[]]",
        "<!DOCTY",    "<!DOCTYPE", "<!DOCTYPE ", "<?pi?",  "<a></b",    "<a/>",       "<a/><!",
        "<?xml vers", "<a>]]",     "<?pi ",      "<a/> <", "<p:a",      "<a c='' c"};
    std::vector<XmlRefusal> rows = {{"reference", "<a b='& x", 1, 7, "no reference"},
                                    {"markup in a value", "<a b='<", 1, 7, "holds '<'"},
                                    {"wrong end", "<a></b>", 1, 4, "is closed by"},
                                    {"attribute twice", "<a b='' b='' ", 1, 9, "twice"},
                                    {"second root", "<a/><b", 1, 5, "second root"},
                                    {"no blank", "<a b=''c", 1, 8, "a blank"},
                                    {"wrong end before its '>'", "<a></b ", 1, 4, "is closed by"},
                                    {"attribute twice before its value", "<a b='1' b='", 1, 10, "twice"},
                                    {"attribute twice before another fault", "<a b='1' b=<", 1, 10, "twice"}};
    for (const char* text : cutOff)
        rows.push_back({text, text, 1, std::string_view(text).size() + 1, "wrong bytes"});
    ExpectRefusals(
        rows, [&](const std::string& text) { Pieces(XmlParser(text, fault)); });
    EXPECT_THAT([&] { Pieces(XmlParser("<a>", fault)); },
                testing::Throws<XmlError>(testing::Property(&XmlError::GetCause, XmlError::Cause::Encoding)));
}

TEST(XmlParser, ReasonsAreShortAndInBothEncodings) {
    const std::string piece = std::string(59, 'x') + "\xC3\xA4"
                                                     "y";
    EXPECT_EQ(XmlError::Quoted(piece), "'" + std::string(59, 'x') + "...'") << "cut before the umlaut";
    const XmlError error("<a/>", 99, {"%1 is 100 %, not %2", {XmlError::Quoted("\xC3\xA4")}});
    EXPECT_EQ(error.Reason(), "'\xC3\xA4' is 100 %, not %2");
    EXPECT_STREQ(error.what(), "'\xE4' is 100 %, not %2");
    EXPECT_EQ(error.Place().position, 5u) << "the end of the document";
    EXPECT_TRUE(XmlScanner("<a/>", 99).AtEnd());
}

} // namespace
} // namespace korvel
