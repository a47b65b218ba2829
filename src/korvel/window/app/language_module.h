#pragma once

#include "korvel/window/app/resource_module.h"

#include <string>

namespace korvel {

/// The name of the one function, with C linkage, by which a language module hands out its resources. The
/// number grows whenever the records of app/resource_module.h change.
///
///     extern "C" KORVEL_API const korvel::ResourceModule* KorvelResources1() { return &English; }
inline constexpr const char* ResourceFunction = "KorvelResources1";

/// Loads the translated resources of the library for a language. They are in a shared object beside the
/// library: its file name up to ".so", the code of the language, ".rll". "English" and "ENU" have the code
/// ENU, every other name has an empty one.
///
///     LoadLanguageModule("English");   // <folder>/libKorvelCommonDialogsENU.rll
///
/// Null for an empty name, "German" and "DEU", and, without a word, where there is no such file, it is cut
/// short, no module or of another version, or the library is linked into a program: the built-in German
/// resources serve. The contents of a whole file are trusted, like those of the library itself. A module
/// stays loaded.
KORVEL_API const ResourceModule* LoadLanguageModule(const std::string& name);

} // namespace korvel
