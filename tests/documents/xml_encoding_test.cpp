#include "korvel/documents/xml_parser.h"
#include "support/xml_refusals.h"

#include <unicode/ucnv.h>

namespace korvel {
namespace {

using ::testing::EndsWith;

// A text as bytes of units of 2 or 4.
template <typename Unit>
std::string Wide(const std::basic_string<Unit>& text, bool bigEndian) {
    std::string bytes;
    for (const Unit unit : text)
        for (std::size_t i = 0; i < sizeof(Unit); ++i)
            bytes += static_cast<char>(unit >> 8 * (bigEndian ? sizeof(Unit) - 1 - i : i));
    return bytes;
}

void Read(const std::string& bytes) {
    const DecodedXml document = DecodeXml(bytes);
    XmlParser parser(document.text, document.fault);
    while (parser.Next() != XmlParser::Piece::Finished) {
    }
}

std::string Declared(const std::string& encoding) {
    return "<?xml version='1.0' encoding = \"" + encoding + "\"?>";
}

TEST(XmlEncoding, IsTakenFromMarkOrDeclaration) {
    const std::u16string utf16 = u"<?xml version='1.0' encoding='UTF-16'?><a>\u00E4\u20AC\U0001F600</a>";
    const std::u32string utf32 = U"<?xml version='1.0' encoding='utf-32'?><a>\u00E4\u20AC\U0001F600</a>";
    const std::string letters = "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
    const std::string tokyo = "\xE6\x9D\xB1\xE4\xBA\xAC";
    struct Case {
        const char* name;
        std::string bytes;
        std::string text;
        const char* encoding;
        bool hasMark = false;
    };
    const Case cases[] = {
        {"no declaration", "<a>\xC3\xA4</a>", "\xC3\xA4", "UTF-8"},
        {"mark", "\xEF\xBB\xBF<a>\xC3\xA4</a>", "\xC3\xA4", "UTF-8", true},
        {"mark and declaration", "\xEF\xBB\xBF" + Declared("utf8") + "<a>x</a>", "x", "UTF-8", true},
        {"every byte of 1252", Declared("CP1252") + "<a>\x80\xE4\x81</a>", "\xE2\x82\xAC\xC3\xA4\xC2\x81",
         "windows-1252"},
        {"every byte of 8859", Declared("latin1") + "<a>\xE4\x80</a>", "\xC3\xA4\xC2\x80", "ISO-8859-1"},
        {"Polish", Declared("iso-8859-2") + "<a>\xA3\xF3\x64\xBC</a>", "\xC5\x81\xC3\xB3\x64\xC5\xBA",
         "ISO-8859-2"},
        {"Russian", Declared("KOI8-R") + "<a>\xD0\xD5\xD4\xD8</a>", "\xD0\xBF\xD1\x83\xD1\x82\xD1\x8C",
         "KOI8-R"},
        {"Japanese", Declared("Shift_JIS") + "<a>\x93\x8C\x8B\x9E</a>", tokyo, "Shift_JIS"},
        {"Japanese that switches", Declared("ISO-2022-JP") + "<a>\x1B$BEl5~\x1B(B</a>", tokyo, "ISO-2022-JP"},
        {"beyond 16 bits", Declared("gb18030") + "<a>\x94\x39\xFC\x36</a>", "\xF0\x9F\x98\x80", "GB18030"},
        {"little endian, mark", Wide(u"\uFEFF" + utf16, false), letters, "UTF-16LE", true},
        {"big endian, mark", Wide(u"\uFEFF" + utf16, true), letters, "UTF-16BE", true},
        {"big endian, no mark", Wide(utf16, true), letters, "UTF-16BE"},
        {"four bytes, mark", Wide(U"\uFEFF" + utf32, false), letters, "UTF-32LE", true},
        {"four bytes, no mark", Wide(utf32, true), letters, "UTF-32BE"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const DecodedXml document = DecodeXml(c.bytes);
        EXPECT_EQ(document.encoding, c.encoding);
        EXPECT_EQ(document.hasByteOrderMark, c.hasMark);
        EXPECT_FALSE(document.fault);
        EXPECT_THAT(document.text, EndsWith("<a>" + c.text + "</a>"));
        EXPECT_EQ(EncodeXml(document.text, document.encoding, document.hasByteOrderMark), c.bytes);
    }
    EXPECT_THAT(DecodeXml(Declared("UTF-8") + "<a>\xC0</a>", "windows-1251").text,
                EndsWith("<a>\xD0\x90</a>"))
        << "whoever asks for an encoding knows better";
    EXPECT_THAT(
        DecodeXml(Wide(std::u16string(u"<?xml version='1.0' encoding='utf-8'?><a/>"), false), "UTF-16").text,
        EndsWith("<a/>"));
}

TEST(XmlEncoding, RefusesWhatItCannotBeWithThePlace) {
    const std::u16string smile = u"<a>\n<b>\U0001F600";
    const std::vector<XmlRefusal> rows = {
        {"only blanks", " \n ", 2, 2, "not XML"},
        {"a picture", "\x89PNG\r\n", 1, 1, "not XML"},
        {"control character", "<a>\n\x01</a>", 2, 1, "U+0001 is not allowed"},
        {"not UTF-8", "<a>\xC3\xA4\xE4</a>", 1, 5, "not UTF-8"},
        {"Latin text declared as UTF-8", Declared("UTF-8") + "<a>\xE4</a>", 1, 44,
         "not in the encoding 'UTF-8'"},
        {"half a character of two bytes", Declared("Shift_JIS") + "<a>\x93\x8C\x8B", 1, 49,
         "not in the encoding"},
        {"unknown encoding", Declared("KOI9") + "<a/>", 1, 33, "the encoding 'KOI9' is not known"},
        {"no letter of ASCII is itself", Declared("IBM037") + "<a/>", 1, 33, "'IBM037' is not read"},
        {"some bytes of ASCII are others", Declared("UTF-7") + "<a/>", 1, 33, "'UTF-7' is not read"},
        {"ends in half a sign without a fault", Declared("HZ-GB-2312") + "<a/>", 1, 33, "is not read"},
        {"compressed", Declared("SCSU") + "<a/>", 1, 33, "'SCSU' is not read"},
        {"letter in the declaration", "<?xml version='1.0' \xC3\xA4='x'?><a/>", 1, 21, "is expected"},
        {"two bytes declared, one found", Declared("UTF-16") + "<a/>", 1, 33, "one byte"},
        {"four bytes declared, one found", Declared("UTF-32LE") + "<a/>", 1, 33, "one byte"},
        {"one byte declared, two found",
         Wide(std::u16string(u"\uFEFF<?xml version='1.0' encoding='utf-8'?><a/>"), false), 1, 31,
         "the bytes are UTF-16"},
        {"two bytes declared, four found",
         Wide(std::u32string(U"<?xml version='1.0' encoding='utf-16'?><a/>"), true), 1, 31,
         "the bytes are UTF-32"},
        {"the other byte order declared",
         Wide(std::u16string(u"\uFEFF<?xml version='1.0' encoding='UTF-16BE'?><a/>"), false), 1, 31,
         "the bytes are UTF-16LE"},
        {"mark against declaration", "\xEF\xBB\xBF" + Declared("ISO-8859-1") + "<a/>", 1, 33,
         "mark of UTF-8"},
        {"half a pair", Wide(std::u16string(u"<a>\xD800</a>"), false), 1, 4, "half a character"},
        {"low half of a pair first", Wide(std::u16string(u"<a>\xDC00\xD800</a>"), true), 1, 4,
         "half a character"},
        {"half a pair in four bytes", Wide(std::u32string(U"<a>\xD800</a>"), false), 1, 4, "not UTF-32"},
        {"beyond Unicode", Wide(std::u32string(U"<a>\x110000</a>"), true), 1, 4, "not UTF-32"},
        {"half a pair that is a letter of its own", Declared("CESU-8") + "<a>\xED\xA0\x80</a>", 1, 45,
         "U+D800 is not allowed"},
        {"half a unit", Wide(std::u16string(u"<a/>"), false) + "x", 1, 5, "cut off"},
        {"after a pair", Wide(smile + u"</a>", true), 2, 5, "the element 'b' is closed by 'a'"},
        {"after a pair, the other order", Wide(smile + u"\x2", false), 2, 5, "U+0002"},
        {"wrong bytes first", "<a>\xFF<b></a>", 1, 4, "not UTF-8"},
        {"wrong end first", "<a><b></a>\xFF", 1, 7, "the element 'b' is closed by 'a'"},
        {"nothing but wrong bytes", "<\xFF", 1, 2, "not UTF-8"},
    };
    ExpectRefusals(rows, Read);
}

TEST(XmlEncoding, ReplacesWrongBytesWhereItIsAskedTo) {
    const std::string mark = "\xEF\xBF\xBD";
    struct Case {
        const char* name;
        std::string bytes;
        std::string text;
        std::size_t offset;
    };
    const Case cases[] = {
        {"UTF-8", "<a>\xC3\xA4\xE4\xFF</a>", "<a>\xC3\xA4" + mark + mark + "</a>", 5},
        {"half a pair", Wide(std::u16string(u"<a>\xD800x</a>"), false), "<a>" + mark + "x</a>", 3},
        {"beyond Unicode", Wide(std::u32string(U"<a>\x110000</a>"), true), "<a>" + mark + "</a>", 3},
        {"half a unit at the end", Wide(std::u16string(u"<a/>"), false) + "x", "<a/>" + mark, 4},
        {"Japanese", Declared("Shift_JIS") + "<a>\xFFx\x93</a>",
         Declared("Shift_JIS") + "<a>" + mark + "x" + mark + "</a>", 47},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const DecodedXml document = DecodeXml(c.bytes, {}, WrongBytes::Replace);
        EXPECT_EQ(document.text, c.text);
        EXPECT_FALSE(document.fault);
        ASSERT_TRUE(document.replaced);
        EXPECT_EQ(document.replaced->offset, c.offset);
    }
    EXPECT_FALSE(DecodeXml("<a>x</a>", {}, WrongBytes::Replace).replaced);
    EXPECT_TRUE(DecodeXml("<a>\xFF\x01</a>", {}, WrongBytes::Replace).fault) << "no character of XML";
}

TEST(XmlEncoding, WritesNoCharacterThatTheEncodingLacks) {
    struct Case {
        const char* encoding;
        const char* held;
        const char* lacking;
    };
    const Case cases[] = {{"ISO-8859-1", "\xC3\xA4", "\xE2\x82\xAC"},
                          {"windows-1252", "\xE2\x82\xAC", "\xC5\x81"},
                          {"windows-1252", "\xC2\x81", "\xC2\x80"}, // 80 is the euro there
                          {"KOI8-R", "\xD0\xBF", "\xC3\xA4"},
                          {"Shift_JIS", "\xE6\x9D\xB1", "\xF0\x9F\x98\x80"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.encoding);
        EXPECT_TRUE(EncodeXml(c.held, c.encoding));
        EXPECT_FALSE(EncodeXml(c.lacking, c.encoding));
    }
    const std::string longText = std::string(4094, 'x') + "\xF0\x9F\x98\x80" + std::string(9000, 'y');
    EXPECT_EQ(DecodeXml("<" + *EncodeXml(longText, "GB18030"), "GB18030").text, "<" + longText);
}

// Each encoding of ICU is refused by its name, or reads its own declaration, and a fault in the last byte is
// there.
TEST(XmlEncoding, NoEncodingOfIcuLosesText) {
    int readable = 0;
    for (std::int32_t i = 0; i < ucnv_countAvailable(); ++i) {
        const std::string name = ucnv_getAvailableName(i);
        SCOPED_TRACE(name);
        if (name.find(',') != std::string::npos)
            continue; // no name for a declaration
        const std::string text = Declared(name) + "<a>x1</a>";
        try {
            const DecodedXml document = DecodeXml(text);
            ASSERT_EQ(document.text, text);
            ASSERT_EQ(EncodeXml(text, document.encoding), text);
            ++readable;
        } catch (const XmlError& error) {
            EXPECT_EQ(error.GetCause(), XmlError::Cause::Encoding);
            continue;
        }
        for (int byte = 0x80; byte < 0x100; ++byte) {
            const DecodedXml document = DecodeXml(text + static_cast<char>(byte));
            ASSERT_TRUE(document.text.starts_with(text)) << byte;
            ASSERT_NE(document.fault.has_value(), document.text.size() > text.size()) << byte;
        }
    }
    EXPECT_GT(readable, 100);
}

} // namespace
} // namespace korvel
