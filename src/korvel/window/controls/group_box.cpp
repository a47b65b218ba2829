#include "korvel/window/controls/group_box.h"

#include "korvel/window/base/access_mark.h"
#include "korvel/window/core/display.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <algorithm>

namespace korvel::internal {
namespace {

constexpr int TextLeft = 9; // from the frame's corner
constexpr int Gap = 2;      // between the text and the line beside it

void DrawSegment(CDC& dc, CPoint from, CPoint to) {
    dc.MoveTo(from);
    dc.LineTo(to);
}

} // namespace

void PaintGroupBox(HWND window, CDC& dc) {
    const CRect client = GetClientRect(window);
    const CString text = WithoutMarks(GetWindowTextA(window));
    const int textHeight = GetSystemMetrics(SM_KORVEL_TEXTHEIGHT);
    const int top = std::min(textHeight / 2, client.bottom);
    const int right = client.right - 1;
    const int bottom = client.bottom - 1;
    const int textWidth = text.empty() ? 0 : Display().TextWidth(text);
    const int textRight = std::min(TextLeft + textWidth, std::max(TextLeft, right - TextLeft));
    dc.SelectPen(PS_SOLID, GetSysColor(COLOR_BTNSHADOW));
    if (text.empty()) {
        DrawSegment(dc, {0, top}, {right, top});
    } else {
        DrawSegment(dc, {0, top}, {TextLeft - Gap, top});
        DrawSegment(dc, {textRight + Gap, top}, {std::max(right, textRight + Gap), top});
    }
    DrawSegment(dc, {right, top}, {right, bottom});
    DrawSegment(dc, {right, bottom}, {0, bottom});
    DrawSegment(dc, {0, bottom}, {0, top});
    dc.SetTextColor(GetSysColor(view::IsSwitchedOn(window) ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    dc.DrawText(text, {TextLeft, 0, textRight, textHeight}, DT_SINGLELINE | DT_END_ELLIPSIS);
}

} // namespace korvel::internal
