#pragma once

#include "korvel/platform/error.h"
#include "korvel/platform/export.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// A place in a text as an editor counts it: lines and characters, both from 1.
struct XmlPlace {
    std::size_t line = 1;
    std::size_t position = 1;
};

/// The place of a byte in UTF-8 text; the end of the text for an offset beyond it. A line ends with LF, CR LF
/// or CR. Costs a walk over the text before it.
KORVEL_API XmlPlace XmlPlaceOf(std::string_view text, std::size_t offset);

/// What is wrong, in UTF-8: a sentence in which %1, %2 stand for pieces that differ from document to
/// document. A program that speaks another language looks the sentence up.
struct KORVEL_API XmlReason {
    XmlReason(const char* itsSentence, std::vector<std::string> itsPieces = {})
        : sentence(itsSentence), pieces(std::move(itsPieces)) {}

    /// With its pieces in place.
    std::string Text() const;

    std::string sentence;
    std::vector<std::string> pieces;
};

/// What is wrong with a document in UTF-8, and where. It does not know the file.
///
///     catch (const XmlError& error) {
///         error.Place().line;         // 17
///         error.Reason();             // "the element 'Pnts' is closed by 'Pnt'"
///         error.Details().sentence;   // "the element %1 is closed by %2"
///     }
class KORVEL_API XmlError : public Error {
public:
    enum class Cause {
        WrongHere, ///< nothing that follows could mend it
        CutOff,    ///< the document ends too early
        Encoding,  ///< the bytes are not in the encoding of the document, or nobody knows it
    };

    /// `offset` counts the bytes of `text`, the document.
    XmlError(std::string_view text, std::size_t offset, const XmlReason& reason,
             Cause cause = Cause::WrongHere);

    XmlPlace Place() const { return m_place; }
    Cause GetCause() const { return m_cause; }
    const XmlReason& Details() const { return m_details; }
    /// In UTF-8; what() gives it in the code page of the library's texts.
    const std::string& Reason() const { return m_reason; }

    /// A piece of a document as reasons show it: in quotes, and cut where it is long.
    static std::string Quoted(std::string_view piece);

private:
    XmlPlace m_place;
    Cause m_cause;
    XmlReason m_details;
    std::string m_reason;
};

} // namespace korvel
