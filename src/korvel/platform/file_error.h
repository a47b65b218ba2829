#pragma once

#include "korvel/platform/error.h"
#include "korvel/platform/export.h"

#include <filesystem>

namespace korvel {

/// The operating system refused a file.
///
///     catch (const FileError& error) {
///         error.what();          // "/home/me/formats.xml: Permission denied"
///         error.SystemReason();  // EACCES
///     }
class KORVEL_API FileError : public Error {
public:
    FileError(const std::filesystem::path& file, int systemReason);

    /// The error number (errno), for a program that says it in its own words: the text above is the system's.
    int SystemReason() const { return m_systemReason; }

private:
    int m_systemReason;
};

/// A file of which nothing could be read. What is in it may be whole.
class KORVEL_API UnreadableFile : public FileError {
public:
    using FileError::FileError;
};

} // namespace korvel
