#pragma once

#include "landxml_units.h"

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace korvel::inspector {

/// What holds for a part of a document because of an element elsewhere: the units, and which alignments are
/// railways. Found in one walk over the elements.
///
/// Units inside Pipes and Structs hold there, those inside a SurveyHeader for its whole Survey, all others
/// for the element they stand in. An alignment with Cant is a railway.
class LandXmlScopes {
public:
    explicit LandXmlScopes(const ElementTree& tree);

    /// The units that hold for an element; the answer stays until the next call.
    const UnitSet& UnitsAt(ElementIndex element) const;

    /// True when the stations of an element are those of a railway: it lies in one, or it, or an element
    /// around it, names one by `alignmentRef` or `alignmentRefs`.
    bool IsRailway(ElementIndex element) const;

private:
    struct UnitScope {
        ElementIndex begin;
        ElementIndex units; // the Units element
    };

    void AddUnits(ElementIndex units);
    void AddCant(ElementIndex cant);
    ElementIndex UnitsElementAt(ElementIndex element) const;
    bool NamesRailway(ElementIndex element) const;

    const ElementTree& m_tree;
    std::vector<UnitScope> m_unitScopes;  // by begin
    std::vector<ElementIndex> m_railways; // by number
    std::unordered_set<std::string> m_railwayNames;
    mutable std::unordered_map<ElementIndex, UnitSet> m_unitSets; // of Units elements asked for lately
};

} // namespace korvel::inspector
