#pragma once

#include "landxml/document_change.h"
#include "source/reading_progress.h"

#include <cstddef>
#include <string>
#include <vector>

namespace korvel::inspector {

class LandXmlDocument;

/// What is wrong at one place of a document that can be read all the same.
struct Finding {
    enum class Kind { InvalidValue, UnknownElement };
    Kind kind;
    MemberAddress address; ///< with an empty key: the element itself
    std::size_t line;      ///< of the file, from 1
    std::string name;      ///< of the attribute or the element, in UTF-8
    std::string value;     ///< as the file has it, cut where it is long, in UTF-8; of an invalid value

    /// "line 17: 'abc' is no valid value of 'length'", in UTF-8 and in the language of the process.
    std::string Text() const;
};

struct Findings {
    std::vector<Finding> list; ///< in the order of the file
    std::size_t leftOut = 0;   ///< how many more there are of a kind that has Most in the list
    static constexpr std::size_t Most = 1000;
};

/// Looks at every value and every element of a document: for values that their type does not allow, and, in a
/// document of a known version, for elements of its namespace that LandXML does not have. The names of large
/// elements are made on the way and kept, so that a grid shows them the faster. Throws ReadingCancelled when
/// `progress` does.
Findings Check(LandXmlDocument& document, ReadingProgress* progress);

} // namespace korvel::inspector
