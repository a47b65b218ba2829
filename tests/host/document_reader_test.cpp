#include "korvel/documents/xml_text.h"
#include "source/blanks.h"
#include "source/document_error.h"
#include "source/document_reader.h"
#include "source/source_file.h"
#include "support/scratch.h"
#include "support/xml_refusals.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace korvel::inspector {
namespace {

std::string Repeat(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

ElementTree Read(const std::string& bytes) {
    return ReadElements(DecodeXml(bytes).text);
}

TEST(DocumentReader, RefusesWhatIsNotWellFormedWithItsPlace) {
    const std::vector<XmlRefusal> rows = {
        {"only a comment", "<!-- x -->", 1, 11, "no element"},
        {"cut in an element", "<a>\n <b>x", 2, 6, "ends inside the element 'b', which begins in line 2"},
        {"wrong end", "<a>\n<b></a>", 2, 4, "the element 'b' is closed by 'a'"},
        {"end without start", "<a/></a>", 1, 5, "'a' is closed but not open"},
        {"second root", "<a/>\n<b/>", 2, 1, "a second root element"},
        {"text after the root", "<a/>\n x", 2, 2, "text outside the root element"},
        {"section before the root", "<![CDATA[x]]><a/>", 1, 1, "text outside the root element"},
        {"document type in the root", "<a><!DOCTYPE a></a>", 1, 4, "no declaration is allowed here"},
        {"attribute twice", "<a b='1' c='' b='2'/>", 1, 15, "the attribute 'b' is here twice"},
        {"end tag in a start tag", "<a / >", 1, 4, "'>' is expected"},
        {"fault in a piece", "<a>x&nbsp;</a>", 1, 5, "the reference '&nbsp;' is not defined"},
        {"too deep", Repeat("<a>", 1001), 1, 3001, "deeper than 1,000 levels"},
        {"long namespace", "<a><b xmlns:c='" + std::string(1001, 'x') + "'/></a>", 1, 7,
         "longer than 1,000 characters"},
    };
    ExpectRefusals(rows, ReadElements);
}

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
    for (const XmlAttribute& attribute : tree.Attributes(element)) {
        EXPECT_EQ(DecodeXmlAttribute(attribute.value, XmlScanner::LongestAttribute).utf8,
                  node.attribute(std::string(attribute.name).c_str()).value());
        ++count;
    }
    EXPECT_EQ(count, static_cast<std::size_t>(std::distance(node.attributes_begin(), node.attributes_end())));
    if (!tree.HasChildren(element)) {
        std::string text;
        for (const pugi::xml_node piece : node.children())
            text += piece.value();
        EXPECT_EQ(tree.Text(element).Decode(text.size() + 1).utf8, Trim(text));
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

std::string ReasonOf(const std::string& path) {
    try {
        LoadDocument(path);
        return "was read";
    } catch (const DocumentError& error) {
        return error.Utf8Text();
    }
}

TEST(SourceFile, NamesTheReasonWhyItCannotBeRead) {
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
