#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <functional>

namespace korvel::internal {

/// A combo box whose list opens when its window says so.
class ComboBoxWidget final : public QComboBox {
public:
    enum class Line { Entry, Field };
    /// With Line::Field a text field of another widget covers the line.
    ComboBoxWidget(Line line, QWidget* parent) : QComboBox(parent), m_line(line) {}

    std::function<void()> onOpening; // the user wants to open the list
    void showPopup() override { onOpening(); }
    void ShowList() { QComboBox::showPopup(); }
    /// The window of the list.
    QWidget& List() { return *view()->window(); }

protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;

private:
    Line m_line;
};

} // namespace korvel::internal
