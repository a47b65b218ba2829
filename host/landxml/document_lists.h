#pragma once

#include "landxml/editable_word_list.h"

#include <cstddef>
#include <deque>
#include <map>
#include <string>

namespace korvel::inspector {

class LandXmlDocument;

/// One list of words that a document chooses from, as a working copy.
struct DocumentList {
    DocumentList(const std::string& itsTitle, const std::vector<std::string>& names);

    std::string title; ///< where the document uses it: "Spiral spiType", "rot"
    EditableWordList words;
    CVariantValue used;                 ///< selects the words that the document uses, which stay selected
    std::map<long, std::size_t> counts; ///< how often, by entry number
};

/// The lists of a document: each enumeration of LandXML that a value of the document chooses from, with all
/// its words, and the codes of points and features as they occur. In the order of their titles.
///
///     DocumentLists lists(document, "pictures");
///     lists.All().front().title           // "Curve crvType"
///     lists.All().front().used.ToText()   // "arc"
///
/// A value that is none of its enumeration's words is left out, as is all of another namespace. One walk over
/// the document; nothing refers to it afterwards.
class DocumentLists {
public:
    /// `pictureFolder` holds a folder for each list that has pictures, called as its place in LandXML with
    /// '-' for '@'.
    DocumentLists(const LandXmlDocument& document, const std::string& pictureFolder);
    DocumentLists(const DocumentLists&) = delete;
    DocumentLists& operator=(const DocumentLists&) = delete;

    std::deque<DocumentList>& All() { return m_lists; }

private:
    std::deque<DocumentList> m_lists; // values point at the words: they keep their address
};

} // namespace korvel::inspector
