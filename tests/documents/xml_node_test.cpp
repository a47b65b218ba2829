#include "documents/xml_node.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace korvel {
namespace {

TEST(XmlNode, NestsAsTheObjectsDo) {
    std::ostringstream file;
    {
        CXmlNode road(file, "Road");
        road.GetAttributes().Set("name", "A<\"1\">");
        road.GetAttributes().Set("id", 7);
        road.WriteOpeningTag();
        CXmlNode neverOpened(file, "Ghost");
        CXmlNode width(file, "Width");
        width.SetText("3 & 4");
        width.WriteOpeningTag();
    }
    EXPECT_EQ(file.str(), "<Road id=\"7\" name=\"A&lt;&quot;1&quot;&gt;\">\n"
                          "<Width>3 & 4</Width>\n"
                          "</Road>\n");
}

TEST(XmlNode, RefusesNamesOfMarkupBeforeAnythingIsWritten) {
    const std::pair<const char*, char> cases[] = {{"", 0},       {"a b", ' '},  {"a\"", '"'}, {"&a", '&'},
                                                  {"a'b", '\''}, {"a<b>", '<'}, {">", '>'}};
    for (const auto& [name, refused] : cases) {
        SCOPED_TRACE(name);
        std::ostringstream file;
        try {
            CXmlNode node(file, name);
            ADD_FAILURE() << "accepted";
        } catch (const CXmlNodeBase::CXmlNodeException& exception) {
            EXPECT_EQ(exception.GetCharacter(), refused);
        }
        CXmlNode node(file, "Node");
        EXPECT_THROW(node.GetAttributes().Set(name, "value"), CXmlNodeBase::CXmlNodeException);
        EXPECT_TRUE(node.GetAttributes().GetValues().empty());
        EXPECT_EQ(file.str(), "");
    }
}

TEST(XmlNode, EscapesEachByte) {
    // A line feed and a carriage return change into each other; files that exist are written so.
    EXPECT_EQ(EscapeXmlText("\n\r"), "&#xD;&#xA;");
    EXPECT_EQ(EscapeXmlText("\"&'<>"), "&quot;&amp;&apos;&lt;&gt;");
    EXPECT_EQ(EscapeXmlText("\x7F\x80\xFC\xFF"), "\x7F\xC2\x80\xC3\xBC\xC3\xBF");
    EXPECT_EQ(EscapeXmlText("\t z"), "\t z");
}

TEST(XmlNode, WritesEveryTypeOfAttributeAsDecimalText) {
    CXmlAttributeSet attributes;
    attributes.Set("a", std::numeric_limits<std::uint64_t>::max());
    attributes.Set("b", std::numeric_limits<std::int64_t>::min());
    attributes.Set("c", std::numeric_limits<std::uint32_t>::max());
    attributes.Set("d", std::numeric_limits<std::int32_t>::min());
    attributes.Set("e", static_cast<unsigned char>(200));
    attributes.Set("f", 0.1);
    attributes.Set("g", -std::numeric_limits<double>::max());
    attributes.Set("h", std::chrono::year_month_day(std::chrono::year(2026), std::chrono::month(3),
                                                    std::chrono::day(9)));
    attributes.Set("i", "earlier");
    attributes.Set("i", std::string("later"));
    const CXmlAttributeSet::Values expected = {{"a", "18446744073709551615"},
                                               {"b", "-9223372036854775808"},
                                               {"c", "4294967295"},
                                               {"d", "-2147483648"},
                                               {"e", "200"},
                                               {"f", "0.1"},
                                               {"g", "-1.7976931348623157e+308"},
                                               {"h", "2026-03-09"},
                                               {"i", "later"}};
    EXPECT_EQ(attributes.GetValues(), expected);

    std::ostringstream file;
    CXmlNode node(file, "Node");
    node.GetAttributes().Set("i", "own");
    node.GetAttributes().Set("own", "kept");
    node.CopyAttributes(attributes);
    EXPECT_EQ(node.GetAttributes().GetValues().at("i"), "later");
    EXPECT_EQ(node.GetAttributes().GetValues().at("own"), "kept");
}

TEST(XmlNode, LetsNoFailureOfItsStreamOutOfTheDestructor) {
    std::ostringstream file;
    {
        CXmlNode node(file, "Node");
        node.WriteOpeningTag();
        file.exceptions(std::ios::badbit);
        EXPECT_THROW(file.setstate(std::ios::badbit), std::ios::failure);
    }
    EXPECT_EQ(file.str(), "<Node>\n");
}

} // namespace
} // namespace korvel
