#pragma once

#include <string>

namespace korvel::inspector {

/// The bytes of a regular file, unpacked where it is packed by gzip, whatever it is called. Throws
/// DocumentError when there is none, when it may not be read, when it is a folder or a device, when it is
/// empty, or when it is too large for the 32-bit offsets of an element tree. A packed file is refused as well
/// when it is damaged or cut off, or holds more than 1,000 times its size: such files are made to fill the
/// memory. The bytes are read, not mapped: a file that somebody else shortens meanwhile must not end the
/// program.
std::string ReadSourceFile(const std::string& path);

} // namespace korvel::inspector
