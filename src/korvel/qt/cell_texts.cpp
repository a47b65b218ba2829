#include "korvel/qt/cell_texts.h"

#include "korvel/qt/asked_list.h"
#include "korvel/qt/convert.h"
#include "korvel/window/display/window_view.h"

#include <QStringList>

namespace korvel::internal {

namespace {

constexpr int MostColumns = 64; // of which a sentence is made

} // namespace

QString TextAt(const AskedList& list, view::CellPlace place) {
    const auto cell = list.Cell(place);
    return cell ? ToQString(cell->text) : QString();
}

QString DescriptionOf(const AskedList& list, const view::CellView& cell) {
    if (cell.at.row == view::TitleRow)
        return {};
    if (cell.at.column > 0)
        return TextAt(list, {cell.at.row, 0});
    QStringList parts;
    for (int column = 1; column < std::min(list.List().columnCount, MostColumns); ++column)
        parts.push_back(TextAt(list, {cell.at.row, column}));
    if (cell.level > 1)
        parts.push_back(ToQString(view::LevelText(cell.level)));
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace korvel::internal
