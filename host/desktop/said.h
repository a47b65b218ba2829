#pragma once

#include "korvel/platform/code_page.h"
#include "texts/program_texts.h"

#include <QString>

namespace korvel::inspector {

/// A text of the program for a widget, in the language of the process.
inline QString Said(const ProgramText& text) {
    return QString::fromUtf8(text.Utf8());
}

/// A text of the library.
inline QString Said(const std::string& libraryText) {
    return QString::fromStdString(platform::ToUtf8(libraryText));
}

} // namespace korvel::inspector
