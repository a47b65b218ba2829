#include "korvel/documents/xml_text.h"
#include "source/blanks.h"
#include "source/document_error.h"
#include "source/document_reader.h"
#include "source/gzip.h"
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

ElementTree Read(const std::string& bytes) {
    const DecodedXml document = DecodeXml(bytes);
    return ReadElements(document.text, document.fault);
}

TEST(DocumentReader, RefusesALongNamespaceAndTheFaultOfTheBytes) {
    const std::vector<XmlRefusal> rows = {
        {"long namespace", "<a><b xmlns:c='" + std::string(1001, 'x') + "'/></a>", 1, 7,
         "longer than 1,000 bytes"},
        {"bytes after the text", "<a>\xFF</a>", 1, 4, "not UTF-8"},
    };
    ExpectRefusals(rows, Read);
}

// A walk over both trees; names, values and texts must be the same.
void ExpectSame(const ElementTree& tree, ElementIndex element, pugi::xml_node node) {
    ASSERT_EQ(tree.Name(element), node.name());
    std::size_t count = 0;
    for (const XmlAttribute& attribute : tree.Attributes(element)) {
        EXPECT_EQ(DecodeXmlAttribute(attribute.value, std::string::npos).utf8,
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
        const std::string bytes =
            *name ? ReadSourceFile(std::string(KORVEL_TEST_DATA "/") + name).bytes : rare;
        pugi::xml_document expected;
        ASSERT_TRUE(
            expected.load_buffer(bytes.data(), bytes.size(), pugi::parse_default | pugi::parse_ws_pcdata));
        ExpectSame(Read(bytes), 0, expected.document_element());
    }
}

TEST(ElementTree, KeepsThePlaceOfEveryValue) {
    const ElementTree tree =
        Read("<a k=' v '>\n <b> x </b>one<!-- c --> <![CDATA[two]]> <b/>three <!-- d --></a>");
    EXPECT_EQ(tree.OffsetOf(tree.FindAttribute(0, "k")), 6u);
    EXPECT_EQ(tree.OffsetOf(tree.Text(1).raw), 17u);
    EXPECT_TRUE(tree.Text(1).IsPlain());
    ASSERT_EQ(tree.Texts(0).size(), 2u);
    const std::string_view second = tree.Texts(0)[1].raw;
    EXPECT_EQ(tree.Texts(0)[0].raw, "one<!-- c --> <![CDATA[two]]>");
    EXPECT_FALSE(tree.Text(0).IsPlain());
    EXPECT_EQ(second, "three");
    EXPECT_EQ(tree.Text(0, tree.OffsetOf(second)).raw.data(), second.data());
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

TEST(SourceFile, UnpacksGzip) {
    const platform::ScratchStore folder;
    const std::string path = folder.Path() / "a.xml.gz";
    std::string large = "<a>"; // longer than the buffer
    for (int i = 0; i < 100'000; ++i)
        large += std::to_string(i);
    const std::string two = Pack(large) + Pack("</a>");
    std::string blanks;
    blanks.resize(20'000'000, ' ');
    const std::string bomb = Pack("<a>" + blanks + "</a>");
    std::string damaged = two;
    damaged[damaged.size() / 2] ^= 1;
    const std::tuple<const char*, std::string, const char*> files[] = {
        {"two members", two, "was read"},
        {"filled up with zeros", two + std::string(512, '\0'), "was read"},
        {"cut in the data", two.substr(0, two.size() / 2), "is packed and cut off"},
        {"cut in the check", two.substr(0, two.size() - 1), "is packed and cut off"},
        {"cut in the head", two.substr(0, 2), "is packed and cut off"},
        {"cut in the head of the second", Pack("<a>") + "\x1F", "is packed and cut off"},
        {"another bit", damaged, "is packed and damaged"},
        {"other bytes after it", two + "x", "is packed, and something else follows"},
        {"a bomb", bomb, "is packed, and holds more than 4 GB or 1,000 times its size"},
    };
    for (const auto& [name, bytes, reason] : files) {
        std::ofstream(path, std::ios::binary) << bytes;
        EXPECT_THAT(ReasonOf(path), testing::EndsWith(reason)) << name;
    }
    std::string cut = two.substr(0, two.size() / 2);
    while (cut.back() == '\0') // the highest byte of what it seems to say of its size
        cut.pop_back();
    std::string unpacked;
    EXPECT_STREQ(Unpack(cut, std::string::npos, unpacked), "is packed and cut off");
    EXPECT_LE(unpacked.capacity(), cut.size() * 30) << "what is cut off says no size";
    unpacked.clear();
    unpacked.shrink_to_fit();
    const std::string packed = Pack(large + large);
    EXPECT_EQ(Unpack(packed, large.size() * 3, unpacked), nullptr);
    EXPECT_LT(unpacked.capacity(), unpacked.size() * 9 / 8) << "it takes its memory once";
}

TEST(SourceFile, NamesTheReasonWhyItCannotBeRead) {
    const platform::ScratchStore folder;
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
        EXPECT_EQ(ReasonOf(path), path + ": no permission");
    const std::string pipe = folder.Path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(ReasonOf(pipe), pipe + ": is not a regular file") << "and nobody waited for a writer";
}

} // namespace
} // namespace korvel::inspector
