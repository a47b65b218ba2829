#pragma once

#include <string>

class QTranslator;

namespace korvel::inspector {

/// Makes Qt's own boxes follow the language of the library, and its numbers a locale ("de-DE"; empty: the
/// user's). It holds while `translator` lives.
void UseDesktopLanguage(const std::string& locale, QTranslator& translator);

} // namespace korvel::inspector
