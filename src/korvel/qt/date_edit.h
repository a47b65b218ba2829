#pragma once

#include <QCheckBox>
#include <QDateTimeEdit>

namespace korvel::internal {

/// A date field whose calendar can be opened by a program, with a box at its left that says whether there is
/// a date.
class DateEdit final : public QDateTimeEdit {
public:
    enum class Box { None, HasDate };
    DateEdit(Box box, QWidget* parent);

    /// Null without one.
    QCheckBox* HasDateBox() const { return m_box; }
    QWidget& Line() const;
    /// The window of the calendar; null while a picture without a date needs none.
    QWidget* Calendar() const;
    void OpenCalendar();
    /// Grey, and not to be edited.
    void ShowAsNone(bool isNone);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QCheckBox* m_box = nullptr;
};

} // namespace korvel::internal
