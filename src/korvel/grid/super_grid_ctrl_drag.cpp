#include "korvel/grid/super_grid_ctrl.h"

namespace korvel {

std::unique_ptr<CImageList> CSuperGridCtrl::CreateRowDragImage(int row) {
    const CTreeItem* node = NodeAtRow(row);
    if (!node)
        return nullptr;
    auto picture = std::make_unique<CImageList>(iconWidth, iconHeight);
    const CImageList* icons = GetImageList();
    if (const Image* icon = icons ? icons->GetImage(GetIcon(node)) : nullptr)
        picture->Add(*icon);
    return picture;
}

void CSuperGridCtrl::OnBeginDrag(int row) {
    StopDrag();
    CTreeItem* node = NodeAtRow(row);
    if (!m_allowDrag || !node)
        return;
    m_dragImage = CreateRowDragImage(row);
    if (!m_dragImage)
        return;
    m_draggedNode = node;
    SetCapture(m_hWnd);
}

void CSuperGridCtrl::OnDragMove(CPoint point) {
    CTreeItem* target = NodeAtRow(HitTest(point));
    CTreeItem* former = std::exchange(m_dropTarget, target);
    if (former == target)
        return;
    RedrawNode(former);
    RedrawNode(target);
}

void CSuperGridCtrl::OnDragEnd(CPoint point) {
    CTreeItem* source = m_draggedNode;
    CTreeItem* target = NodeAtRow(HitTest(point));
    StopDrag();
    if (target && target != source->parent())
        MoveNodeUnder(target, source);
}

void CSuperGridCtrl::StopDrag() {
    if (!std::exchange(m_draggedNode, nullptr))
        return;
    RedrawNode(std::exchange(m_dropTarget, nullptr));
    m_dragImage.reset();
    if (GetCapture() == m_hWnd)
        ReleaseCapture();
}

void CSuperGridCtrl::MoveNodeUnder(CTreeItem* target, CTreeItem* source) {
    const RedrawPause pause(*this);
    if (CopyNodeUnder(target, source))
        TakeNode(source);
}

} // namespace korvel
