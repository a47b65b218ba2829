#pragma once

#include "korvel/window/app/resource_module.h"

#include <vector>

/// The library's own resources, which are German. Each dialog adds its own when the library is loaded:
///
///     [[maybe_unused]] const bool Registered = AddBuiltIn(CodeListTemplate);
namespace korvel::internal {

/// Both return true. The resource must live as long as the library.
bool AddBuiltIn(const DialogTemplate& dialog);
bool AddBuiltIn(const PictureResource& picture);

const std::vector<const DialogTemplate*>& BuiltInDialogs();
const std::vector<const PictureResource*>& BuiltInPictures();

} // namespace korvel::internal
