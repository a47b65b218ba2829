#pragma once

#include <cstddef>
#include <string>

namespace korvel::inspector {

class LandXmlDocument;

/// The codes of points and features in a document, each once and in the order of the file.
struct FeatureCodes {
    std::string list;        ///< as CDialogCodeList takes it, without values: "T12:;T13:"
    std::size_t leftOut = 0; ///< codes that such a list cannot hold: with ";" or ":"
};

FeatureCodes FeatureCodesOf(const LandXmlDocument& document);

/// What the document says about its project; empty when it says nothing.
std::string DescriptionOf(const LandXmlDocument& document);

} // namespace korvel::inspector
