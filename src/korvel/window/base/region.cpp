#include "korvel/window/base/region.h"

#include <algorithm>
#include <span>

namespace korvel {
namespace {

using RectangleList = std::vector<CRect>;
using Band = std::span<const CRect>;

bool IsInside(int mode, bool inA, bool inB) {
    switch (mode) {
    case RGN_AND:
        return inA && inB;
    case RGN_OR:
        return inA || inB;
    case RGN_XOR:
        return inA != inB;
    default:
        return inA && !inB;
    }
}

// Goes down over the bands of a region.
class BandWalk {
public:
    explicit BandWalk(const RectangleList& rectangles) : m_rest(rectangles) { Next(); }

    // The band on this line, where there is one. Lines come in order.
    Band At(int line) {
        while (!m_band.empty() && m_band.front().bottom <= line)
            Next();
        return !m_band.empty() && m_band.front().top <= line ? m_band : Band();
    }

private:
    void Next() {
        std::size_t length = 0;
        while (length < m_rest.size() && m_rest[length].top == m_rest.front().top)
            ++length;
        m_band = m_rest.first(length);
        m_rest = m_rest.subspan(length);
    }

    Band m_rest;
    Band m_band;
};

std::vector<int> LinesOf(const RectangleList& a, const RectangleList& b) {
    std::vector<int> lines;
    for (const RectangleList* rectangles : {&a, &b})
        for (const CRect& rect : *rectangles) {
            lines.push_back(rect.top);
            lines.push_back(rect.bottom);
        }
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}

// Goes to the right over the edges of two bands, each of which begins or ends a rectangle.
void CombineBands(Band a, Band b, int mode, int top, int bottom, RectangleList& result) {
    const auto edge = [](Band band, std::size_t number) {
        return number % 2 ? band[number / 2].right : band[number / 2].left;
    };
    std::size_t passedA = 0;
    std::size_t passedB = 0;
    bool inside = false;
    while (passedA < 2 * a.size() || passedB < 2 * b.size()) {
        const bool moreA = passedA < 2 * a.size();
        const bool moreB = passedB < 2 * b.size();
        const int x =
            !moreB || (moreA && edge(a, passedA) < edge(b, passedB)) ? edge(a, passedA) : edge(b, passedB);
        passedA += moreA && edge(a, passedA) == x;
        passedB += moreB && edge(b, passedB) == x;
        const bool nowInside = IsInside(mode, passedA % 2 != 0, passedB % 2 != 0);
        if (nowInside && !inside)
            result.push_back({x, top, x, bottom});
        else if (inside && !nowInside)
            result.back().right = x;
        inside = nowInside;
    }
}

// One band of the rectangles from `second` on and those from `first` on before it, where they cover the same.
void JoinBands(RectangleList& rectangles, std::size_t first, std::size_t second) {
    const Band upper = Band(rectangles).subspan(first, second - first);
    const Band lower = Band(rectangles).subspan(second);
    const bool joins =
        !upper.empty() && !lower.empty() && upper.front().bottom == lower.front().top &&
        std::equal(upper.begin(), upper.end(), lower.begin(), lower.end(),
                   [](const CRect& u, const CRect& l) { return u.left == l.left && u.right == l.right; });
    if (!joins)
        return;
    const int bottom = lower.front().bottom;
    rectangles.resize(second);
    for (std::size_t i = first; i < second; ++i)
        rectangles[i].bottom = bottom;
}

RectangleList Combined(const RectangleList& a, const RectangleList& b, int mode) {
    RectangleList result;
    BandWalk walkA(a);
    BandWalk walkB(b);
    const std::vector<int> lines = LinesOf(a, b);
    std::size_t formerBand = 0;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        const std::size_t band = result.size();
        CombineBands(walkA.At(lines[i]), walkB.At(lines[i]), mode, lines[i], lines[i + 1], result);
        if (result.size() == band)
            continue;
        JoinBands(result, formerBand, band);
        if (result.size() > band)
            formerBand = band;
    }
    return result;
}

} // namespace

void CRgn::CreateRectRgn(int left, int top, int right, int bottom) {
    const auto [x1, x2] = std::minmax(left, right);
    const auto [y1, y2] = std::minmax(top, bottom);
    m_rectangles.clear();
    if (x1 < x2 && y1 < y2)
        m_rectangles.push_back({x1, y1, x2, y2});
}

int CRgn::CombineRgn(const CRgn& a, const CRgn& b, int mode) {
    if (mode < RGN_AND || mode > RGN_COPY)
        return RGN_ERROR;
    RectangleList result = mode == RGN_COPY ? a.m_rectangles : Combined(a.m_rectangles, b.m_rectangles, mode);
    m_rectangles = std::move(result);
    return m_rectangles.empty() ? NULLREGION : m_rectangles.size() == 1 ? SIMPLEREGION : COMPLEXREGION;
}

bool CRgn::PtInRegion(CPoint point) const {
    return std::any_of(
        m_rectangles.begin(), m_rectangles.end(), [&](const CRect& rect) { return rect.PtInRect(point); });
}

CRect CRgn::GetRgnBox() const {
    if (m_rectangles.empty())
        return {};
    CRect box = m_rectangles.front();
    for (const CRect& rect : m_rectangles)
        box = box.United(rect);
    return box;
}

} // namespace korvel
