#include "korvel/layout/pane_manager.h"

#include "korvel/layout/host_controls.h"
#include "korvel/layout/pane_placement.h"
#include "korvel/window/core/window.h"

#include <utility>

namespace korvel {

using namespace internal;

namespace {

// As UnionRect of the window model: an empty rectangle adds nothing.
CRect UnionOf(const CRect& a, const CRect& b) {
    if (a.IsRectEmpty())
        return b.IsRectEmpty() ? CRect{} : b;
    return b.IsRectEmpty() ? a : a.United(b);
}

} // namespace

CPaneManager::CPaneManager(int flow, UINT layoutFlags, HWND parent, int controlId)
    : orientation(flow), hParent(parent), id(controlId) {
    flags = layoutFlags;
}

CPaneManager* CPaneManager::Add(IItem* child) {
    if (!child)
        return this;
    const boost::shared_ptr<IItem> owned(child);
    const int growsX = (child->flags & ItemGrowX) && orientation == 1;
    const int growsY = (child->flags & ItemGrowY) && orientation == 0;
    growCountX += growsX;
    growCountY += growsY;
    try {
        child->CaptureRect();
        children.push_back(owned);
    } catch (...) {
        growCountX -= growsX;
        growCountY -= growsY;
        throw;
    }
    return this;
}

void CPaneManager::MoveTo(const RECT& target) {
    PanePlacement placement({rect, flags, orientation, growCountX, growCountY}, target);
    if (const HWND control = ControlOf(hParent, id))
        MoveWindow(control, placement.Own());
    for (const boost::shared_ptr<IItem>& child : children)
        child->MoveTo(placement.PlaceNext(child->flags, *child->GetRect()));
}

void CPaneManager::CaptureRect() {
    if (hParent && id != NoControlId) {
        rect = ClientRectangleOf(ControlOf(hParent, id), hParent);
        return;
    }
    bool first = true;
    for (const boost::shared_ptr<IItem>& child : children) {
        const CRect& next = *child->GetRect();
        rect = std::exchange(first, false) ? next : UnionOf(rect, next);
    }
}

IItem* CPaneManager::FindItem(int wanted) {
    if (wanted == id)
        return this;
    for (const boost::shared_ptr<IItem>& child : children)
        if (IItem* found = child->FindItem(wanted))
            return found;
    return nullptr;
}

void CPaneManager::Shift(int dx, int dy) {
    for (const boost::shared_ptr<IItem>& child : children)
        child->Shift(dx, dy);
}

void CPaneManager::ShiftKeep(int dx, int dy) {
    for (const boost::shared_ptr<IItem>& child : children)
        child->ShiftKeep(dx, dy);
}

} // namespace korvel
