#include "korvel/qt/combo_box_widget.h"

#include <QStyleOptionComboBox>

namespace korvel::internal {

void ComboBoxWidget::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    option->editable = m_line == Line::Field;
}

} // namespace korvel::internal
