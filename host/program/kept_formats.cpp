#include "program/kept_formats.h"

#include "korvel/documents/xml_file_error.h"
#include "korvel/documents/xml_schema_error.h"
#include "korvel/output/angles.h"
#include "korvel/output/format_persistence.h"
#include "korvel/output/numbers.h"
#include "korvel/output/stations.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/file_error.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/replace_file.h"
#include "korvel/platform/set_aside.h"
#include "texts/messages.h"
#include "texts/system_reason.h"

#include <fstream>
#include <string_view>
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
    if (choice.angleUnit && *choice.angleUnit != FormatChoice::UnitOfFile)
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
    SetStationDigits(GetFormatDouble().NumDigits);
}

// The saved formats always hold a unit of angles; beside them is written whether the user chose it.
constexpr const char* UnitFile = "inspector-angle-unit.txt";
constexpr std::string_view UnitOfFile = "file";

// Formats of a time before that file was written hold another unit than degrees only where it was chosen.
bool KeepsUnitOfFile(const fs::path& folder) {
    std::string word;
    if (std::ifstream(folder / UnitFile) >> word)
        return word == UnitOfFile;
    return GetAngleUnit() == Degrees;
}

std::string SetAside(const fs::path& file, const std::string& notice) {
    try {
        return Say({"%1; the file is now %2", {notice, platform::SetFileAside(file).string()}});
    } catch (const Error&) {
        return notice;
    }
}

// What is wrong with a file, in the language of the process where the error says more than its text.
std::string ReasonOf(const fs::path& file, const Error& error) {
    const std::string name = file.string() + ": ";
    if (const auto* malformed = dynamic_cast<const XmlFileError*>(&error))
        return name + SayWithPlace(malformed->Problem());
    if (const auto* wrong = dynamic_cast<const XmlSchemaError*>(&error))
        return name + Say(wrong->Details());
    if (const auto* refused = dynamic_cast<const FileError*>(&error))
        return name + Say(SystemReason(refused->SystemReason()));
    return platform::ToUtf8(error.what());
}

struct Loaded {
    enum class File { Missing, Read, Damaged, Unreadable };
    File file;
    std::string notice;
};

Loaded Load(const fs::path& file) {
    std::error_code failure;
    if (fs::status(file, failure).type() == fs::file_type::not_found)
        return {Loaded::File::Missing, {}};
    const auto complaint = [&](const Error& error) {
        return Say(
            {"the kept formats cannot be read and the regional ones are used: %1", {ReasonOf(file, error)}});
    };
    try {
        LoadFormatStates(file.c_str());
        return {Loaded::File::Read, {}};
    } catch (const UnreadableFile& error) {
        return {Loaded::File::Unreadable, complaint(error)};
    } catch (const Error& error) {
        ResetFormatStates();
        SetAngleUnit(Degrees);
        return {Loaded::File::Damaged, SetAside(file, complaint(error))};
    }
}

std::string Keep(const fs::path& file, bool hasUnitOfFile) {
    const fs::path folder = file.parent_path();
    fs::path written = folder;
    try {
        std::error_code failure;
        fs::create_directories(folder, failure);
        if (failure)
            throw FileError(folder, failure.value());
        written = file;
        SaveFormatStates(file.c_str());
        written = folder / UnitFile;
        platform::ReplaceFile(written, std::string(hasUnitOfFile ? UnitOfFile : "chosen") + "\n");
    } catch (const Error& error) {
        return Say({"the formats cannot be kept: %1", {ReasonOf(written, error)}});
    }
    return {};
}

} // namespace

TakenFormats TakeFormats(const fs::path& folder, const FormatChoice& choice, Keeping keeping) {
    const fs::path file = folder / "inspector-formats.xml";
    const bool hasFolder = !folder.empty();
    SetAngleUnit(Degrees);
    const Loaded loaded = hasFolder ? Load(file) : Loaded{Loaded::File::Missing, {}};
    TakenFormats taken;
    taken.notice = loaded.notice;
    taken.hasUnitOfFile = choice.angleUnit ? *choice.angleUnit == FormatChoice::UnitOfFile
                                           : loaded.file != Loaded::File::Read || KeepsUnitOfFile(folder);
    Apply(choice);
    if (choice.IsEmpty() || !hasFolder || keeping == Keeping::ThisRunOnly)
        return taken;
    // What cannot be read may be whole: it is not replaced.
    const std::string failure = loaded.file == Loaded::File::Unreadable
                                    ? Say({"the formats of this run are not kept"})
                                    : Keep(file, taken.hasUnitOfFile);
    taken.notice += (taken.notice.empty() || failure.empty() ? "" : "; ") + failure;
    return taken;
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
