#pragma once

#include "korvel/window/base/image_list.h"

namespace korvel::internal {

/// The strip of the icons of an event list, picture 15003: cells of 16 by 16 pixels beside each other.
class EventIcons {
public:
    /// Of the module state in force, else the library's own.
    void Load();
    /// Null for an index outside the strip.
    const Image* At(int index) const { return m_cells.GetImage(index); }

private:
    static constexpr int Side = 16;

    CImageList m_cells{Side, Side};
};

} // namespace korvel::internal
