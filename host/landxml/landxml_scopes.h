#pragma once

#include "landxml/landxml_units.h"
#include "landxml/scope_index.h"

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace korvel::inspector {

/// What holds for a part of a document because of an element elsewhere: the units, and which alignments are
/// railways. Found in one walk over the elements.
///
/// Units inside Pipes and Structs hold there, those inside a SurveyHeader for its whole Survey, all others
/// for the element that holds them. An alignment with Cant is a railway.
class LandXmlScopes {
public:
    explicit LandXmlScopes(const ElementTree& tree);

    /// The units that hold for an element; valid until the next call.
    const UnitSet& UnitsAt(ElementIndex element) const;

    /// True when the stations of an element are those of a railway. The innermost element around it that is
    /// an alignment, or names some by `alignmentRef` or `alignmentRefs`, decides.
    bool IsRailway(ElementIndex element) const;

    // What attributes of an element say of others.
    bool NamesUnits(ElementIndex element) const;
    bool SaysWhereRailwaysAre(ElementIndex element, const std::vector<std::string>& attributes) const;
    /// These attributes of an element were changed.
    void FollowTag(ElementIndex element, const std::vector<std::string>& attributes);

private:
    void FindUnits();
    void FindRailways();
    bool NamesRailway(ElementIndex element) const;

    const ElementTree& m_tree;
    ScopeIndex m_unitScopes;
    std::vector<ElementIndex> m_unitElements; // of each scope
    ScopeIndex m_stationScopes;               // alignments, and elements that name some
    std::vector<bool> m_isRailway;            // of each scope
    std::unordered_set<std::string> m_railwayNames;
    mutable std::unordered_map<ElementIndex, UnitSet> m_unitSets; // of Units elements asked for lately
};

} // namespace korvel::inspector
