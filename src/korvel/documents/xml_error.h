#pragma once

#include "korvel/platform/error.h"
#include "korvel/platform/export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel {

/// A place in a text as an editor counts it: lines and characters, both from 1.
struct XmlPlace {
    std::size_t line = 1;
    std::size_t position = 1;
};

/// The place of a byte in UTF-8 text; the end of the text for an offset beyond it. A line ends with LF, CR LF
/// or CR. Costs a walk over the text before it.
KORVEL_API XmlPlace XmlPlaceOf(std::string_view text, std::size_t offset);

/// What is wrong with a document in UTF-8, and where. It does not know the file.
///
///     catch (const XmlError& error) {
///         error.Place().line;   // 17
///         error.Reason();       // "the element 'Pnts' is closed by 'Pnt'"
///     }
class KORVEL_API XmlError : public Error {
public:
    /// `offset` counts the bytes of `text`, the document; `reason` is UTF-8.
    XmlError(std::string_view text, std::size_t offset, const std::string& reason);

    XmlPlace Place() const { return m_place; }
    /// In UTF-8; what() gives it in the code page of the library's texts.
    const std::string& Reason() const { return m_reason; }

    /// A piece of a document as reasons show it: in quotes, and cut where it is long.
    static std::string Quoted(std::string_view piece);

private:
    XmlPlace m_place;
    std::string m_reason;
};

} // namespace korvel
