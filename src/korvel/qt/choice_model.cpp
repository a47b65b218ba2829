#include "korvel/qt/choice_model.h"

#include "korvel/qt/convert.h"
#include "korvel/window/display/window_view.h"

namespace korvel::internal {

void ChoiceModel::Reset() {
    beginResetModel();
    m_count = view::Choice(m_window).count;
    endResetModel();
}

QVariant ChoiceModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    return ToQString(view::ChoiceText(m_window, index.row()));
}

} // namespace korvel::internal
