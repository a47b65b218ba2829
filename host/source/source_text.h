#pragma once

#include "korvel/platform/code_page.h"
#include "source/element_tree.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel::inspector {

/// What a piece of the document means, with its references resolved.
struct DecodedText {
    std::string utf8;
    bool complete = true; ///< false: it goes on, and what stands here is its beginning
};

/// `raw` as it stands between the quotes, already checked. At most `longest` bytes are answered.
DecodedText DecodeAttribute(std::string_view raw, std::size_t longest);

/// The characters of a text; its comments and instructions are left out.
DecodedText DecodeText(const TextSource& source, std::size_t longest);

/// The text in the code page of the library, in which most texts of a file are the same.
platform::ConvertedText ToLibraryText(const std::string& utf8);

} // namespace korvel::inspector
