#include "landxml/feature_codes.h"

#include "korvel/dialogs/code_list_text.h"
#include "landxml/landxml_document.h"

#include <unordered_set>

namespace korvel::inspector {
namespace {

constexpr std::string_view CodeAttribute = "code";
constexpr std::string_view ProjectElement = "Project";
constexpr std::string_view DescriptionAttribute = "desc";

// In the library's texts.
std::vector<std::string> CodesOf(const LandXmlDocument& document) {
    const ElementTree& tree = document.Tree();
    std::unordered_set<std::string> known;
    std::vector<std::string> codes;
    for (ElementIndex element = 0; element < tree.Count(); ++element) {
        const std::string code = ToLibraryText(tree.AttributeText(element, CodeAttribute));
        if (!code.empty() && known.insert(code).second)
            codes.push_back(code);
    }
    return codes;
}

} // namespace

FeatureCodes FeatureCodesOf(const LandXmlDocument& document) {
    FeatureCodes found;
    std::vector<CodePair> pairs;
    for (const std::string& code : CodesOf(document))
        if (const CodePair pair{code, ""}; CanHoldPair(pair))
            pairs.push_back(pair);
        else
            ++found.leftOut;
    found.list = WriteCodeList(pairs);
    return found;
}

std::string DescriptionOf(const LandXmlDocument& document) {
    const ElementTree& tree = document.Tree();
    const ElementIndex project = tree.FindChild(0, ProjectElement);
    return project == NoElement ? "" : ToLibraryText(tree.AttributeText(project, DescriptionAttribute));
}

} // namespace korvel::inspector
