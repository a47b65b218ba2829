#include "korvel/editors/cell_painter.h"

#include "korvel/editors/cell_geometry.h"
#include "korvel/output/angles.h"
#include "korvel/window/base/color.h"
#include "korvel/window/core/window.h"

namespace korvel::internal {

namespace {

constexpr int TextMargin = 4;
constexpr COLORREF Opaque = 0xFF000000;

constexpr UINT TextFormat = DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;

// Black or white, whichever is read better on the ground.
COLORREF Readable(COLORREF ground) {
    // The weights of the channels in perceived brightness, ITU-R BT.601, in thousandths.
    const unsigned brightness =
        (299 * GetRValue(ground) + 587 * GetGValue(ground) + 114 * GetBValue(ground)) / 1000;
    return brightness < 128 ? RGB(255, 255, 255) : RGB(0, 0, 0);
}

COLORREF TextColor(COLORREF ground, CellGround kind, bool isEnabled) {
    if (kind == CellGround::Highlighted)
        return GetSysColor(COLOR_HIGHLIGHTTEXT);
    if (!isEnabled)
        return GetSysColor(COLOR_GRAYTEXT);
    if (kind == CellGround::Selected)
        return GetSysColor(COLOR_BTNTEXT);
    return ground != GetSysColor(COLOR_WINDOW) ? Readable(ground) : GetSysColor(COLOR_WINDOWTEXT);
}

} // namespace

CRect CellPainter::DrawControl(const CellLook& look, const CRect& cell) {
    const CRect inside = InsideOfCell(cell);
    const CRect square = InsideOfCell(InsideOfCell(LeftSquare(cell)));
    CRect room = cell;
    switch (look.control) {
    case ctCheck:
        if (!square.IsRectEmpty())
            m_drawFrame(square, DFC_BUTTON, look.checkState);
        room.left = LeftSquare(cell).right;
        return room;
    case ctColor:
        DrawSwatch(square, look.swatch | Opaque);
        room.left = LeftSquare(cell).right;
        return room;
    case ctColorAlpha:
        DrawSwatch(square, look.swatch);
        room.left = LeftSquare(cell).right;
        return room;
    case ctAngle:
        if (!look.isEnabled)
            return room;
        DrawButton(RightSquare(cell), CString(1, GetAngleUnit()));
        room.right = RightSquare(cell).left;
        return room;
    case ctRandom:
        if (!look.isEnabled)
            return room;
        DrawDice(RightSquare(cell));
        room.right = RightSquare(cell).left;
        return room;
    case ctButton:
        DrawButton(RightSquare(inside), "...");
        room.right = RightSquare(inside).left;
        return room;
    case ctFile: {
        const CRect open = OpenSquare(cell);
        DrawButton(BrowseSquare(cell), "...");
        DrawButton(open, "\xBB");
        room.right = open.left;
        return room;
    }
    case ctCombo:
    case ctList:
        if (!look.isChosen || !look.isEnabled)
            return room;
        m_drawFrame(RightSquare(inside), DFC_SCROLL, DFCS_SCROLLDOWN);
        room.right = RightSquare(inside).left;
        return room;
    default:
        return room;
    }
}

void CellPainter::DrawText(const CString& text, CRect room, COLORREF ground, CellGround kind,
                           bool isEnabled) {
    room.DeflateRect(TextMargin, 0);
    if (text.empty() || room.IsRectEmpty())
        return;
    COLORREF color = TextColor(ground, kind, isEnabled);
    if (!isEnabled) {
        const bool isHighlighted = kind == CellGround::Highlighted;
        color = Legible(isHighlighted ? Mix(color, ground, 1, 2) : color,
                        isHighlighted ? color : GetSysColor(COLOR_WINDOWTEXT), ground);
    }
    m_dc.SetTextColor(color);
    m_dc.DrawText(text, room, TextFormat);
}

// Where the color lets the ground through, a checkered one shows it.
void CellPainter::DrawSwatch(const CRect& square, COLORREF word) {
    if (square.IsRectEmpty())
        return;
    const COLORREF color = word & 0xFFFFFF;
    const unsigned opacity = word >> 24;
    if (opacity == 0xFF) {
        m_dc.FillSolidRect(square, color);
    } else {
        constexpr int Tile = 4;
        m_dc.FillSolidRect(square, Mix(RGB(255, 255, 255), color, opacity, 255));
        const COLORREF dark = Mix(RGB(160, 160, 160), color, opacity, 255);
        for (int y = square.top; y < square.bottom; y += Tile)
            for (int x = square.left + (y - square.top) % (2 * Tile); x < square.right; x += 2 * Tile)
                m_dc.FillSolidRect(CRect{x, y, x + Tile, y + Tile}.Intersected(square), dark);
    }
    m_dc.FrameRect(square, GetSysColor(COLOR_BTNSHADOW));
}

void CellPainter::DrawButton(const CRect& square, const CString& face) {
    if (square.IsRectEmpty())
        return;
    m_drawFrame(square, DFC_BUTTON, DFCS_BUTTONPUSH);
    m_dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
    m_dc.DrawText(face, square, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

void CellPainter::DrawDice(const CRect& square) {
    if (square.IsRectEmpty())
        return;
    m_drawFrame(square, DFC_BUTTON, DFCS_BUTTONPUSH);
    const COLORREF ink = GetSysColor(COLOR_BTNTEXT);
    const CRect die = square.Centered({11, 11});
    m_dc.FrameRect(die, ink);
    for (const CPoint pip : {CPoint{2, 2}, CPoint{7, 2}, CPoint{2, 7}, CPoint{7, 7}})
        m_dc.FillSolidRect({die.left + pip.x, die.top + pip.y, die.left + pip.x + 2, die.top + pip.y + 2},
                           ink);
}

} // namespace korvel::internal
