#include "german_machine.h"
#include "output/format_persistence.h"
#include "platform/error.h"

#include <fstream>
#include <random>
#include <sstream>

namespace korvel {
namespace {

constexpr const char* SchemaText =
    "The given XML-Stream is not a valid schema (look at KorvelXML-Schemata) !";

class SavedFormats : public GermanMachine {
protected:
    void Write(const std::string& content) { std::ofstream(m_path, std::ios::binary) << content; }

    std::string Read() const {
        std::ostringstream content;
        content << std::ifstream(m_path, std::ios::binary).rdbuf();
        return content.str();
    }

    std::string Saved() const {
        SaveFormatStates(m_path.c_str());
        return Read();
    }

    /// Loads the file with a part replaced wherever it stands, and answers the text of the failure.
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
            return error.what();
        }
        return "";
    }

    platform::ScratchFolder m_folder;
    std::string m_path = m_folder.Path() / "formats.xml";
    std::string m_good = Saved();
};

/// The elements of a format in the file.
std::string Element(const std::string& name, const std::string& system, int digits,
                    const std::string& decimal, const std::string& thousand) {
    return "<" + name + ">\n<System>" + system + "</System>\n<NumDigits>" + std::to_string(digits) +
           "</NumDigits>\n<LeadingZero>1</LeadingZero>\n<Grouping>3</Grouping>\n<DecimalSep>" + decimal +
           "</DecimalSep>\n<ThousandSep>" + thousand +
           "</ThousandSep>\n<NegativeOrder>1</NegativeOrder>\n</" + name + ">\n";
}

TEST_F(SavedFormats, AreExactlyThisText) {
    CNumberFormat own = GermanFormat(4);
    own.SetDecimalSep("&\xFC");
    own.SetThousandSep("");
    SetFormatLong(own);
    SetAngleFormatFloat(own);
    SetAngleUnit('g');
    SetDateCurrentFormatString(false, "<%d>\n%m");
    const std::string following = Element("Integer", "-1", 0, ",", ".");
    EXPECT_EQ(Saved(),
              "<FORMATS>\n<NumberFormat>\n" + following + Element("Long", "0", 4, "&amp;\xC3\xBC", "\n") +
                  Element("Float", "-1", 2, ",", ".") + Element("Double", "-1", 2, ",", ".") +
                  "</NumberFormat>\n<AngleFormat>\n<Angle>2</Angle>\n" +
                  Element("Float", "0", 4, "&amp;\xC3\xBC", "\n") + Element("Double", "-1", 2, ",", ".") +
                  "</AngleFormat>\n<DateFormat>\n"
                  "<CurrentFormat>&lt;%d&gt;&#xD;%m</CurrentFormat>\n"
                  "<DefaultTime>%H:%M:%S</DefaultTime>\n"
                  "<DateFormatLong>%A, %#d. %B %Y</DateFormatLong>\n"
                  "<DateFormatShort>&lt;%d&gt;&#xD;%m</DateFormatShort>\n"
                  "</DateFormat>\n</FORMATS>\n");
}

class RandomFormats {
public:
    explicit RandomFormats(unsigned seed) : m_random(seed) {}

    CNumberFormat Format() {
        CNumberFormat format;
        format.NumDigits = static_cast<std::uint32_t>(m_random());
        format.LeadingZero = Below(2);
        format.Grouping = Below(4000);
        format.NegativeOrder = Below(6);
        format.SetDecimalSep(Text(3));
        format.SetThousandSep(Text(3));
        return format;
    }

    /// Any bytes but the two line ends, which change into each other, and zero.
    std::string Text(std::uint32_t longest) {
        std::string text(Below(longest + 1), ' ');
        for (char& byte : text) {
            do
                byte = static_cast<char>(1 + Below(255));
            while (byte == '\n' || byte == '\r');
        }
        return text;
    }

    std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>(m_random() % bound); }

private:
    std::mt19937 m_random;
};

TEST_F(SavedFormats, ComeBackAsTheyWere) {
    CNumberOutput& numbers = CNumberOutput::Instance();
    CAngleOutput& angles = CAngleOutput::Instance();
    for (unsigned seed = 0; seed < 30; ++seed) {
        RandomFormats random(seed);
        const CNumberFormat number = random.Format();
        const CNumberFormat angle = random.Format();
        const SDateFormats dates = {random.Text(20), random.Text(20), random.Text(20), random.Text(20)};
        const std::uint32_t unit = random.Below(5);
        numbers.ReplaceFormat(ENumberRecord::Float, number);
        angles.ReplaceFormat(EAngleRecord::Double, angle);
        angles.SetUnit(unit);
        CDateOutput::Instance().Formats() = dates;
        const std::string saved = Saved();

        numbers.ReplaceFormat(ENumberRecord::Float, CNumberFormat());
        angles.ReplaceFormat(EAngleRecord::Double, CNumberFormat());
        CDateOutput::Instance().Formats() = {};
        LoadFormatStates(m_path.c_str());
        EXPECT_EQ(numbers.Format(ENumberRecord::Float), number);
        EXPECT_EQ(angles.Format(EAngleRecord::Double), angle);
        EXPECT_EQ(angles.Unit(), unit) << "a unit that is none stays the number it is";
        EXPECT_EQ(Saved(), saved);
    }
}

TEST_F(SavedFormats, LineEndsChangeIntoEachOther) {
    CNumberFormat format = GermanFormat(2);
    format.SetDecimalSep("\n");
    format.SetThousandSep("\r\n");
    SetFormatDouble(format);
    Saved();
    LoadFormatStates(m_path.c_str());
    EXPECT_STREQ(GetFormatDouble().DecimalSep, "\r");
    EXPECT_STREQ(GetFormatDouble().ThousandSep, "\n\r");
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
    for (const char* truth : {"TRUE", "1", "no", "FALSE", " "}) {
        const std::string whole = Element("Integer", "-1", 0, ",", ".");
        const std::string alone = "<Integer><System>" + std::string(truth) + "</System></Integer>";
        EXPECT_EQ(FailureWith(whole, alone), "") << "the rest of a following format is not needed";
    }
    for (const char* untruth : {"false", "0", "", "\n"}) {
        SCOPED_TRACE(untruth);
        const std::string element = "<System>" + std::string(untruth) + "</System>";
        EXPECT_EQ(FailureWith("<System>-1</System>\n<NumDigits>0</NumDigits>", element), SchemaText);
    }
}

TEST_F(SavedFormats, FailBySchema) {
    const std::string following = "<Integer>\n<System>-1</System>";
    const std::string own = "<Integer>\n<System>0</System>";
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"other root", "FORMATS", "FORMAT"},
        {"section missing", "AngleFormat", "X"},
        {"record missing", "Integer", "integer"},
        {"angle unit missing", "<Angle>1</Angle>", ""},
        {"angle unit negative", "<Angle>1", "<Angle>-1"},
        {"angle unit beyond 32 bits", "<Angle>1", "<Angle>4294967296"},
        {"number empty", following + "\n<NumDigits>0", own + "<NumDigits>"},
        {"number with a blank", following + "\n<NumDigits>0", own + "<NumDigits> 0"},
        {"number with more behind", following + "\n<NumDigits>0", own + "<NumDigits>0x"},
        {"number nested too deep", following, own + "<NumDigits><NumDigits>1</NumDigits></NumDigits>"},
        {"separator of four bytes", following, own + "<DecimalSep>abcd</DecimalSep>"},
        {"separator of another page", following, own + "<DecimalSep>&#x2019;</DecimalSep>"},
        {"date format missing", "DateFormatShort", "X"},
    };
    for (const auto& [name, part, other] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(FailureWith(part, other), SchemaText);
    }
}

TEST_F(SavedFormats, KeepWhatWasReadBeforeAFailureAndTellEachTouchedServiceOnce) {
    CNumberFormat own = GermanFormat(5);
    SetFormatFloat(own);
    SetFormatDouble(own);
    SetAngleUnit('g');
    m_good = Saved();
    LoadFormatStates(m_path.c_str());
    SetFormatFloat(GermanFormat(1));
    SetFormatDouble(GermanFormat(1));
    SetAngleUnit('r');

    const CountingSink numbers(EFormatService::Number);
    const CountingSink angles(EFormatService::Angle);
    const CountingSink dates(EFormatService::Date);
    const std::string damaged = Element("Double", "0", 5, ",", ".");
    EXPECT_EQ(FailureWith(damaged, "<Double><System>0</System><NumDigits>6</NumDigits></Double>"),
              SchemaText);
    EXPECT_EQ(GetFormatFloat().NumDigits, 5U);
    EXPECT_EQ(GetFormatDouble().NumDigits, 6U) << "the record itself is taken as far as it was read";
    EXPECT_EQ(GetAngleUnit(), 'r') << "the load stopped before it";
    EXPECT_EQ(numbers.count, 1);
    EXPECT_EQ(angles.count, 0);
    EXPECT_EQ(dates.count, 0);

    Write(m_good);
    LoadFormatStates(m_path.c_str());
    EXPECT_EQ(numbers.count, 2);
    EXPECT_EQ(angles.count, 1);
    EXPECT_EQ(dates.count, 1);
}

class ThrowingSink final : public IFormatSink {
public:
    ThrowingSink() { NotificationOf(EFormatService::Number).AddSink(this); }
    ~ThrowingSink() { NotificationOf(EFormatService::Number).RemoveSink(this); }
    void OnFormatChanged(EFormatService) override { throw Error("sink"); }
};

TEST_F(SavedFormats, TellTheOtherServicesWhenAListenerThrows) {
    const CountingSink angles(EFormatService::Angle);
    const ThrowingSink throwing;
    try {
        LoadFormatStates(m_path.c_str());
        ADD_FAILURE() << "the failure of the listener is lost";
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "sink");
    }
    EXPECT_EQ(angles.count, 1);
    EXPECT_EQ(FailureWith("<DateFormatShort>", "<DateFormatShort/><DateFormatShort>"), "sink");
    EXPECT_EQ(FailureWith("<Angle>1", "<Angle>x"), SchemaText) << "the failure of the load comes first";
}

TEST_F(SavedFormats, ChangeNothingWhenTheFileIsNoXml) {
    const CountingSink numbers(EFormatService::Number);
    const std::string cut = "</FORMATS>";
    EXPECT_EQ(FailureWith(cut, "").substr(0, m_path.size() + 6), m_path + "(line ");
    EXPECT_THROW(LoadFormatStates(nullptr), Error);
    EXPECT_THROW(SaveFormatStates(nullptr), Error);
    EXPECT_EQ(numbers.count, 0);
}

} // namespace
} // namespace korvel
