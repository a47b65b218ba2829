#pragma once

#include "korvel/editors/control_type.h"
#include "korvel/window/core/dc.h"

#include <functional>

namespace korvel::internal {

/// What the cell of a value has beside its text.
struct CellLook {
    CONTROLTYPE control = ctEdit;
    bool isEnabled = true;
    bool isChosen = false; ///< a list shows its arrow
    UINT checkState = 0;   ///< of ctCheck: DFCS_*
    COLORREF swatch = 0;   ///< of the colors; of ctColorAlpha with its opacity in the top byte
};

enum class CellGround {
    Plain,
    Selected,   ///< of a selected row without the keyboard
    Highlighted ///< of a selected row with it
};

/// Draws what the cell of a value shows, for the grid and for the item window.
///
///     CellPainter painter(dc, DrawFrame);
///     dc.FillSolidRect(cell, ground);
///     painter.DrawText("90,00", painter.DrawControl({ctAngle}, cell), ground);
class CellPainter {
public:
    /// Draws a control of the desktop, as CDC::DrawFrameControl does.
    using FrameDrawer = std::function<void(const CRect& rect, UINT type, UINT state)>;

    CellPainter(CDC& dc, FrameDrawer drawFrame) : m_dc(dc), m_drawFrame(std::move(drawFrame)) {}

    /// Returns the room that is left for the text.
    CRect DrawControl(const CellLook& look, const CRect& cell);
    /// Nothing for an empty text. What is disabled is gray, but legible on `ground`.
    void DrawText(const CString& text, CRect room, COLORREF ground, CellGround kind = CellGround::Plain,
                  bool isEnabled = true);

private:
    void DrawSwatch(const CRect& square, COLORREF word);
    void DrawButton(const CRect& square, const CString& face);
    void DrawDice(const CRect& square);

    CDC& m_dc;
    const FrameDrawer m_drawFrame;
};

} // namespace korvel::internal
