#pragma once

#include "korvel/window/base/image_list.h"
#include "korvel/window/base/types.h"

#include <memory>

namespace korvel {
class CSuperGridCtrl;
namespace grid {
class CTreeItem;
}
} // namespace korvel

namespace korvel::internal {

/// A row of a tree grid that the pointer drags, and that moves below the row on which it is dropped.
class RowDrag {
public:
    explicit RowDrag(CSuperGridCtrl& grid);
    ~RowDrag();

    bool IsActive() const { return m_node != nullptr; }
    void Begin(int row);
    void Move(CPoint point);
    void Drop(CPoint point);
    /// To be called before a node is deleted.
    void Stop();

private:
    CSuperGridCtrl& m_grid;
    std::unique_ptr<CImageList> m_image;
    grid::CTreeItem* m_node = nullptr;
    grid::CTreeItem* m_target = nullptr; // under the pointer
};

} // namespace korvel::internal
