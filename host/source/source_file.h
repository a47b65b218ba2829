#pragma once

#include "source/reading_progress.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvel::inspector {

/// Which file a path leads to and when that was last changed: a file that was changed has another stamp.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::int64_t changed = 0; ///< nanoseconds, by the clock that no program can set back

    bool operator==(const FileStamp&) const = default;
};

/// Nothing when there is no such file, or when it is out of reach.
std::optional<FileStamp> StampOf(const std::string& path);

struct SourceFile {
    std::string bytes;
    bool isPacked = false; ///< it was packed by gzip
    FileStamp stamp;
};

/// The bytes of a regular file, unpacked where it is packed by gzip, whatever it is called. Throws
/// DocumentError when there is none, when it may not be read, when it is a folder or a device, when it is
/// empty, or when it is too large for the 32-bit offsets of an element tree. A packed file is refused as well
/// when it is damaged or cut off, or holds more than 1,000 times its size: such files are made to fill the
/// memory. The bytes are read, not mapped: a file that somebody else shortens meanwhile must not end the
/// program.
SourceFile ReadSourceFile(const std::string& path, ReadingProgress* progress = nullptr);

} // namespace korvel::inspector
