#pragma once

#include "korvel/editors/combo_view.h"
#include "korvel/window/core/dc.h"

namespace korvel::internal {

/// Draws one row of a CComboList.
class ComboRowPainter {
public:
    ComboRowPainter(const ComboView& view, int currentRow, CDC& dc)
        : m_view(view), m_currentRow(currentRow), m_dc(dc) {}

    void Draw(int row, UINT itemState);

private:
    bool HasKeyboard(int row) const;
    void DrawTree(const ComboTreeItem& item, const ComboRowGeometry& geometry);
    void DrawTreeButton(bool expanded, const CRect& box);
    void DrawIcon(const ComboTreeItem& item, const CRect& rect);
    void DrawColumns(int row, const ComboTreeItem& item);
    void DrawDispValue(CRect rect, const CString& text);
    void Line(int fromX, int fromY, int toX, int toY);

    const ComboView& m_view;
    const int m_currentRow; // -1: none
    CDC& m_dc;
};

} // namespace korvel::internal
