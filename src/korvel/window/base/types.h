#pragma once

#include "korvel/platform/export.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace korvel {

struct WindowTag;

/// Names a window. The value is a number of the window table and is never dereferenced: a handle whose
/// window is gone is recognized, and every operation on it has no effect and returns 0.
using HWND = WindowTag*;

using UINT = unsigned int;
using BOOL = int;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using WNDPROC = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// A color as 0x00BBGGRR.
using COLORREF = std::uint32_t;

/// Byte text in the library's code page (platform/code_page.h).
using CString = std::string;

struct CPoint {
    int x = 0;
    int y = 0;
    bool operator==(const CPoint&) const = default;
};

struct CSize {
    int cx = 0;
    int cy = 0;
    bool operator==(const CSize&) const = default;
};

/// A rectangle in pixels; right and bottom lie outside it. It is empty when they are not beyond left and
/// top, as the operations below may leave it.
struct CRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CPoint TopLeft() const { return {left, top}; }
    bool IsRectEmpty() const { return right <= left || bottom <= top; }
    bool PtInRect(CPoint point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    void OffsetRect(int dx, int dy) {
        left += dx;
        right += dx;
        top += dy;
        bottom += dy;
    }
    void DeflateRect(int dx, int dy) {
        left += dx;
        right -= dx;
        top += dy;
        bottom -= dy;
    }
    CRect Intersected(const CRect& other) const {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    /// A rectangle of that size in the middle of this one; what cannot be halved lies right and below.
    CRect Centered(CSize size) const {
        const int x = left + (Width() - size.cx) / 2;
        const int y = top + (Height() - size.cy) / 2;
        return {x, y, x + size.cx, y + size.cy};
    }
    CRect United(const CRect& other) const {
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }
    bool operator==(const CRect&) const = default;
};

/// The name of the contract for a rectangle without operations.
using RECT = CRect;

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16;
}
constexpr unsigned GetRValue(COLORREF color) {
    return color & 0xFF;
}
constexpr unsigned GetGValue(COLORREF color) {
    return color >> 8 & 0xFF;
}
constexpr unsigned GetBValue(COLORREF color) {
    return color >> 16 & 0xFF;
}

constexpr unsigned LOWORD(std::uintptr_t value) {
    return value & 0xFFFF;
}
constexpr unsigned HIWORD(std::uintptr_t value) {
    return value >> 16 & 0xFFFF;
}
constexpr WPARAM MAKEWPARAM(unsigned low, unsigned high) {
    return (low & 0xFFFF) | (high & 0xFFFF) << 16;
}
constexpr LPARAM MAKELPARAM(int x, int y) {
    return static_cast<LPARAM>((static_cast<unsigned>(x) & 0xFFFF) | (static_cast<unsigned>(y) & 0xFFFF)
                                                                         << 16);
}
/// The point that a mouse message carries; both coordinates are signed 16-bit numbers.
constexpr CPoint PointOf(LPARAM lParam) {
    return {static_cast<std::int16_t>(lParam & 0xFFFF), static_cast<std::int16_t>(lParam >> 16 & 0xFFFF)};
}

} // namespace korvel
