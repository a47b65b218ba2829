#pragma once

#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Optional: what a nested object shows in the value cells of its group row. Found by `dynamic_cast` on what
/// `IMemberDispatch::m_pEnumValue` points at, so a class derives from it and from `IEnumValue`. The library
/// calls it on the thread of the windows; an operation may do anything but delete the grid.
class KORVEL_API GroupPresentation {
public:
    virtual ~GroupPresentation() = default;

    /// The text for the cell under a column title.
    virtual std::string GetPresentationText(const char* column) = 0;

    /// 1: the row shows texts. Anything else leaves the cells alone.
    virtual unsigned char GetPresentationKind() = 0;

    /// The user has clicked the button of the group's cell.
    virtual void OnPresentationClick() = 0;
};

} // namespace korvel
