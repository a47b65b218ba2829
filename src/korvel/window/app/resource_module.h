#pragma once

#include "korvel/window/app/dialog_template.h"

#include <cstdint>
#include <span>

namespace korvel {

/// A picture of a module's resources: rows from the top, each pixel 0xAARRGGBB, not premultiplied.
struct PictureResource {
    UINT id;
    int width;
    int height;
    const std::uint32_t* pixels;
};

/// The resources of a module: of a host (CWinApp::m_pResources), or of a language module that the library
/// has loaded. The library's own are German and built in.
///
///     constexpr DialogTemplate Dialogs[] = {Rename, Options};
///     constexpr ResourceModule Resources{Dialogs, {}};
///     host.m_pResources = &Resources;
struct ResourceModule {
    std::span<const DialogTemplate> dialogs;
    std::span<const PictureResource> pictures;
};

} // namespace korvel
