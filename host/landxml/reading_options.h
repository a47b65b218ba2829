#pragma once

#include "korvel/values/file_value.h"

#include <cstddef>
#include <string>

namespace korvel::inspector {

/// How stations are shown.
enum class StationKind {
    Automatic, ///< those of an alignment with cant as railway stations, others as road stations
    Road,
    Railway,
};

/// How a document is to be read.
struct ReadingOptions {
    StationKind stations = StationKind::Automatic;
    IFileValue* fileChooser = nullptr; ///< travels with file names; must outlive the document
    std::string encoding = {};         ///< goes before what the file declares; empty: as the file says
    static constexpr std::size_t All = std::string::npos;
    /// Longer values end in dots: a cell does not get better by megabytes. With All, names are not cut
    /// either.
    std::size_t longestValue = 65'536;
};

} // namespace korvel::inspector
