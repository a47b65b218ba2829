#include "landxml/landxml_enumerations.h"

#include "landxml/enumeration_uses.h"

#include <algorithm>

namespace korvel::inspector {

LandXmlEnumerations::LandXmlEnumerations() {
    for (const EnumerationUse& use : EnumerationUses()) {
        std::string name(use.places.front());
        std::replace(name.begin(), name.end(), '@', ' ');
        if (name.ends_with(' '))
            name.pop_back(); // the text of an element
        m_enumerations.emplace(name, use.enumeration);
    }
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
