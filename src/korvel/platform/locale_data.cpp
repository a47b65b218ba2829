#include "korvel/platform/locale_data.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/date_pattern.h"
#include "korvel/platform/error.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/localebuilder.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/smpdtfmt.h>

namespace korvel::internal {
namespace {

class IcuStatus {
public:
    operator UErrorCode&() { return m_code; }
    bool HasFailed() const { return U_FAILURE(m_code); }
    // Throws Error when one of the calls before has failed.
    void Check() const {
        if (HasFailed())
            throw Error(std::string("The regional data of ICU cannot be read: ") + u_errorName(m_code));
    }

private:
    UErrorCode m_code = U_ZERO_ERROR;
};

std::string Utf8(const icu::UnicodeString& text) {
    std::string utf8;
    return text.toUTF8String(utf8);
}

// The letter below its accents.
char32_t BaseLetter(char32_t character) {
    switch (character) { // letters that Unicode does not take apart, mostly those with a stroke
    case U'\u0141':
        return U'L';
    case U'\u0142':
        return U'l';
    case U'\u0131': // the Turkish i without a dot
        return U'i';
    case U'\u0110':
        return U'D';
    case U'\u0111':
        return U'd';
    default:
        break;
    }
    IcuStatus status;
    const icu::Normalizer2* decomposition = icu::Normalizer2::getNFDInstance(status);
    status.Check();
    icu::UnicodeString parts;
    decomposition->getDecomposition(static_cast<UChar32>(character), parts);
    return parts.isEmpty() ? character : static_cast<char32_t>(parts.char32At(0));
}

// One byte a character. Nothing when one is not in the code page, even without its accents.
std::optional<std::string> Fit(const icu::UnicodeString& text) {
    std::string bytes;
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const auto character = static_cast<char32_t>(text.char32At(i));
        std::optional<char> byte = platform::FromUnicode(character);
        if (!byte)
            byte = platform::FromUnicode(BaseLetter(character));
        if (!byte)
            return std::nullopt;
        bytes.push_back(*byte);
    }
    return bytes;
}

// Numbers and dates with Western digits in the Gregorian calendar, whatever else the locale prefers.
icu::Locale DataLocale(const std::string& name) {
    IcuStatus status;
    icu::Locale locale = icu::Locale::forLanguageTag(name, status);
    locale.setKeywordValue("numbers", "latn", status);
    locale.setKeywordValue("calendar", "gregorian", status);
    status.Check();
    return locale;
}

std::string Separator(const icu::UnicodeString& symbol, std::string_view fallback) {
    icu::UnicodeString text(symbol);
    const icu::UnicodeString noBreakSpace(UChar(0xA0));
    text.findAndReplace(icu::UnicodeString(UChar(0x202F)), noBreakSpace); // the narrow one
    return Fit(text).value_or(std::string(fallback));
}

// The group sizes as the settings hold them: "3;0", or "3;2;0" where the others differ from the first.
std::string Grouping(const icu::DecimalFormat& format) {
    const int first = format.getGroupingSize();
    const int others = format.getSecondaryGroupingSize();
    if (!format.isGroupingUsed() || first <= 0)
        return "0";
    const bool differ = others > 0 && others != first;
    return std::to_string(first) + (differ ? ";" + std::to_string(others) : "") + ";0";
}

void ReadNumbers(const icu::Locale& locale, platform::RegionalSettings& settings) {
    IcuStatus status;
    const icu::DecimalFormatSymbols symbols(locale, status);
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(locale, UNUM_DECIMAL, status));
    status.Check();
    using Symbols = icu::DecimalFormatSymbols;
    settings.decimalSeparator = Separator(symbols.getConstSymbol(Symbols::kDecimalSeparatorSymbol), ".");
    settings.thousandsSeparator = Separator(symbols.getConstSymbol(Symbols::kGroupingSeparatorSymbol), ",");
    const auto* decimal = dynamic_cast<const icu::DecimalFormat*>(format.get());
    settings.grouping = decimal != nullptr ? Grouping(*decimal) : "3;0";
}

std::string Picture(const std::unique_ptr<icu::DateFormat>& format, std::string_view fallback) {
    const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get());
    if (simple == nullptr)
        return std::string(fallback);
    icu::UnicodeString pattern;
    simple->toPattern(pattern);
    for (const UChar space : {UChar(0xA0), UChar(0x202F)})
        pattern.findAndReplace(icu::UnicodeString(space), icu::UnicodeString(u' '));
    for (const UChar directionMark : {UChar(0x200E), UChar(0x200F)})
        pattern.findAndReplace(icu::UnicodeString(directionMark), icu::UnicodeString());
    return platform::FromUtf8(PictureOfPattern(Utf8(pattern))).text;
}

void ReadPictures(const icu::Locale& locale, platform::RegionalSettings& settings) {
    using Format = icu::DateFormat;
    const auto date = [&](Format::EStyle style) {
        return std::unique_ptr<Format>(Format::createDateInstance(style, locale));
    };
    settings.longDatePicture = Picture(date(Format::kFull), "dddd, d MMMM yyyy");
    settings.shortDatePicture = Picture(date(Format::kShort), "yyyy-MM-dd");
    settings.timePicture =
        Picture(std::unique_ptr<Format>(Format::createTimeInstance(Format::kMedium, locale)), "HH:mm:ss");
}

// Names that follow each other in ICU's list.
template <std::size_t Count>
void ReadNames(const icu::UnicodeString* list, int available, std::array<std::string, Count>& names) {
    for (std::size_t i = 0; i < Count && static_cast<int>(i) < available; ++i)
        names[i] = platform::FromUtf8(Utf8(list[i])).text;
}

platform::CalendarNames ReadCalendarNames(const icu::Locale& locale) {
    using Symbols = icu::DateFormatSymbols;
    IcuStatus status;
    const Symbols symbols(locale, status);
    status.Check();
    platform::CalendarNames names;
    int count = 0;
    const auto months = [&](Symbols::DtWidthType width, auto& target) {
        const icu::UnicodeString* list = symbols.getMonths(count, Symbols::STANDALONE, width);
        ReadNames(list, count, target);
    };
    const auto days = [&](Symbols::DtWidthType width, auto& target) {
        const icu::UnicodeString* list = symbols.getWeekdays(count, Symbols::STANDALONE, width);
        ReadNames(list + 1, count - 1, target); // ICU counts the days from 1
    };
    std::array<std::string, 2> halves;
    const icu::UnicodeString* halvesOfDay = symbols.getAmPmStrings(count);
    ReadNames(halvesOfDay, 2, halves);
    months(Symbols::WIDE, names.months);
    months(Symbols::ABBREVIATED, names.shortMonths);
    days(Symbols::WIDE, names.days);
    days(Symbols::ABBREVIATED, names.shortDays);
    names.beforeNoon = halves[0];
    names.afterNoon = halves[1];
    return names;
}

bool IsKnownLanguage(std::string_view language) {
    int32_t count = 0;
    const icu::Locale* known = icu::Locale::getAvailableLocales(count);
    return std::any_of(known, known + count,
                       [&](const icu::Locale& locale) { return language == locale.getLanguage(); });
}

// The script that the C library names after an @: "sr_RS@latin". Null where it names none.
const char* ScriptOfVariant(const std::string& name) {
    constexpr std::pair<std::string_view, const char*> Scripts[] = {
        {"latin", "Latn"}, {"cyrillic", "Cyrl"}, {"devanagari", "Deva"}, {"iqtelif", "Latn"}};
    const std::size_t at = name.find('@');
    const std::string_view variant = at == std::string::npos ? "" : std::string_view(name).substr(at + 1);
    const auto* found = std::find_if(std::begin(Scripts), std::end(Scripts),
                                     [&](const auto& row) { return row.first == variant; });
    return found != std::end(Scripts) ? found->second : nullptr;
}

} // namespace

std::optional<std::string> FindLocale(const std::string& name) {
    // An encoding (".UTF-8") changes nothing of what is read here, and of the variants only a script does.
    icu::Locale locale = icu::Locale::createCanonical(name.substr(0, name.find_first_of(".@")).c_str());
    if (!IsKnownLanguage(locale.getLanguage()))
        return std::nullopt;
    const char* script = ScriptOfVariant(name);
    IcuStatus status;
    icu::LocaleBuilder builder;
    builder.setLanguage(locale.getLanguage());
    builder.setScript(script != nullptr ? script : locale.getScript());
    builder.setRegion(locale.getCountry());
    if (*locale.getISO3Country() == '\0') {
        icu::Locale likely = builder.build(status);
        likely.addLikelySubtags(status);
        builder.setRegion(likely.getCountry());
    }
    auto tag = builder.build(status).toLanguageTag<std::string>(status);
    return status.HasFailed() ? std::nullopt : std::optional(tag);
}

platform::RegionalSettings LocaleData(const std::string& numberLocale, const std::string& timeLocale) {
    platform::RegionalSettings settings;
    ReadNumbers(DataLocale(numberLocale), settings);
    const icu::Locale times = DataLocale(timeLocale);
    ReadPictures(times, settings);
    settings.countryName = times.getISO3Country();
    settings.names = ReadCalendarNames(times);
    return settings;
}

} // namespace korvel::internal
