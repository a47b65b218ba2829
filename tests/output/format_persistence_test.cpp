#include "korvel/documents/xml_schema_error.h"
#include "korvel/output/angle_output.h"
#include "korvel/output/angles.h"
#include "korvel/output/date_output.h"
#include "korvel/output/dates.h"
#include "korvel/output/format_persistence.h"
#include "korvel/output/number_output.h"
#include "korvel/output/numbers.h"
#include "korvel/platform/file_error.h"
#include "support/german_machine.h"

#include <fstream>
#include <random>

namespace korvel {
namespace {

using namespace internal;

constexpr const char* SchemaText =
    "The given XML-Stream is not a valid schema (look at KorvelXML-Schemata) !";

class SavedFormats : public GermanMachine {
protected:
    void Write(const std::string& content) { std::ofstream(m_path, std::ios::binary) << content; }

    std::string Saved() const {
        SaveFormatStates(m_path.c_str());
        return platform::ContentOf(m_path);
    }

    // Loads the file with a part replaced wherever it occurs, and returns the text of the failure.
    std::string FailureWith(const std::string& part, const std::string& other) {
        std::string content = m_good;
        std::size_t at = content.find(part);
        EXPECT_NE(at, std::string::npos) << part;
        for (; at != std::string::npos; at = content.find(part, at + other.size()))
            content.replace(at, part.size(), other);
        Write(content);
        try {
            LoadFormatStates(m_path.c_str());
        } catch (const Error& error) {
            const auto* schema = dynamic_cast<const XmlSchemaError*>(&error);
            m_details = schema ? schema->Details().Text() : "";
            return error.what();
        }
        return "";
    }

    std::string m_details; // of the last failure by schema
    platform::ScratchFolder m_folder;
    std::string m_path = m_folder.Path() / "formats.xml";
    std::string m_good = Saved();
};

// The elements of a format in the file.
std::string Element(const std::string& name, const char* system = "-1", const char* digits = "2",
                    const std::string& decimal = ",", const std::string& thousand = ".") {
    return "<" + name + ">\n<System>" + system + "</System>\n<NumDigits>" + digits +
           "</NumDigits>\n<LeadingZero>1</LeadingZero>\n<Grouping>3</Grouping>\n<DecimalSep>" + decimal +
           "</DecimalSep>\n<ThousandSep>" + thousand +
           "</ThousandSep>\n<NegativeOrder>1</NegativeOrder>\n</" + name + ">\n";
}

TEST_F(SavedFormats, AreExactlyThisTextAndLineEndsChangeIntoEachOther) {
    NumberFormat own = GermanFormat(4);
    own.SetDecimalSep("&\xFC");
    own.SetThousandSep("");
    SetFormatLong(own);
    own.SetDecimalSep("\r\n");
    SetAngleFormatFloat(own);
    SetAngleUnit('g');
    SetDateCurrentFormatString(false, "<%d>\n%m");
    EXPECT_EQ(Saved(), "<FORMATS>\n<NumberFormat>\n" + Element("Integer", "-1", "0") +
                           Element("Long", "0", "4", "&amp;\xC3\xBC", "\n") + Element("Float") +
                           Element("Double") + "</NumberFormat>\n<AngleFormat>\n<Angle>2</Angle>\n" +
                           Element("Float", "0", "4", "&#xA;&#xD;", "\n") + Element("Double") +
                           "</AngleFormat>\n<DateFormat>\n"
                           "<CurrentFormat>&lt;%d&gt;&#xD;%m</CurrentFormat>\n"
                           "<DefaultTime>%H:%M:%S</DefaultTime>\n"
                           "<DateFormatLong>%A, %#d. %B %Y</DateFormatLong>\n"
                           "<DateFormatShort>&lt;%d&gt;&#xD;%m</DateFormatShort>\n"
                           "</DateFormat>\n</FORMATS>\n");
    LoadFormatStates(m_path.c_str());
    EXPECT_STREQ(GetFormatLong().ThousandSep, "");
    EXPECT_STREQ(GetAngleFormatDouble().DecimalSep, "\n\r");
}

TEST_F(SavedFormats, ComeBackAsTheyWere) {
    std::mt19937 random(1);
    const auto number = [&] { return static_cast<std::uint32_t>(random()); };
    // Any bytes but controls.
    const auto text = [&](unsigned longest) {
        std::string bytes(random() % (longest + 1), ' ');
        for (char& byte : bytes)
            byte = static_cast<char>(' ' + random() % (256 - ' '));
        return bytes;
    };
    const auto format = [&] {
        NumberFormat made;
        static_cast<_numberfmtA&>(made) = {number(),        number(),         number(),
                                           made.DecimalSep, made.ThousandSep, number()};
        made.SetDecimalSep(text(3));
        made.SetThousandSep(text(3));
        return made;
    };
    for (int i = 0; i < 30; ++i) {
        const NumberFormat ofNumbers = format();
        const NumberFormat ofAngles = format();
        CNumberOutput::Instance().ReplaceFormat(NumberRecord::Float, ofNumbers);
        CAngleOutput::Instance().ReplaceFormat(AngleRecord::Double, ofAngles);
        CAngleOutput::Instance().SetUnit(number()); // one that is none stays the number that it is
        CDateOutput::Instance().Formats() = {text(20), text(20), text(20), text(20)};
        const std::string saved = Saved();
        ResetFormatStates();
        SetAngleUnit('g');
        LoadFormatStates(m_path.c_str());
        EXPECT_EQ(CNumberOutput::Instance().Format(NumberRecord::Float), ofNumbers);
        EXPECT_EQ(CAngleOutput::Instance().Format(AngleRecord::Double), ofAngles);
        EXPECT_EQ(Saved(), saved);
    }
}

TEST_F(SavedFormats, ThatFollowTheSystemLeaveThisMachinesFormatsInForce) {
    SetRegional("sDecimal", "!");
    SetFormatFloat(GermanFormat(7));
    LoadFormatStates(m_path.c_str());
    EXPECT_STREQ(GetFormatDouble().DecimalSep, "!");
    EXPECT_EQ(GetFormatFloat().NumDigits, 7U) << "what a setter changed before stays";
    SetRegional("iDigits", "1");
    EXPECT_EQ(GetFormatFloat().NumDigits, 1U) << "and follows the system from then on";
}

TEST_F(SavedFormats, ReadSystemAsTheFileSaysIt) {
    const std::pair<const char*, const char*> rows[] = {
        {"TRUE", ""},          {"1", ""},           {"no", ""},       {"FALSE", ""},    {"\n -1\t", ""},
        {"false", SchemaText}, {" 0 ", SchemaText}, {"", SchemaText}, {" ", SchemaText}};
    for (const auto& [text, failure] : rows) // only a format that follows needs no more than this
        EXPECT_EQ(FailureWith(Element("Integer", "-1", "0"),
                              "<Integer><System>" + std::string(text) + "</System></Integer>"),
                  failure)
            << text;
}

TEST_F(SavedFormats, FailBySchema) {
    const std::string following = "<Integer>\n<System>-1</System>";
    const std::string own = "<Integer>\n<System>0</System>";
    const std::string integer = Element("Integer", "-1", "0");
    struct Case {
        std::string part;
        std::string other;
        const char* details;
    };
    const Case cases[] = {
        {"FORMATS", "FORMAT", "the root element is 'FORMAT', not 'FORMATS'"},
        {"Integer", "integer", "the element 'Integer' is missing in 'NumberFormat'"},
        {"<Angle>1", "<Angle>-1", "the element 'Angle' holds '-1', which is no number"},
        {"<Angle>1", "<Angle>4294967296", "the element 'Angle' holds '4294967296', which is no number"},
        {following + "\n<NumDigits>0", own + "<NumDigits>",
         "the element 'NumDigits' holds '', which is no number"},
        {following + "\n<NumDigits>0", own + "<NumDigits>0x",
         "the element 'NumDigits' holds '0x', which is no number"},
        {integer, Element("Integer", "0", "0", "abcd"),
         "the element 'DecimalSep' holds more than three bytes"},
        {integer, Element("Integer", "0", "0", ",", "&#x2063;"), // a sequence of four
         "the element 'ThousandSep' holds more than three bytes"},
        {"DateFormatShort", "X", "the element 'DateFormatShort' is missing in 'DateFormat'"},
    };
    for (const auto& [part, other, details] : cases) {
        EXPECT_EQ(FailureWith(part, other), SchemaText) << details;
        EXPECT_EQ(m_details, details);
    }
}

TEST_F(SavedFormats, KeepWhatWasReadBeforeAFailureAndCallTheListenersOfEachTouchedServiceOnce) {
    SetFormatFloat(GermanFormat(5));
    SetFormatDouble(GermanFormat(5));
    SetAngleUnit('g');
    m_good = Saved();
    SetFormatFloat(GermanFormat(1));
    SetFormatDouble(GermanFormat(1));
    SetAngleUnit('r');

    const CountingSink sinks[] = {FormatService::Number, FormatService::Angle, FormatService::Date};
    EXPECT_EQ(FailureWith(Element("Double", "0", "5"),
                          "<Double><System>0</System><NumDigits>6</NumDigits></Double>"),
              SchemaText);
    EXPECT_EQ(GetFormatFloat().NumDigits, 5U);
    EXPECT_EQ(GetFormatDouble().NumDigits, 6U) << "the record itself is taken as far as it was read";
    EXPECT_EQ(GetAngleUnit(), 'r') << "the load stopped before it";
    EXPECT_EQ(sinks[0].count, 1);
    EXPECT_EQ(sinks[1].count, 0);
    EXPECT_EQ(sinks[2].count, 0);

    Write(m_good);
    LoadFormatStates(m_path.c_str());
    EXPECT_EQ(sinks[0].count, 2);
    EXPECT_EQ(sinks[1].count, 1);
    EXPECT_EQ(sinks[2].count, 1);

    m_good.replace(m_good.find("<CurrentFormat>"), 15, "<CurrentFormat>%Y ");
    EXPECT_EQ(FailureWith("DefaultTime", "defaultTime"), SchemaText);
    EXPECT_EQ(DatetoString(44000.0), "2020 Donnerstag, 18. Juni 2020");
    EXPECT_EQ(sinks[2].count, 2) << "half of the dates were read";
}

TEST_F(SavedFormats, CallTheListenersOfOtherServicesWhenOneThrows) {
    const CountingSink angles(FormatService::Angle);
    const CountingSink throwing(FormatService::Number, [] { throw Error("sink"); });
    EXPECT_EQ(FailureWith("<Angle>1", "<Angle>2"), "sink");
    EXPECT_EQ(angles.count, 1);
    EXPECT_EQ(FailureWith("<Angle>1", "<Angle>x"), SchemaText) << "the failure of the load comes first";
}

TEST_F(SavedFormats, ChangeNothingWhenTheFileIsRefused) {
    SetFormatInt(GermanFormat(7));
    m_good = Saved();
    SetFormatInt(GermanFormat(1));
    const CountingSink numbers(FormatService::Number);
    const std::tuple<const char*, const char*, const char*> refusals[] = {
        {"</FORMATS>", "", "(line 68, position 1: the document ends inside the element 'FORMATS'"},
        {"<CurrentFormat>", "<CurrentFormat><b/>", "(line 62, position 16: the element 'b' is inside"},
    };
    for (const auto& [part, other, failure] : refusals)
        EXPECT_THAT(FailureWith(part, other), testing::StartsWith(m_path + failure));
    EXPECT_THROW(LoadFormatStates(nullptr), UnreadableFile);
    EXPECT_THROW(SaveFormatStates(nullptr), Error);
    Write("old");
    SetDateCurrentFormatString(true, "%d\x01");
    EXPECT_THROW(SaveFormatStates(m_path.c_str()), Error) << "no XML file can hold it";
    EXPECT_EQ(platform::ContentOf(m_path), "old");
    EXPECT_EQ(numbers.count, 0);
    EXPECT_EQ(GetFormatInt().NumDigits, 1U);
}

TEST_F(SavedFormats, AreReadAsAnEditorMayHaveLaidThemOut) {
    NumberFormat own = GermanFormat(4);
    own.SetThousandSep(" ");
    SetFormatLong(own);
    m_good = Saved();
    EXPECT_EQ(FailureWith("<NumDigits>4</NumDigits>", "\n\t<NumDigits>\n 5\r\n</NumDigits>"), "");
    EXPECT_EQ(GetFormatLong().NumDigits, 5U);
    EXPECT_STREQ(GetFormatLong().ThousandSep, " ") << "a blank of a separator counts";
}

} // namespace
} // namespace korvel
