#pragma once

#include "korvel/window/app/resource_module.h"

namespace korvel {

/// The template with that id, or that name (whatever its case): of the module state that is in force on the
/// calling thread (GetModuleState), else the built-in one; null when both have none.
KORVEL_API const DialogTemplate* FindDialogTemplate(UINT id);
KORVEL_API const DialogTemplate* FindDialogTemplate(const char* name);
/// The picture with that id, in the same order.
KORVEL_API const PictureResource* FindPicture(UINT id);

} // namespace korvel
