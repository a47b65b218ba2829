#pragma once

#include "korvel/values/group_presentation.h"
#include "landxml/landxml_enumeration.h"
#include "source/element_tree.h"

namespace korvel::inspector {

class LandXmlDocument;

/// What the row of an alignment shows beside its name: its length and its stations.
///
///     GetPresentationText(nullptr)    -> "1.234,50 m, 0+000,00 - 1+234,50"
///     GetPresentationText("length")   -> "1.234,50 m"; in a grid of columns, the attribute of that name
///
/// The texts are made when they are asked for, so they follow the user's formats. An absent attribute has no
/// text. It is an enumeration, with nothing in it, because that is how a grid is handed a presentation.
class AlignmentPresentation final : public LandXmlEnumeration, public GroupPresentation {
public:
    AlignmentPresentation(const LandXmlDocument& document, ElementIndex alignment)
        : LandXmlEnumeration({}), m_document(document), m_alignment(alignment) {}

    std::string GetPresentationText(const char* column) override;
    unsigned char GetPresentationKind() override { return 1; }
    void OnPresentationClick() override {}

private:
    std::string AttributeText(const char* name) const;
    std::string EndStationText() const;

    const LandXmlDocument& m_document;
    ElementIndex m_alignment;
};

} // namespace korvel::inspector
