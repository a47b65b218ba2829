#include "korvel/window/list/list_columns.h"

#include <cstdlib>
#include <utility>

namespace korvel::internal {

namespace {

constexpr int UnsetWidth = 10;  // pixels of a column that is inserted without a width
constexpr int DividerReach = 4; // pixels to each side of a divider
// Sums of widths, and places derived from them, stay inside the numbers of a coordinate.
constexpr int WidestContent = 1 << 28;

int RightOf(int left, int width) {
    return std::min(left + width, WidestContent);
}

} // namespace

int ListColumns::Insert(int column, ListColumn content) {
    const int at = std::min(column, Count());
    const int width = content.width < 0 ? UnsetWidth : content.width;
    m_columns.insert(m_columns.begin() + at, std::move(content));
    SetWidth(at, width);
    return at;
}

void ListColumns::SetWidth(int column, int width) {
    m_columns[column].width = std::clamp(width, 0, WidestContent);
}

UINT ListColumns::DrawFormat(int column) const {
    constexpr UINT Line = DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;
    switch (column == 0 ? LVCFMT_LEFT : m_columns[column].format & LVCFMT_JUSTIFYMASK) {
    case LVCFMT_RIGHT:
        return DT_RIGHT | Line;
    case LVCFMT_CENTER:
        return DT_CENTER | Line;
    default:
        return DT_LEFT | Line;
    }
}

int ListColumns::Left(int column) const {
    int left = 0;
    for (int i = 0; i < std::min(column, Count()); ++i)
        left = RightOf(left, m_columns[i].width);
    return left;
}

int ListColumns::At(int x) const {
    int right = 0;
    for (int column = 0; x >= 0 && column < Count(); ++column) {
        right = RightOf(right, m_columns[column].width);
        if (x < right)
            return column;
    }
    return None;
}

int ListColumns::DividerAt(int x) const {
    int found = None;
    int nearest = DividerReach + 1;
    int right = 0;
    for (int column = 0; column < Count(); ++column) {
        right = RightOf(right, m_columns[column].width);
        const int distance = std::abs(x - right);
        if (distance <= DividerReach && distance <= nearest) {
            found = column;
            nearest = distance;
        }
    }
    return found;
}

} // namespace korvel::internal
