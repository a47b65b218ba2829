#include "korvel/window/app/language_module.h"

#include "korvel/platform/shared_object.h"

namespace korvel {
namespace {

std::string CodeOf(const std::string& name) {
    return name == "English" || name == "ENU" ? "ENU" : "";
}

// Empty for a program, which has no modules beside it.
std::string FileOf(const std::string& library, const std::string& code) {
    const std::size_t folder = library.rfind('/');
    const std::size_t ending = folder == std::string::npos ? folder : library.find(".so", folder);
    return ending == std::string::npos ? "" : library.substr(0, ending) + code + ".rll";
}

} // namespace

const ResourceModule* LoadLanguageModule(const std::string& name) {
    if (name.empty() || name == "German" || name == "DEU")
        return nullptr;
    const std::string file = FileOf(platform::OwnFile(), CodeOf(name));
    using Resources = const ResourceModule*();
    auto* resources = reinterpret_cast<Resources*>(platform::LoadFunction(file, ResourceFunction));
    return resources ? resources() : nullptr;
}

} // namespace korvel
