#pragma once

#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Reads and writes single texts of the settings.
///
///     WriteRegistry(RegistryRoot::CurrentUser, "SOFTWARE\\Halmond\\Korvel", "", "Language", "English");
///     ReadRegistry(RegistryRoot::CurrentUser, "SOFTWARE\\Halmond\\Korvel", "", "Language");   // "English"
///
/// The texts of the failures are German in every language; kept, because hosts look for them. May be called
/// from any thread.
enum class RegistryRoot { CurrentUser, LocalMachine };

/// Where the application keeps its settings, below both roots.
inline constexpr const char* RegistryPath = "SOFTWARE\\Halmond\\Korvel";

/// The value's text up to its first zero byte, from the key `subkey` below `path` (empty: `path` itself).
/// \throws Error naming `path` when there is no such key, naming `name` when there is no such value
KORVEL_API std::string ReadRegistry(RegistryRoot root, const std::string& path, const std::string& subkey,
                                    const std::string& name);

/// Stores the text, making the key where only `path` exists.
/// \throws Error naming `path` when neither it nor the key exists, or when the key cannot be made
KORVEL_API void WriteRegistry(RegistryRoot root, const std::string& path, const std::string& subkey,
                              const std::string& name, const std::string& text);

} // namespace korvel
