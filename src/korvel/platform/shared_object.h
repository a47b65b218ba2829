#pragma once

#include <string>

/// Shared objects that are loaded while the program runs.
namespace korvel::platform {

/// The absolute path of the shared library, or program, that this code is in, as it was when that was loaded;
/// empty when the system does not say.
std::string OwnFile();

/// Loads a shared object, which stays loaded, and returns one of its functions. Null, and nothing is loaded,
/// for a file that is missing, is cut short or is no shared object of this kind of machine; null, and the
/// object is unloaded again, when it has no such function. The contents of a whole file are trusted,
/// like those of the library itself.
void* LoadFunction(const std::string& path, const char* name);

} // namespace korvel::platform
