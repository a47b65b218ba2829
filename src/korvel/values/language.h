#pragma once

#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// The language in which the library speaks.
///
/// It is chosen at first use, by whoever first asks for a text, a dialog of the library or its name, and
/// stays for the life of the process: a change of the settings takes effect at the next start. It is named by
/// the value `Language` of the user's settings, else by `InstallLanguage` of the machine's, else, where one
/// of the two could not be read, by the user's locale; see platform/store_problem.h for who hears of that.
/// "English" and "Hungarian" are known by their exact bytes; every other name selects German. The Hungarian
/// texts are all empty.
struct LanguageChoice {
    static constexpr int English = 0;
    static constexpr int German = 1;
    static constexpr int Hungarian = 2;

    int column; ///< of the table of texts: one of these three
};

/// The language of the process.
/// \throws Error when the settings can be read and name none; the next call tries again
KORVEL_API const LanguageChoice& GetLanguage();

/// The name by which the language of the process was chosen; asking chooses it.
/// \throws Error as GetLanguage
KORVEL_API std::string GetLanguageName();

/// Names the language for this run only, whatever the settings say. To be called before the language is
/// chosen: false, and no effect, after that.
KORVEL_API bool SetLanguageForThisRun(const std::string& name);

/// For programs that must start on a machine whose settings name no language: takes German for this run where
/// the user's locale is German, else English. Does nothing when the settings name one; chooses none.
KORVEL_API void UseLocaleLanguageIfUnset();

} // namespace korvel
