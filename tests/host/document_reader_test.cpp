#include "source/blanks.h"
#include "source/document_reader.h"
#include "source/source_error.h"
#include "source/source_file.h"
#include "source/source_text.h"
#include "support/scratch.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace korvel::inspector {
namespace {

using ::testing::HasSubstr;

std::string Repeat(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

ElementTree Read(const std::string& bytes) {
    return ReadElements(DecodeDocument(bytes).text);
}

std::string Utf16(const std::u16string& text, bool bigEndian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

struct BadDocument {
    const char* name;
    std::string bytes;
    std::size_t line;
    std::size_t position;
    const char* reason;
};

void PrintTo(const BadDocument& document, std::ostream* out) {
    *out << document.name;
}

class BadDocuments : public ::testing::TestWithParam<BadDocument> {};

TEST_P(BadDocuments, AreRefusedWithTheirPlace) {
    try {
        Read(GetParam().bytes);
        FAIL() << "was read";
    } catch (const SourceError& error) {
        EXPECT_THAT(error.what(), HasSubstr(GetParam().reason));
        EXPECT_EQ(error.Place().line, GetParam().line);
        EXPECT_EQ(error.Place().position, GetParam().position);
    }
}

const BadDocument Refused[] = {
    {"OnlyBlanks", " \n ", 2, 2, "not XML"},
    {"Picture", "\x89PNG\r\n", 1, 1, "not XML"},
    {"OnlyComment", "<!-- x -->", 1, 11, "no element"},
    {"CutInElement", "<a>\n <b>x", 2, 6, "ends inside the element 'b', which begins in line 2"},
    {"CutInTag", "<a><b c='1'", 1, 12, "ends inside a tag"},
    {"CutInName", "<", 1, 2, "a name is expected"},
    {"CutInValue", "<a>\r\n<b c='1", 2, 4, "the value of the attribute 'c' does not end"},
    {"CutInComment", "<a><!-- ", 1, 4, "inside a comment"},
    {"CutInSection", "<a><![CDATA[ ", 1, 4, "inside a character section"},
    {"CutInDocumentType", "<!DOCTYPE a [", 1, 1, "inside a document type"},
    {"WrongEnd", "<a>\n<b></a>", 2, 4, "the element 'b' is closed by 'a'"},
    {"WrongEndOfLongName", "<a></" + std::string(59, 'x') + "\xC3\xA4>", 1, 4, "xxx...'"},
    {"EndWithoutStart", "<a/></a>", 1, 5, "'a' is closed but not open"},
    {"SecondRoot", "<a/>\n<b/>", 2, 1, "a second root element"},
    {"TextBehindRoot", "<a/>\n x", 2, 2, "text outside the root element"},
    {"EndOfSectionInText", "<a>x]]></a>", 1, 5, "ends no character section"},
    {"SectionOutside", "<![CDATA[x]]><a/>", 1, 1, "text outside the root element"},
    {"LateDeclaration", "\n<?xml version='1.0'?><a/>", 2, 3, "does not stand at the beginning"},
    {"AttributeTwice", "<a b='1' c='' b='2'/>", 1, 15, "the attribute 'b' stands here twice"},
    {"AttributeWithoutValue", "<a b/>", 1, 5, "the attribute 'b' has no value"},
    {"AttributeWithoutQuotes", "<a b=1/>", 1, 6, "not in quotes"},
    {"AttributesWithoutBlank", "<a b='1'c='2'/>", 1, 9, "a blank is expected"},
    {"MarkupInAttribute", "<a b='x<y'/>", 1, 8, "'<' is not allowed"},
    {"EndTagInStartTag", "<a / >", 1, 4, "'>' is expected"},
    {"UndefinedEntity", "<a>x&nbsp;</a>", 1, 5, "the reference '&nbsp;' is not defined"},
    {"BareAmpersand", "<a>R & D</a>", 1, 6, "'&' begins no reference"},
    {"ReferenceToZero", "<a b='&#0;'/>", 1, 7, "not defined"},
    {"ReferenceToSurrogate", "<a>&#xD800;</a>", 1, 4, "not defined"},
    {"EntityBomb", "<!DOCTYPE a [\n<!ENTITY b \"bbbb\">\n<!ENTITY c \"&b;&b;\">]><a>&c;</a>", 2, 1,
     "declares entities"},
    {"ControlCharacter", "<a>\n\x01</a>", 2, 1, "U+0001 is not allowed"},
    {"NotUtf8", "<a>\xC3\xA4\xE4</a>", 1, 5, "not UTF-8"},
    {"OverlongUtf8", "<a>\xC0\xAF</a>", 1, 4, "not UTF-8"},
    {"LatinTextInUtf8", "<?xml version='1.0' encoding='UTF-8'?><a>\xE4</a>", 1, 42,
     "not in the declared encoding 'UTF-8'"},
    {"UnknownEncoding", "<?xml version='1.0' encoding='KOI8-R'?><a/>", 1, 31,
     "the encoding 'KOI8-R' is not known"},
    {"TwoBytesDeclaredOneFound", "<?xml version='1.0' encoding='UTF-16'?><a/>", 1, 31, "one byte"},
    {"OneByteDeclaredTwoFound", Utf16(u"\uFEFF<?xml version='1.0' encoding='utf-8'?><a/>", false), 1, 31,
     "UTF-16"},
    {"MarkAgainstDeclaration", "\xEF\xBB\xBF<?xml version='1.0' encoding='ISO-8859-1'?><a/>", 1, 31,
     "mark of UTF-8"},
    {"HalfAPair", Utf16(u"<a>\xD800</a>", false), 1, 4, "half a character"},
    {"HalfAUnit", Utf16(u"<a/>", false) + "x", 1, 5, "cut off"},
    {"TooDeep", Repeat("<a>", 1001), 1, 3001, "deeper than 1,000 levels"},
    {"LongAttribute", "<a\nb='" + std::string(10'000'001, 'x') + "'/>", 2, 1, "longer than 10 MB"},
    {"LongNamespace", "<a><b xmlns:c='" + std::string(1001, 'x') + "'/></a>", 1, 7,
     "longer than 1,000 characters"},
    {"LongName", "<" + std::string(1001, 'x') + "/>", 1, 2, "longer than 1,000 characters"},
};
INSTANTIATE_TEST_SUITE_P(Documents, BadDocuments, ::testing::ValuesIn(Refused),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(DocumentReader, ReadsWhatIsRareButAllowed) {
    const ElementTree tree =
        Read("<?xml version='1.0'?>\n<!DOCTYPE a SYSTEM \"x>y\" [<!ELEMENT a ANY> <!-- ]> -->]>\n"
             "<!-- c --><?pi ?>" +
             Repeat("<a b = '>' c=\"'\" >", 1000) + Repeat("</a >", 1000) + "<!-- end -->\n");
    EXPECT_EQ(tree.Count(), 1000u);
    EXPECT_EQ(tree.FindAttribute(999, "b"), ">");
    EXPECT_EQ(tree.FindAttribute(999, "c"), "'");
}

// A walk over both trees; names, values and texts must be the same.
void ExpectSame(const ElementTree& tree, ElementIndex element, pugi::xml_node node) {
    ASSERT_EQ(tree.Name(element), node.name());
    std::size_t count = 0;
    for (const AttributeSource& attribute : tree.Attributes(element)) {
        EXPECT_EQ(DecodeAttribute(attribute.value, LongestAttribute).utf8,
                  node.attribute(std::string(attribute.name).c_str()).value());
        ++count;
    }
    EXPECT_EQ(count, static_cast<std::size_t>(std::distance(node.attributes_begin(), node.attributes_end())));
    if (!tree.HasChildren(element)) {
        std::string text;
        for (const pugi::xml_node piece : node.children())
            text += piece.value();
        EXPECT_EQ(DecodeText(tree.Text(element), text.size() + 1).utf8, Trim(text));
    }
    pugi::xml_node child = node.find_child([](pugi::xml_node n) { return n.type() == pugi::node_element; });
    for (const ElementIndex own : tree.Children(element)) {
        ExpectSame(tree, own, child);
        do
            child = child.next_sibling();
        while (child && child.type() != pugi::node_element);
    }
    EXPECT_FALSE(child);
}

TEST(DocumentReader, AgreesWithPugixml) {
    const std::string rare =
        "<a b='&#65;&lt;\t\r\nx&#10;'><!--c--><b> x&amp;<![CDATA[<y>&amp;]]><!-- n -->\r\nz </b>t<b/></a>";
    for (const char* name : {"railway.xml", "imperial.xml", ""}) {
        SCOPED_TRACE(name);
        const std::string bytes = *name ? ReadSourceFile(std::string(KORVEL_TEST_DATA "/") + name) : rare;
        pugi::xml_document expected;
        ASSERT_TRUE(
            expected.load_buffer(bytes.data(), bytes.size(), pugi::parse_default | pugi::parse_ws_pcdata));
        ExpectSame(Read(bytes), 0, expected.document_element());
    }
}

TEST(ElementTree, KeepsThePlaceOfEveryValue) {
    const ElementTree tree = Read("<a k=' v '>\n <b> x </b>one<b/>two</a>");
    EXPECT_EQ(tree.OffsetOf(tree.FindAttribute(0, "k")), 6u);
    EXPECT_EQ(tree.OffsetOf(tree.Text(1).raw), 17u);
    EXPECT_TRUE(tree.Text(1).IsPlain());
    EXPECT_EQ(tree.Text(0).raw, "one");
    EXPECT_FALSE(tree.Text(0).IsPlain()) << "a second text follows";
    EXPECT_EQ(tree.FindAttribute(0, "v").data(), nullptr);
}

TEST(ElementTree, FindsTheInnermostNamespace) {
    const ElementTree tree = Read("<a xmlns='o' xmlns:p='q'><b xmlns=''><c xmlns:p='r'/><d/></b><e/></a>");
    EXPECT_EQ(tree.NamespaceOf(0, ""), "o");
    EXPECT_EQ(tree.NamespaceOf(2, ""), "");
    EXPECT_EQ(tree.NamespaceOf(2, "p"), "r");
    EXPECT_EQ(tree.NamespaceOf(3, "p"), "q");
    EXPECT_EQ(tree.NamespaceOf(4, ""), "o");
    EXPECT_EQ(tree.NamespaceOf(4, "z"), "");
}

TEST(DocumentEncoding, ReadsEveryEncodingOfTheField) {
    const std::u16string wide = u"<?xml version='1.0' encoding='UTF-16'?><a>\u00E4\u20AC\U0001F600</a>";
    struct Case {
        const char* name;
        std::string bytes;
        std::string text;
        TextEncoding encoding;
        bool hasMark;
    };
    const std::string declared1252 = "<?xml version=\"1.0\" encoding=\"Windows-1252\" ?><a>";
    const std::string declared1 = "<?xml version='1.0' encoding = 'ISO-8859-1'?><a>";
    const Case cases[] = {
        {"no declaration", "<a>\xC3\xA4</a>", "\xC3\xA4", TextEncoding::Utf8, false},
        {"mark", "\xEF\xBB\xBF<a>\xC3\xA4</a>", "\xC3\xA4", TextEncoding::Utf8, true},
        {"mark and declaration", "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?><a>x</a>", "x",
         TextEncoding::Utf8, true},
        {"euro of 1252", declared1252 + "\x80\xE4</a>", "\xE2\x82\xAC\xC3\xA4", TextEncoding::Windows1252,
         false},
        {"umlaut of 8859", declared1 + "\xE4</a>", "\xC3\xA4", TextEncoding::Latin1, false},
        {"little endian, mark", Utf16(u"\uFEFF" + wide, false), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80",
         TextEncoding::Utf16LittleEndian, true},
        {"big endian, mark", Utf16(u"\uFEFF" + wide, true), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80",
         TextEncoding::Utf16BigEndian, true},
        {"big endian, no mark", Utf16(wide, true), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80",
         TextEncoding::Utf16BigEndian, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        DecodedDocument document = DecodeDocument(c.bytes);
        EXPECT_EQ(document.encoding, c.encoding);
        EXPECT_EQ(document.hasByteOrderMark, c.hasMark);
        const ElementTree tree = ReadElements(std::move(document.text));
        EXPECT_EQ(tree.Text(0).raw, c.text);
    }
}

std::string ReasonOf(const std::string& path) {
    try {
        LoadDocument(path);
        return "was read";
    } catch (const DocumentError& error) {
        return error.Utf8Text();
    }
}

TEST(SourceFile, TellsWhatCannotBeRead) {
    const platform::ScratchFolder folder;
    const std::string path = folder.Path() / "b\xC3\xA4"
                                             "d.xml";
    EXPECT_EQ(ReasonOf(path), path + ": no such file");
    EXPECT_EQ(ReasonOf(folder.Path()), folder.Path().string() + ": is a folder");
    std::ofstream(path).flush();
    EXPECT_EQ(ReasonOf(path), path + ": is empty");
    std::ofstream(path) << "<a>\n<b>";
    EXPECT_EQ(ReasonOf(path),
              path +
                  ": line 2, position 4: the document ends inside the element 'b', which begins in line 2");
    chmod(path.c_str(), 0);
    if (geteuid() != 0) // who may read everything
        EXPECT_EQ(ReasonOf(path), path + ": no permission to read it");
    const std::string pipe = folder.Path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(ReasonOf(pipe), pipe + ": is not a regular file") << "and nobody waited for a writer";
}

} // namespace
} // namespace korvel::inspector
