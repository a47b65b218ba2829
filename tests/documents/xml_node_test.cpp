#include "korvel/documents/xml_node.h"

#include <gmock/gmock.h>
#include <sstream>

namespace korvel {
namespace {

TEST(XmlNode, NestsAsTheObjectsDo) {
    std::ostringstream file;
    {
        CXmlNode road(file, "Road");
        road.GetAttributes().Set("name", "A");
        road.GetAttributes().Set("name", std::string("<\"1\">"));
        road.GetAttributes().Set("id", 7);
        road.WriteOpeningTag();
        CXmlNode neverOpened(file, "Ghost");
        CXmlNode width(road, "Width");
        width.SetText("3 & 4");
        width.WriteOpeningTag();
    }
    EXPECT_EQ(file.str(), "<Road id=\"7\" name=\"&lt;&quot;1&quot;&gt;\">\n<Width>3 & 4</Width>\n</Road>\n");
}

TEST(XmlNode, RefusesNamesOfMarkupBeforeAnythingIsWritten) {
    using Refusal = CXmlNodeBase::CXmlNodeException;
    const std::pair<const char*, char> cases[] = {{"", 0},       {"a b", ' '},  {"a\"", '"'}, {"&a", '&'},
                                                  {"a'b", '\''}, {"a<b>", '<'}, {">", '>'}};
    for (const auto& row : cases) {
        std::ostringstream file;
        CXmlAttributeSet attributes;
        const auto refuses = testing::Throws<Refusal>(testing::Property(&Refusal::GetCharacter, row.second));
        EXPECT_THAT(([&] { CXmlNode node(file, row.first); }), refuses) << row.first;
        EXPECT_THAT(([&] { attributes.Set(row.first, "value"); }), refuses) << row.first;
        EXPECT_TRUE(attributes.GetValues().empty()) << row.first;
        EXPECT_EQ(file.str(), "") << row.first;
    }
}

TEST(XmlNode, WritesValuesInDecimalsAndEscapesEachByte) {
    using namespace std::chrono;
    CXmlAttributeSet attributes;
    attributes.Set("a", ~std::uint64_t{0});
    attributes.Set("b", static_cast<unsigned char>(200));
    attributes.Set("c", -1.7976931348623157e+308);
    attributes.Set("d", year_month_day(year(2026), month(3), day(9)));
    std::ostringstream file;
    attributes.Set("e", std::int64_t{-5'000'000'000});
    CXmlNode node(file, "Node");
    node.GetAttributes().Set("b", 1); // the copy replaces it
    node.CopyAttributes(attributes);
    node.WriteOpeningTag();
    EXPECT_EQ(file.str(), "<Node a=\"18446744073709551615\" b=\"200\" c=\"-1.7976931348623157e+308\" "
                          "d=\"2026-03-09\" e=\"-5000000000\">\n");
    // A line feed and a carriage return change into each other; files that exist are written so.
    EXPECT_EQ(EscapeXmlText("\n\r\t \"&'<>\x7F\x80\xFC\xFF"),
              "&#xD;&#xA;\t &quot;&amp;&apos;&lt;&gt;\x7F\xC2\x80\xC3\xBC\xC3\xBF");
    file.exceptions(std::ios::badbit); // which must not leave the destructor of the node
    EXPECT_THROW(file.setstate(std::ios::badbit), std::ios::failure);
}

} // namespace
} // namespace korvel
