#pragma once

#include "korvel/platform/export.h"

#include <exception>
#include <string>
#include <utility>

namespace korvel {

/// A failure that carries a text, which may be empty.
///
/// Thrown for documents, the settings store and every other failure whose only content is its text.
/// The text is in the code page of the library's texts (see platform/code_page.h).
class KORVEL_API Error : public std::exception {
public:
    explicit Error(std::string text) : m_text(std::move(text)) {}
    const char* what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text;
};

} // namespace korvel
