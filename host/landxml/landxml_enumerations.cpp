#include "landxml/landxml_enumerations.h"

#include "landxml/enumeration_uses.h"

#include <string>
#include <string_view>

namespace korvel::inspector {

namespace {

// "Element@attribute", "attribute" or "Element@", with what the user looks for first.
std::string NameOf(std::string_view place) {
    const std::size_t at = place.find('@');
    const std::string first(place.substr(0, at));
    const std::string attribute(at == std::string_view::npos ? std::string_view() : place.substr(at + 1));
    return attribute.empty() ? first : attribute + " (" + first + ")";
}

} // namespace

LandXmlEnumerations::LandXmlEnumerations() {
    for (const EnumerationUse& use : EnumerationUses())
        m_enumerations.emplace(NameOf(use.places.front()), use.enumeration);
}

IEnumValue* LandXmlEnumerations::GetEnumValue(const SEnumPosition& position) {
    const auto found = m_enumerations.find(position.name);
    return found == m_enumerations.end() ? nullptr : found->second;
}

void LandXmlEnumerations::Place(SEnumPosition& position, ByName::const_iterator at) const {
    const bool isEnd = at == m_enumerations.end();
    position = {isEnd ? std::string() : at->first, isEnd};
}

void LandXmlEnumerations::GetBegin(SEnumPosition& position) {
    Place(position, m_enumerations.begin());
}

const SEnumPosition& LandXmlEnumerations::GetEnd(SEnumPosition& position) {
    Place(position, m_enumerations.end());
    return position;
}

void LandXmlEnumerations::GetNext(SEnumPosition& position) {
    Place(position, m_enumerations.upper_bound(position.name));
}

} // namespace korvel::inspector
