#include "../platform/scratch.h"
#include "documents/xml_reader.h"
#include "platform/error.h"

#include <fstream>
#include <gtest/gtest.h>

namespace korvel {
namespace {

constexpr const char* SchemaText =
    "The given XML-Stream is not a valid schema (look at KorvelXML-Schemata) !";

class XmlReader : public testing::Test {
protected:
    void Read(std::string_view content) {
        std::ofstream(m_path, std::ios::binary) << content;
        ReadXmlFile(m_path, m_document);
    }

    std::string FailureOf(const std::string& path) {
        try {
            ReadXmlFile(path, m_document);
        } catch (const Error& error) {
            return error.what();
        }
        return "no failure";
    }

    std::string FailureOfContent(std::string_view content) {
        std::ofstream(m_path, std::ios::binary) << content;
        const std::string text = FailureOf(m_path);
        return text.starts_with(m_path) ? text.substr(m_path.size()) : text;
    }

    std::string TextOf(std::string_view content) {
        Read(std::string("<a><b>").append(content).append("</b></a>"));
        return RequireText(RequireChild(m_document, "a"), "b");
    }

    platform::ScratchFolder m_folder;
    std::string m_path = m_folder.Path() / "file.xml";
    pugi::xml_document m_document;
};

std::string Utf16(std::string_view ascii) {
    std::string text = "\xFE\xFF";
    for (const char byte : ascii)
        text.append(1, '\0').append(1, byte);
    return text;
}

TEST_F(XmlReader, NamesFileLinePositionAndReason) {
    EXPECT_EQ(FailureOfContent("<a>\n <b>\xC3\xBC</a>"), "(line 2, position 8: Start-end tags mismatch)");
    EXPECT_EQ(FailureOfContent(Utf16("<a>\n <b>_</a>")), "(line 2, position 8: Start-end tags mismatch)");
    EXPECT_EQ(FailureOfContent("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n <b>\xFC</a>"),
              "(line 2, position 8: Start-end tags mismatch)");
    EXPECT_EQ(FailureOfContent(std::string_view("<a/>\n\0<b/>", 10)), "(line 2, position 1: Zero byte)");
    EXPECT_EQ(FailureOfContent(""), "(line 1, position 1: No document element found)");
    EXPECT_EQ(FailureOfContent("no XML"), "(line 1, position 7: No document element found)");
}

TEST_F(XmlReader, SaysWhyAFileCannotBeRead) {
    const std::string folder = m_folder.Path();
    const std::pair<std::string, const char*> cases[] = {
        {folder + "/missing", "No such file or directory"},
        {m_path + "/below", "Not a directory"},
        {folder, "Is a directory"},
        {"/dev/zero", "Invalid argument"},
        {"", "No such file or directory"},
    };
    std::ofstream(m_path) << "<a/>";
    for (const auto& [path, reason] : cases)
        EXPECT_EQ(FailureOf(path), path + "(line 0, position 0: " + reason + ")");
    EXPECT_EQ(FailureOf("/missing/Br\xC3\xBCgg"),
              "/missing/Br\xFCgg(line 0, position 0: No such file or directory)");
}

TEST_F(XmlReader, GivesTheBytesOfTheCharacters) {
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"every escape", "&quot;&amp;&apos;&lt;&gt;&#65;&#xFC;", "\"&'<>A\xFC"},
        {"escaped line ends", "&#xD;x&#xA;", "\rx\n"},
        {"characters up to 255", "\xC2\x80\xC3\xBF", "\x80\xFF"},
        {"blanks only", " \t ", " \t "},
        {"blanks around", " x ", " x "},
        {"empty", "", ""},
        {"line end only, as behind an empty opening tag", "\n", ""},
        {"the same from another system", "\r\n", ""},
        {"two line ends", "\n\n", "\n\n"},
        {"comment inside", "x<!-- c -->y", "xy"},
        {"literal section", "x<![CDATA[<&>]]>", "x<&>"},
        {"undeclared entity", "&x;", "&x;"},
        {"element inside", "x<c>y</c>z", "xz"},
    };
    for (const auto& [name, content, text] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(TextOf(content), text);
    }
}

TEST_F(XmlReader, RefusesWhatIsNoByteAndWhatIsMissing) {
    const std::pair<const char*, std::string> cases[] = {{"character 256", "\xC4\x80"},
                                                         {"euro sign", "&#x20AC;"},
                                                         {"cut off", "\xC3"},
                                                         {"not continued", "\xC3x"},
                                                         {"continuation alone", "\x80"},
                                                         {"longer form than needed", "\xC0\x80"},
                                                         {"four bytes", "\xF0\x9F\x9A\x82"}};
    for (const auto& [name, content] : cases) {
        SCOPED_TRACE(name);
        try {
            TextOf(content);
            ADD_FAILURE() << "accepted";
        } catch (const Error& error) {
            EXPECT_STREQ(error.what(), SchemaText);
        }
    }
    Read("<a><x><b>1</b></x><B>2</B></a>");
    EXPECT_THROW(RequireText(RequireChild(m_document, "a"), "b"), Error);
    EXPECT_THROW(RequireChild(m_document, "b"), Error);
}

TEST_F(XmlReader, ExpandsNoDeclaredEntity) {
    Read("<!DOCTYPE a [<!ENTITY x \"xxxxxxxxxx\"><!ENTITY y \"&x;&x;&x;&x;&x;&x;&x;&x;&x;\">]>"
         "<a><b>&y;&y;</b></a>");
    EXPECT_EQ(RequireText(RequireChild(m_document, "a"), "b"), "&y;&y;");
}

} // namespace
} // namespace korvel
