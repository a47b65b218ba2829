#include "korvel/documents/xml_reader.h"
#include "korvel/platform/error.h"
#include "support/scratch.h"

#include <fstream>
#include <gtest/gtest.h>

namespace korvel::internal {
namespace {

class XmlReader : public testing::Test {
protected:
    // The text of the element "b" of a file, or of the failure, from which the file's name is taken off.
    std::string Read(const std::string& path) {
        try {
            pugi::xml_document document;
            ReadXmlFile(path, document);
            return RequireText(RequireChild(document, "a"), "b");
        } catch (const Error& error) {
            const std::string text = error.what();
            return text.starts_with(path) ? text.substr(path.size()) : text;
        }
    }

    std::string ReadContent(std::string_view content) {
        std::ofstream(m_path, std::ios::binary) << content;
        return Read(m_path);
    }

    platform::ScratchFolder m_folder;
    std::string m_path = m_folder.Path() / "file.xml";
};

TEST_F(XmlReader, NamesFileLinePositionAndReason) {
    const std::string mismatch = "(line 2, position 8: Start-end tags mismatch)";
    const std::u16string_view wide = u"\uFEFF<a>\n <b>_</a>";
    const std::pair<std::string, std::string> contents[] = {
        {"<a>\n <b>\xC3\xBC</a>", mismatch},
        {{reinterpret_cast<const char*>(wide.data()), 2 * wide.size()}, mismatch},
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n <b>\xFC</a>", mismatch},
        {std::string("<a/>\n\0<b/>", 10), "(line 2, position 1: Zero byte)"},
        {"", "(line 1, position 1: No document element found)"},
    };
    for (const auto& [content, failure] : contents)
        EXPECT_EQ(ReadContent(content), failure) << content;
    const std::string place = "(line 0, position 0: ";
    EXPECT_EQ(Read(m_folder.Path()), place + "Is a directory)");
    EXPECT_EQ(Read(platform::MakeSocketFile(m_folder.Path() / "socket")), place + "Invalid argument)");
    EXPECT_EQ(Read("/missing/Br\xC3\xBCgg"), "/missing/Br\xFCgg" + place + "No such file or directory)");
}

TEST_F(XmlReader, GivesTheBytesOfTheCharactersOrRefuses) {
    const std::string schema = "The given XML-Stream is not a valid schema (look at KorvelXML-Schemata) !";
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"every escape", "<b>&quot;&amp;&apos;&lt;&gt;&#65;&#xFC;</b>", "\"&'<>A\xFC"},
        {"escaped line ends", "<b>&#xD;x&#xA;</b>", "\rx\n"},
        {"characters up to 255", "<b>\xC2\x80\xC3\xBF</b>", "\x80\xFF"},
        {"blanks only", "<b> \t </b>", " \t "},
        {"empty", "<b/>", ""},
        {"line end only, as after an empty opening tag", "<b>\n</b>", ""},
        {"the same from another system", "<b>\r\n</b>", ""},
        {"two line ends", "<b>\n\n</b>", "\n\n"},
        {"comment and literal section", "<b>x<!-- c -->y<![CDATA[<&>]]></b>", "xy<&>"},
        {"declared entity", "<b>&x;</b>", "&x;"},
        {"element inside", "<b>x<c>y</c>z</b>", "xz"},
        {"character 256", "<b>\xC4\x80</b>", schema},
        {"cut off", "<b>\xC3</b>", schema},
        {"longer form than needed", "<b>\xC0\x80</b>", schema},
        {"another case, and not directly below", "<B>1</B><c><b>2</b></c>", schema},
    };
    for (const auto& [name, content, text] : cases)
        EXPECT_EQ(ReadContent("<!DOCTYPE a [<!ENTITY x \"xx\">]><a>" + content + "</a>"), text) << name;
}

} // namespace
} // namespace korvel::internal
