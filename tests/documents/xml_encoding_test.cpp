#include "korvel/documents/xml_encoding.h"
#include "support/xml_refusals.h"

namespace korvel {
namespace {

using ::testing::EndsWith;

std::string Utf16(const std::u16string& text, bool bigEndian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

TEST(XmlEncoding, IsTakenFromMarkOrDeclaration) {
    const std::u16string wide = u"<?xml version='1.0' encoding='UTF-16'?><a>\u00E4\u20AC\U0001F600</a>";
    struct Case {
        const char* name;
        std::string bytes;
        std::string text;
        XmlEncoding encoding;
        bool hasMark;
    };
    const std::string declared1252 = "<?xml version=\"1.0\" encoding=\"Windows-1252\" ?><a>";
    const std::string declared1 = "<?xml version='1.0' encoding = 'ISO-8859-1'?><a>";
    const Case cases[] = {
        {"no declaration", "<a>\xC3\xA4</a>", "\xC3\xA4", XmlEncoding::Utf8, false},
        {"mark", "\xEF\xBB\xBF<a>\xC3\xA4</a>", "\xC3\xA4", XmlEncoding::Utf8, true},
        {"mark and declaration", "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?><a>x</a>", "x",
         XmlEncoding::Utf8, true},
        {"euro of 1252", declared1252 + "\x80\xE4</a>", "\xE2\x82\xAC\xC3\xA4", XmlEncoding::Windows1252,
         false},
        {"umlaut of 8859", declared1 + "\xE4</a>", "\xC3\xA4", XmlEncoding::Latin1, false},
        {"little endian, mark", Utf16(u"\uFEFF" + wide, false), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80",
         XmlEncoding::Utf16LittleEndian, true},
        {"big endian, mark", Utf16(u"\uFEFF" + wide, true), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80",
         XmlEncoding::Utf16BigEndian, true},
        {"big endian, no mark", Utf16(wide, true), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80",
         XmlEncoding::Utf16BigEndian, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const DecodedXml document = DecodeXml(c.bytes);
        EXPECT_EQ(document.encoding, c.encoding);
        EXPECT_EQ(document.hasByteOrderMark, c.hasMark);
        EXPECT_THAT(document.text, EndsWith("<a>" + c.text + "</a>"));
    }
}

TEST(XmlEncoding, RefusesWhatItCannotBeWithThePlace) {
    const std::vector<XmlRefusal> rows = {
        {"only blanks", " \n ", 2, 2, "not XML"},
        {"a picture", "\x89PNG\r\n", 1, 1, "not XML"},
        {"control character", "<a>\n\x01</a>", 2, 1, "U+0001 is not allowed"},
        {"not UTF-8", "<a>\xC3\xA4\xE4</a>", 1, 5, "not UTF-8"},
        {"longer form than needed", "<a>\xC0\xAF</a>", 1, 4, "not UTF-8"},
        {"Latin text declared as UTF-8", "<?xml version='1.0' encoding='UTF-8'?><a>\xE4</a>", 1, 42,
         "not in the declared encoding 'UTF-8'"},
        {"unknown encoding", "<?xml version='1.0' encoding='KOI8-R'?><a/>", 1, 31,
         "the encoding 'KOI8-R' is not known"},
        {"two bytes declared, one found", "<?xml version='1.0' encoding='UTF-16'?><a/>", 1, 31, "one byte"},
        {"one byte declared, two found", Utf16(u"\uFEFF<?xml version='1.0' encoding='utf-8'?><a/>", false), 1,
         31, "UTF-16"},
        {"mark against declaration", "\xEF\xBB\xBF<?xml version='1.0' encoding='ISO-8859-1'?><a/>", 1, 31,
         "mark of UTF-8"},
        {"half a pair", Utf16(u"<a>\xD800</a>", false), 1, 4, "half a character"},
        {"half a unit", Utf16(u"<a/>", false) + "x", 1, 5, "cut off"},
    };
    ExpectRefusals(rows, DecodeXml);
}

} // namespace
} // namespace korvel
