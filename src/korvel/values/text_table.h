#pragma once

#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// The texts that the library shows, and the language in which it does.
///
///     std::string question = Text(48);              // "erase '$1'" in English
///     ReplaceFirst(question, "$1", "Axis 3");       // "erase 'Axis 3'"
///
/// The language is chosen at first use and stays for the life of the process. It is named by the value
/// `Language` of the user's settings, else by `InstallLanguage` of the machine's. "English" and "Hungarian"
/// are known by their exact bytes; every other name selects German. The Hungarian texts are all empty.

/// The text of a row; empty outside the table. Throws what `GetLanguage` throws. Rows 63 to 66 hold printf
/// fields; others may hold the markers $1 and $2.
KORVEL_API const char* Text(int id);

/// Number of rows of the table.
inline constexpr int TextCount = 133;

struct LanguageChoice {
    int Column; ///< 0 English, 1 German, 2 Hungarian
};

/// The language of the process.
/// \throws Error when the settings name none; the next call tries again
KORVEL_API const LanguageChoice& GetLanguage();

/// The name as the settings hold it now, or as `SetLanguageForThisRun` told it.
/// \throws Error when the settings name none
KORVEL_API std::string GetLanguageName();

/// Names the language for this run only, whatever the settings say. To be called before anything asks for a
/// text: false, and no effect, once the language is chosen.
KORVEL_API bool SetLanguageForThisRun(const std::string& name);

/// For programs that must start on a machine whose settings name no language: takes German for this run where
/// the user's locale is German, else English. Does nothing when the settings name one.
KORVEL_API void UseLocaleLanguageIfUnset();

/// Replaces the first occurrence of `placeholder`; further ones stay, and the replacement is not searched
/// again.
KORVEL_API void ReplaceFirst(std::string& text, const std::string& placeholder, const std::string& value);

} // namespace korvel
