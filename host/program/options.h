#pragma once

#include "korvel/platform/error.h"
#include "landxml/reading_options.h"
#include "texts/messages.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace korvel::inspector {

struct PictureSize {
    int width = 1000;
    int height = 700;
};

/// The formats that the command line chooses.
struct FormatChoice {
    static constexpr char UnitOfFile = 'f'; ///< angles have the unit of the file that is shown
    std::optional<char> angleUnit;          ///< as SetAngleUnit takes it, or UnitOfFile
    std::optional<std::uint32_t> digits;    ///< after the decimal separator, of numbers, angles and stations
    std::optional<std::uint32_t> grouping;  ///< as in a number format: 0, 3, 32

    bool IsEmpty() const { return !angleUnit && !digits && !grouping; }
};

/// What the command line of the inspector asks for.
struct Options {
    std::string file; ///< empty when none is named
    bool list = false;
    std::string screenshot; ///< the picture to write; empty: none
    PictureSize size;
    std::vector<std::string> expand; ///< paths of member names, separated by '/'
    bool expandAll = false;
    std::vector<std::string> set; ///< "PATH=TEXT": the path of a member, and what to type into its cell
    bool save = false;
    std::string saveAs;   ///< the file to save to; empty: the one that is read
    std::string encoding; ///< of the file; empty: as it says
    std::string locale;   ///< empty: the user's
    std::string language; ///< empty: the one that is set
    FormatChoice formats;
    bool keep = false; ///< also the formats of a run that shows no window
    StationKind stations = StationKind::Automatic;
    bool help = false;
    bool version = false;
};

/// A command line that cannot be understood. It is read before the language is known, so whoever shows the
/// reason says it; what() is English.
class UsageError : public Error {
public:
    explicit UsageError(const Message& reason);
    const Message& Reason() const { return m_reason; }

private:
    Message m_reason;
};

/// Reads the arguments after the program's name. The value of an option is the next argument, or follows '='
/// in the same one: `--size 800x600`, `--size=800x600`. The value of `--save` may be missing: what follows it
/// is its value unless that is an option, or the only file that is named. After `--` everything is a file
/// name. Throws UsageError.
Options ReadOptions(const std::vector<std::string>& arguments);

/// The language that arguments ask for, as far as they can be understood; empty: none. Throws nothing.
std::string LanguageIn(const std::vector<std::string>& arguments);

} // namespace korvel::inspector
