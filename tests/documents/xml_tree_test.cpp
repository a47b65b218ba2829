#include "korvel/documents/xml_error.h"
#include "korvel/documents/xml_tree.h"
#include "korvel/platform/file_error.h"
#include "support/scratch.h"

#include <fstream>
#include <gtest/gtest.h>

namespace korvel::internal {
namespace {

class XmlTree : public testing::Test {
protected:
    // The text of the element "b" of a file, or of the failure, from which the file's name is taken off.
    std::string Read(const std::string& path) {
        try {
            const XmlElement root = ReadXmlFile(path, [](std::string_view name) { return name == "b"; });
            return BytesOfXmlText(root.Child("b").text);
        } catch (const Error& error) {
            const std::string text = error.what();
            m_isUnreadable = dynamic_cast<const UnreadableFile*>(&error) != nullptr;
            return text.starts_with(path) ? text.substr(path.size()) : text;
        }
    }

    std::string ReadContent(std::string_view content) {
        std::ofstream(m_path, std::ios::binary) << content;
        return Read(m_path);
    }

    platform::ScratchFolder m_folder;
    std::string m_path = m_folder.Path() / "file.xml";
    bool m_isUnreadable = false;
};

TEST_F(XmlTree, HoldsAttributesAndElementsOfOneNameInTheirOrder) {
    const XmlElement root = ReadXmlElement("<a><b c='&lt;&#228;\tx' d=''/>text<b><c/></b></a>");
    ASSERT_EQ(root.children.size(), 2u);
    EXPECT_EQ(root.text, "text");
    EXPECT_EQ(root.children[0].attributes.at("c"), "<\xC3\xA4 x");
    EXPECT_EQ(root.children[0].attributes.at("d"), "");
    EXPECT_EQ(root.children[1].Child("c").name, "c");
    EXPECT_THROW(ReadXmlElement("<a><b></a>"), XmlError);
}

TEST_F(XmlTree, SaysWhereTheFileIsWrong) {
    const std::pair<std::string, std::string> contents[] = {
        {"<a>\n <c>\xF0\x9F\x98\x80\xC3\xBC</a>", "(line 2, position 7: the element 'c' is closed by 'a')"},
        {std::string("<a/>\n\0<b/>", 10), "(line 2, position 1: the character U+0000 is not allowed in XML)"},
        {"", "(line 1, position 1: this is not XML: it does not begin with '<')"},
        {"<a>\n<b/><c/>\n<b/></a>", "(line 3, position 1: the element 'b' is here twice)"},
        {"<a><b>x<c/></b></a>", "(line 1, position 8: the element 'c' is inside 'b', which holds a text)"},
    };
    for (const auto& [content, failure] : contents)
        EXPECT_EQ(ReadContent(content), failure) << content;
    EXPECT_FALSE(m_isUnreadable);
    const std::pair<std::string, std::string> unreadable[] = {
        {m_folder.Path(), ": Is a directory"},
        {platform::MakeSocketFile(m_folder.Path() / "socket"), ": Invalid argument"},
        {"/proc/self/mem", ": Input/output error"}, // what is at its beginning can never be read
        {"/missing/Br\xC3\xBCgg", "/missing/Br\xFCgg: No such file or directory"},
    };
    for (const auto& [path, failure] : unreadable) {
        m_isUnreadable = false;
        EXPECT_EQ(Read(path), failure);
        EXPECT_TRUE(m_isUnreadable) << path;
    }
}

TEST_F(XmlTree, GivesTheBytesOfTheCharacters) {
    const std::string schema = "The given XML-Stream is not a valid schema (look at KorvelXML-Schemata) !";
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"every escape", "<b>&quot;&amp;&apos;&lt;&gt;&#65;&#xFC;</b>", "\"&'<>A\xFC"},
        {"escaped line ends", "<b>&#xD;x&#xA;</b>", "\rx\n"},
        {"characters up to 255", "<b>\xC2\x80\xC3\xBF</b>", "\x80\xFF"},
        {"bytes of a sequence one by one", "<b>\xC2\x81\xC3\xA2\xC3\xA1</b>", "\x81\xE2\xE1"},
        {"a character beyond them, in the page and not", "<b>\xE2\x82\xAC\xC5\x81</b>", "\x80\x81\xE2\xE1"},
        {"blanks only", "<b> \t </b>", " \t "},
        {"empty", "<b/>", ""},
        {"line end only, as after an empty opening tag", "<b>\n</b>", ""},
        {"the same from another system", "<b>\r\n</b>", ""},
        {"two line ends", "<b>\n\n</b>", "\n\n"},
        {"comment and literal section", "<b>x<!-- c -->y<![CDATA[<&>]]></b>", "xy<&>"},
        {"another case, and not directly below", "<B>1</B><c><b>2</b></c>", schema},
    };
    for (const auto& [name, content, text] : cases)
        EXPECT_EQ(ReadContent("<a>\n" + content + "\n</a>"), text) << name;
}

} // namespace
} // namespace korvel::internal
