#include "korvel/window/app/find_resource.h"

#include "korvel/window/app/app.h"
#include "korvel/window/app/built_in_resources.h"
#include "korvel/window/base/name_compare.h"

namespace korvel {

using namespace internal;

namespace {

// First what the module in force has, then what is built in.
template <class Resource, class Matches>
const Resource* FindIn(std::span<const Resource>(ResourceModule::*part),
                       const std::vector<const Resource*>& builtIn, Matches matches) {
    if (const ResourceModule* module = GetModuleState().resources)
        for (const Resource& resource : module->*part)
            if (matches(resource))
                return &resource;
    for (const Resource* resource : builtIn)
        if (matches(*resource))
            return resource;
    return nullptr;
}

} // namespace

const DialogTemplate* FindDialogTemplate(UINT id) {
    return FindIn(
        &ResourceModule::dialogs, BuiltInDialogs(),
        [&](const DialogTemplate& dialog) { return !dialog.name && dialog.id == id; });
}

const DialogTemplate* FindDialogTemplate(const char* name) {
    return FindIn(
        &ResourceModule::dialogs, BuiltInDialogs(),
        [&](const DialogTemplate& dialog) { return name && dialog.name && IsSameName(dialog.name, name); });
}

const PictureResource* FindPicture(UINT id) {
    return FindIn(
        &ResourceModule::pictures, BuiltInPictures(),
        [&](const PictureResource& picture) { return picture.id == id; });
}

} // namespace korvel
