#include "program/kept_formats.h"

#include "korvel/output/angles.h"
#include "korvel/output/format_persistence.h"
#include "korvel/output/numbers.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/platform/regional_settings.h"

#include <system_error>

namespace korvel::inspector {

namespace {

namespace fs = std::filesystem;

constexpr char Degrees = '\xB0';

struct FormatAccess {
    const _numberfmtA& (*get)();
    void (*set)(const _numberfmtA&);
};

constexpr FormatAccess NumbersWithDigits[] = {
    {GetFormatFloat, SetFormatFloat},
    {GetFormatDouble, SetFormatDouble},
    // The getters of angles are crossed over.
    {GetAngleFormatFloat, SetAngleFormatDouble},
    {GetAngleFormatDouble, SetAngleFormatFloat},
};
constexpr FormatAccess WholeNumbers[] = {{GetFormatInt, SetFormatInt}, {GetFormatLong, SetFormatLong}};

void SetGrouping(const FormatAccess& access, std::uint32_t grouping) {
    _numberfmtA format = access.get();
    format.Grouping = grouping;
    access.set(format);
}

void SetDigits(const FormatAccess& access, std::uint32_t digits) {
    _numberfmtA format = access.get();
    format.NumDigits = digits;
    access.set(format);
}

void Apply(const FormatChoice& choice) {
    if (choice.angleUnit)
        SetAngleUnit(*choice.angleUnit);
    for (const FormatAccess& access : NumbersWithDigits) {
        if (choice.digits)
            SetDigits(access, *choice.digits);
        if (choice.grouping)
            SetGrouping(access, *choice.grouping);
    }
    if (choice.grouping)
        for (const FormatAccess& access : WholeNumbers)
            SetGrouping(access, *choice.grouping);
}

// A name beside `file` that nothing has yet.
fs::path NameAside(const fs::path& file) {
    std::error_code ignored;
    fs::path aside = file;
    aside += ".damaged";
    for (int number = 2; fs::exists(aside, ignored); ++number) {
        aside = file;
        aside += ".damaged" + std::to_string(number);
    }
    return aside;
}

std::string SetAside(const fs::path& file) {
    const fs::path aside = NameAside(file);
    std::error_code failure;
    fs::rename(file, aside, failure);
    return failure ? "" : "; the file is now " + aside.string();
}

std::string Load(const fs::path& file) {
    std::error_code failure;
    if (fs::status(file, failure).type() == fs::file_type::not_found)
        return {};
    const std::string complaint = "the kept formats cannot be read and the regional ones are used: ";
    try {
        LoadFormatStates(file.c_str());
        return {};
    } catch (const UnreadableFile& error) {
        return complaint + platform::ToUtf8(error.what());
    } catch (const Error& error) {
        ResetFormatStates();
        SetAngleUnit(Degrees);
        return complaint + platform::ToUtf8(error.what()) + SetAside(file);
    }
}

std::string Keep(const fs::path& file) {
    const std::string complaint = "the formats cannot be kept: ";
    std::error_code failure;
    fs::create_directories(file.parent_path(), failure);
    if (failure)
        return complaint + file.parent_path().string() + ": " + failure.message();
    try {
        SaveFormatStates(file.c_str());
        return {};
    } catch (const Error& error) {
        return complaint + platform::ToUtf8(error.what());
    }
}

} // namespace

std::string TakeFormats(const std::filesystem::path& folder, const FormatChoice& choice) {
    const fs::path file = folder / "inspector-formats.xml";
    const bool hasFolder = !folder.empty();
    SetAngleUnit(Degrees);
    std::string notice = hasFolder ? Load(file) : std::string();
    Apply(choice);
    if (choice.IsEmpty() || !hasFolder)
        return notice;
    const std::string failure = Keep(file);
    return notice.empty() || failure.empty() ? notice + failure : notice + "; " + failure;
}

// What differs from the regional settings was chosen once; the rest is the locale's.
void WriteAsIn(const std::string& locale) {
    const _numberfmtA chosen = GetFormatDouble();
    FormatChoice kept{GetAngleUnit(), {}, {}};
    ResetFormatStates();
    const _numberfmtA& regional = GetFormatDouble();
    if (chosen.NumDigits != regional.NumDigits)
        kept.digits = chosen.NumDigits;
    if (chosen.Grouping != regional.Grouping)
        kept.grouping = chosen.Grouping;
    platform::UseLocale(locale);
    Fire_OnSystemChanged(nullptr, nullptr);
    Apply(kept);
}

} // namespace korvel::inspector
