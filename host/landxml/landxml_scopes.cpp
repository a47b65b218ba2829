#include "landxml/landxml_scopes.h"

#include "source/blanks.h"

#include <algorithm>
#include <map>
#include <utility>

namespace korvel::inspector {
namespace {

// Kept unit sets: real files have one to three, a made one must not fill the memory.
constexpr std::size_t MostKeptUnitSets = 64;

bool NamesAlignments(const ElementTree& tree, ElementIndex element) {
    return !tree.FindAttribute(element, "alignmentRef").empty() ||
           !tree.FindAttribute(element, "alignmentRefs").empty();
}

} // namespace

LandXmlScopes::LandXmlScopes(const ElementTree& tree) : m_tree(tree) {
    FindUnits();
    FindRailways();
}

void LandXmlScopes::FindUnits() {
    std::map<ElementIndex, ElementIndex> units; // by the element that they hold for; the first ones count
    for (ElementIndex element = 1; element < m_tree.Count(); ++element) {
        if (m_tree.LocalName(element) != "Units" || !m_tree.HasChildren(element))
            continue;
        ElementIndex holder = m_tree.Parent(element);
        if (m_tree.LocalName(holder) == "SurveyHeader" && m_tree.Parent(holder) != NoElement)
            holder = m_tree.Parent(holder);
        units.emplace(holder, element);
    }
    for (const auto& [holder, element] : units) {
        m_unitScopes.Add(holder, m_tree.SubtreeEnd(holder));
        m_unitElements.push_back(element);
    }
}

void LandXmlScopes::FindRailways() {
    std::vector<ElementIndex> railways;
    for (ElementIndex element = 1; element < m_tree.Count(); ++element) {
        if (m_tree.LocalName(element) != "Cant")
            continue;
        const ElementIndex alignment = m_tree.Parent(element);
        if (m_tree.LocalName(alignment) != "Alignment")
            continue;
        railways.push_back(alignment);
        if (std::string name = m_tree.AttributeText(alignment, "name"); !name.empty())
            m_railwayNames.insert(std::move(name));
    }
    if (railways.empty())
        return;
    std::sort(railways.begin(), railways.end());
    for (ElementIndex element = 0; element < m_tree.Count(); ++element) {
        const bool isAlignment = m_tree.LocalName(element) == "Alignment";
        if (!isAlignment && !NamesAlignments(m_tree, element))
            continue;
        m_stationScopes.Add(element, m_tree.SubtreeEnd(element));
        m_isRailway.push_back(isAlignment ? std::binary_search(railways.begin(), railways.end(), element)
                                          : NamesRailway(element));
    }
}

bool LandXmlScopes::NamesUnits(ElementIndex element) const {
    const std::string_view name = m_tree.LocalName(element);
    return name == "Metric" || name == "Imperial";
}

bool LandXmlScopes::SaysWhereRailwaysAre(ElementIndex element,
                                         const std::vector<std::string>& attributes) const {
    const bool isAlignment = m_tree.LocalName(element) == "Alignment";
    return std::any_of(attributes.begin(), attributes.end(), [&](const std::string& name) {
        return name == "alignmentRef" || name == "alignmentRefs" || (isAlignment && name == "name");
    });
}

void LandXmlScopes::FollowTag(ElementIndex element, const std::vector<std::string>& attributes) {
    if (NamesUnits(element))
        m_unitSets.clear();
    if (!SaysWhereRailwaysAre(element, attributes))
        return;
    m_stationScopes = {};
    m_isRailway.clear();
    m_railwayNames.clear();
    FindRailways();
}

const UnitSet& LandXmlScopes::UnitsAt(ElementIndex element) const {
    const std::uint32_t scope = m_unitScopes.Innermost(element);
    const ElementIndex units = scope == ScopeIndex::None ? NoElement : m_unitElements[scope];
    if (const auto known = m_unitSets.find(units); known != m_unitSets.end())
        return known->second;
    if (m_unitSets.size() == MostKeptUnitSets)
        m_unitSets.clear();
    return m_unitSets.emplace(units, units == NoElement ? UnitSet() : ReadUnits(m_tree, units)).first->second;
}

bool LandXmlScopes::IsRailway(ElementIndex element) const {
    const std::uint32_t scope = m_stationScopes.Innermost(element);
    return scope != ScopeIndex::None && m_isRailway[scope];
}

bool LandXmlScopes::NamesRailway(ElementIndex element) const {
    if (m_railwayNames.contains(m_tree.AttributeText(element, "alignmentRef")))
        return true;
    const std::string names = m_tree.AttributeText(element, "alignmentRefs");
    const std::vector<std::string_view> words = SplitAtBlanks(names);
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view name) { return m_railwayNames.contains(std::string(name)); });
}

} // namespace korvel::inspector
