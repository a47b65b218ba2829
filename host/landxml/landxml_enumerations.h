#pragma once

#include "korvel/values/enum_value.h"

#include <map>
#include <string>

namespace korvel::inspector {

/// The enumerations of LandXML that a new attribute may be a value of, each by the first place where LandXML
/// uses it, in the order of these names.
///
///     CEditableGrid grid(&observer, &enumerations);   // "New" offers "side", "type (RoadSign)", ...
class LandXmlEnumerations final : public IEnumContainer {
public:
    LandXmlEnumerations();

    IEnumValue* GetEnumValue(const SEnumPosition& position) override;
    void GetBegin(SEnumPosition& position) override;
    const SEnumPosition& GetEnd(SEnumPosition& position) override;
    void GetNext(SEnumPosition& position) override;

private:
    using ByName = std::map<std::string, IEnumValue*>;

    void Place(SEnumPosition& position, ByName::const_iterator at) const;

    ByName m_enumerations;
};

} // namespace korvel::inspector
