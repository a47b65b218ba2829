#include "landxml_scopes.h"

#include "source_text.h"

#include <algorithm>

namespace korvel::inspector {
namespace {

// Kept unit sets: real files have one to three, a made one must not fill the memory.
constexpr std::size_t MostKeptUnitSets = 64;

std::string NameText(std::string_view raw) {
    return DecodeAttribute(Trim(raw), LongestAttribute).utf8;
}

} // namespace

LandXmlScopes::LandXmlScopes(const ElementTree& tree) : m_tree(tree) {
    for (ElementIndex element = 1; element < tree.Count(); ++element) {
        const std::string_view name = tree.LocalName(element);
        if (name == "Units")
            AddUnits(element);
        else if (name == "Cant")
            AddCant(element);
    }
    std::sort(m_railways.begin(), m_railways.end());
    std::stable_sort(m_unitScopes.begin(), m_unitScopes.end(),
                     [](const UnitScope& a, const UnitScope& b) { return a.begin < b.begin; });
}

void LandXmlScopes::AddUnits(ElementIndex units) {
    ElementIndex begin = m_tree.Parent(units);
    if (m_tree.LocalName(begin) == "SurveyHeader" && m_tree.Parent(begin) != NoElement)
        begin = m_tree.Parent(begin);
    m_unitScopes.push_back({begin, units});
}

void LandXmlScopes::AddCant(ElementIndex cant) {
    const ElementIndex alignment = m_tree.Parent(cant);
    const bool isKnown = !m_railways.empty() && m_railways.back() == alignment;
    if (isKnown || m_tree.LocalName(alignment) != "Alignment")
        return;
    m_railways.push_back(alignment);
    if (const std::string_view name = m_tree.FindAttribute(alignment, "name"); !name.empty())
        m_railwayNames.insert(NameText(name));
}

ElementIndex LandXmlScopes::UnitsElementAt(ElementIndex element) const {
    for (; element != NoElement; element = m_tree.Parent(element)) {
        const auto found =
            std::lower_bound(m_unitScopes.begin(), m_unitScopes.end(), element,
                             [](const UnitScope& scope, ElementIndex begin) { return scope.begin < begin; });
        if (found != m_unitScopes.end() && found->begin == element)
            return found->units;
    }
    return NoElement;
}

const UnitSet& LandXmlScopes::UnitsAt(ElementIndex element) const {
    const ElementIndex units = UnitsElementAt(element);
    if (const auto known = m_unitSets.find(units); known != m_unitSets.end())
        return known->second;
    if (m_unitSets.size() == MostKeptUnitSets)
        m_unitSets.clear();
    return m_unitSets.emplace(units, units == NoElement ? UnitSet() : ReadUnits(m_tree, units)).first->second;
}

bool LandXmlScopes::IsRailway(ElementIndex element) const {
    if (m_railways.empty())
        return false;
    for (; element != NoElement; element = m_tree.Parent(element)) {
        if (m_tree.LocalName(element) == "Alignment")
            return std::binary_search(m_railways.begin(), m_railways.end(), element);
        if (NamesRailway(element))
            return true;
    }
    return false;
}

bool LandXmlScopes::NamesRailway(ElementIndex element) const {
    if (const std::string_view name = m_tree.FindAttribute(element, "alignmentRef");
        !name.empty() && m_railwayNames.contains(NameText(name)))
        return true;
    const std::string names = NameText(m_tree.FindAttribute(element, "alignmentRefs"));
    std::string_view rest = Trim(names);
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        if (m_railwayNames.contains(std::string(rest.substr(0, end))))
            return true;
        rest = Trim(rest.substr(end));
    }
    return false;
}

} // namespace korvel::inspector
