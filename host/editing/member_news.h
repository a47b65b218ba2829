#pragma once

#include "editing/object_state.h"
#include "landxml/document_change.h"

#include <map>
#include <set>
#include <utility>

namespace korvel::inspector {

class EditObserver;

/// Tells the grids that show a document what its changes have made of names, types, values and write
/// protection, in the changed element and wherever else they reach: in its parent where it is named, in all
/// objects where units or the kind of stations follow.
///
///     news.Remember(change);   // before it is made
///     ...                      // perhaps several changes
///     news.Tell();             // OnOperationRename, OnOperationChangeType, OnChange, ... for what differs
class MemberNews {
public:
    /// Both must outlive this.
    MemberNews(LandXmlDocument& document, EditObserver& observer)
        : m_document(document), m_observer(observer) {}

    void Remember(const DocumentChange& change);
    /// Says all that differs from what was remembered, and forgets it. A grid may write meanwhile. An
    /// exception goes on after all has been said.
    void Tell();
    /// Whether a shown object has got or lost members since the last call.
    bool TakeCountsChanged() { return std::exchange(m_areCountsChanged, false); }

private:
    void RememberObject(ElementIndex element);
    void RememberAll();
    bool KeepsItsName(const DocumentChange& change) const;
    void TellObject(ElementIndex element, const ObjectState& before);
    void TellTextElement(ElementIndex owner, ElementIndex element);
    void TellSaidValues();

    LandXmlDocument& m_document;
    EditObserver& m_observer;
    std::map<ElementIndex, ObjectState> m_before;
    std::set<std::pair<ElementIndex, ElementIndex>> m_textElements; // and the elements that show them
    bool m_areCountsChanged = false;
};

} // namespace korvel::inspector
