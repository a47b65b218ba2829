#include "korvel/window/list/list_geometry.h"

#include "korvel/window/core/client_area.h"
#include "korvel/window/list/list_metrics.h"

namespace korvel::internal {

namespace {

// Places far outside stay inside the numbers that a coordinate can hold.
constexpr std::int64_t Farthest = 1 << 28;

struct ScrollBars {
    bool vertical = false;
    bool horizontal = false;
};

int RowsIn(const ListState& list, int height) {
    return std::max(0, height - HeaderHeight(list)) / RowHeight(list);
}

// A bar takes room from the other direction, so that each can make the other one necessary.
ScrollBars ScrollBarsOf(const ListState& list, CSize inner) {
    const int rows = list.rows.Size();
    const int width = list.columns.TotalWidth();
    ScrollBars bars;
    bars.vertical = rows > RowsIn(list, inner.cy);
    bars.horizontal = width > inner.cx - (bars.vertical ? GetSystemMetrics(SM_CXVSCROLL) : 0);
    if (bars.horizontal && !bars.vertical)
        bars.vertical = rows > RowsIn(list, inner.cy - GetSystemMetrics(SM_CYHSCROLL));
    return bars;
}

int ImageWidth(const ListState& list) {
    return list.images ? list.images->GetImageSize().cx : 0;
}

int StateWidth(const ListState& list) {
    return list.HasExtendedStyle(LVS_EX_CHECKBOXES) ? StateIconWidth : 0;
}

int IndentWidth(const ListState& list, int row) {
    return static_cast<int>(std::min(std::int64_t{list.rows.At(row).indent} * ImageWidth(list), Farthest));
}

} // namespace

CRect ListState::ClientInsets(CSize insideBorder) const {
    const ScrollBars bars = ScrollBarsOf(*this, insideBorder);
    return {0, 0, bars.vertical ? GetSystemMetrics(SM_CXVSCROLL) : 0,
            bars.horizontal ? GetSystemMetrics(SM_CYHSCROLL) : 0};
}

view::ScrollView ListState::Scroll() const {
    return ScrollOf(*this, LayoutOf(*this));
}

view::ScrollView ScrollOf(const ListState& list, const ListLayout& layout) {
    view::ScrollView view;
    view.x = list.scrollX;
    view.contentWidth = list.columns.TotalWidth();
    view.pageWidth = layout.client.cx;
    view.topRow = list.topRow;
    view.rowCount = list.rows.Size();
    view.rowsPerPage = layout.rowsPerPage;
    return view;
}

int RowHeight(const ListState& list) {
    const int imageHeight = list.images ? list.images->GetImageSize().cy + ImagePadding : 0;
    return std::max(GetSystemMetrics(SM_KORVEL_TEXTHEIGHT) + RowPadding, imageHeight);
}

int HeaderHeight(const ListState& list) {
    return list.HasStyle(LVS_NOCOLUMNHEADER) ? 0 : GetSystemMetrics(SM_KORVEL_TEXTHEIGHT) + HeaderPadding;
}

CSize ClientSize(const ListState& list) {
    const CRect area = ClientArea(list.record);
    return {area.Width(), area.Height()};
}

ListLayout LayoutOf(const ListState& list) {
    ListLayout layout;
    layout.client = ClientSize(list);
    layout.rowsPerPage = RowsIn(list, layout.client.cy);
    layout.lastTopRow = std::max(0, list.rows.Size() - std::max(1, layout.rowsPerPage));
    layout.lastScrollX = std::max(0, list.columns.TotalWidth() - layout.client.cx);
    return layout;
}

CRect RowBounds(const ListState& list, int row) {
    const int height = RowHeight(list);
    const auto distance = std::clamp((std::int64_t{row} - list.topRow) * height, -Farthest, Farthest);
    const int top = HeaderHeight(list) + static_cast<int>(distance);
    return {-list.scrollX, top, -list.scrollX + list.columns.TotalWidth(), top + height};
}

int WidthBeforeLabel(const ListState& list, int row) {
    return IndentWidth(list, row) + StateWidth(list) + ImageWidth(list);
}

CellParts PartsOfCell(const ListState& list, int row, int column) {
    CellParts parts;
    parts.bounds = RowBounds(list, row);
    parts.bounds.right = parts.bounds.left + list.columns.Left(column + 1);
    parts.bounds.left += list.columns.Left(column);
    parts.stateIcon = parts.icon = parts.label = parts.bounds;
    // A narrow column cuts off its parts, the label first. Other columns than the first are all label.
    const auto inside = [&](int x) {
        return column == 0 ? std::min(parts.bounds.left + x, parts.bounds.right) : parts.bounds.left;
    };
    const int indent = IndentWidth(list, row);
    parts.stateIcon.left = inside(indent);
    parts.stateIcon.right = parts.icon.left = inside(indent + StateWidth(list));
    parts.icon.right = parts.label.left = inside(WidthBeforeLabel(list, row));
    return parts;
}

ListHit HitTest(const ListState& list, CPoint point) {
    const CSize client = ClientSize(list);
    const int headerHeight = HeaderHeight(list);
    if (point.x < 0 || point.x >= client.cx || point.y < headerHeight || point.y >= client.cy)
        return {};
    const int column = list.columns.At(point.x + list.scrollX);
    const int row = list.topRow + (point.y - headerHeight) / RowHeight(list);
    if (column == ListColumns::None || !list.rows.Has(row))
        return {};
    const CellParts parts = PartsOfCell(list, row, column);
    if (parts.stateIcon.PtInRect(point))
        return {row, column, LVHT_ONITEMSTATEICON};
    return {row, column, parts.icon.PtInRect(point) ? LVHT_ONITEMICON : LVHT_ONITEMLABEL};
}

RowSpan RowsIn(const ListState& list, const CRect& area) {
    const CSize client = ClientSize(list);
    const int headerHeight = HeaderHeight(list);
    const int top = std::max(area.top, headerHeight) - headerHeight;
    const int bottom = std::min(area.bottom, client.cy) - headerHeight;
    if (bottom <= top)
        return {};
    const int height = RowHeight(list);
    const int count = list.rows.Size();
    return {std::min(count, list.topRow + top / height),
            std::min(count, list.topRow + (bottom + height - 1) / height)};
}

} // namespace korvel::internal
