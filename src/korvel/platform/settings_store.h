#pragma once

#include "korvel/platform/export.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::platform {

/// Settings that outlive the program: typed values with names, in keys that form a tree.
///
///     const char* key = "SOFTWARE\\Halmond\\Korvel";
///     CreateKey(SettingsRoot::User, key);
///     WriteSetting(SettingsRoot::User, key, "Language", SettingValue::Text("English"));
///     SettingValue value;
///     ReadSetting(SettingsRoot::User, "software\\halmond\\KORVEL", "language", value)  -> Done, "English"
///
/// A key is named by its path from the root, parts separated by backslashes; extra backslashes are
/// ignored, and the empty path is the root, which always exists. Case never matters, in keys and in names of
/// values. Names and paths are texts of the library (code_page.h).
///
/// Several programs may use a store at the same time, and one may be killed at any moment: every operation
/// happens whole or not at all. Reading creates nothing. All functions may be called from any thread.
///
/// SettingsStatus says what can happen in daily use. Error is thrown, with the name of the file, when a file
/// is damaged, is no settings store, stays locked (for a second while reading, for three while writing), or
/// cannot be written for lack of space; the file stays as it is. Readers of the user's store wait for no
/// writer where the file system of the folder allows it; the machine's can be read without the right to write
/// there.
enum class SettingsRoot { User, Machine };

enum class SettingsStatus { Done, KeyMissing, ValueMissing, AccessDenied };

enum class SettingsAccess { Read, Write };

/// The numbers are those that a registry uses for these types.
enum class SettingType { Text = 1, Binary = 3, Number = 4 };

struct KORVEL_API SettingValue {
    SettingType type = SettingType::Text;
    std::string bytes; ///< all of them: a zero ends nothing. A number has four, the lowest first.

    static SettingValue Text(std::string_view text) { return {SettingType::Text, std::string(text)}; }
    static SettingValue Binary(std::string_view bytes) { return {SettingType::Binary, std::string(bytes)}; }
    KORVEL_API static SettingValue Number(std::uint32_t number);

    /// Nothing unless this is a number.
    KORVEL_API std::optional<std::uint32_t> AsNumber() const;

    bool operator==(const SettingValue&) const = default;
};

/// Whether the key could be used in this way: Done, KeyMissing or AccessDenied. Changes nothing.
KORVEL_API SettingsStatus CheckKey(SettingsRoot root, std::string_view path, SettingsAccess access);

/// Creates the key and those above it, so far as they are missing: Done or AccessDenied.
KORVEL_API SettingsStatus CreateKey(SettingsRoot root, std::string_view path);

/// `value` is unchanged unless the result is Done.
KORVEL_API SettingsStatus ReadSetting(SettingsRoot root, std::string_view path, std::string_view name,
                                      SettingValue& value);

/// Reads several values of a key as they are at one moment: one for each name, nothing for what is missing.
/// \throws Error as all of them, and for a value that some other program has set to what no setting is;
/// `values` then holds the others
KORVEL_API SettingsStatus ReadSettings(SettingsRoot root, std::string_view path,
                                       std::span<const std::string_view> names,
                                       std::vector<std::optional<SettingValue>>& values);

/// Replaces a value of that name, of whatever type. KeyMissing: the key is not created here. Error for a
/// number that has not four bytes.
KORVEL_API SettingsStatus WriteSetting(SettingsRoot root, std::string_view path, std::string_view name,
                                       const SettingValue& value);

/// The file of a root; it need not exist. The user's lies in UserConfigFolder(), the machine's in
/// MachineConfigFolder(), unless SetStorePath said otherwise.
KORVEL_API std::filesystem::path StorePath(SettingsRoot root);

/// Takes another file for the rest of the process; an empty path returns to the usual one. For programs that
/// run from their build folder, and for tests.
KORVEL_API void SetStorePath(SettingsRoot root, std::filesystem::path file);

} // namespace korvel::platform
