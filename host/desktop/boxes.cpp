#include "desktop/boxes.h"

#include "desktop/said.h"
#include "source/document_error.h"

#include <QGuiApplication>
#include <QPushButton>

namespace korvel::inspector {
namespace {

QMessageBox& SetUp(QMessageBox& box, QMessageBox::Icon icon, const QString& text) {
    box.setIcon(icon);
    box.setWindowTitle(QGuiApplication::applicationDisplayName());
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    return box;
}

} // namespace

void Boxes::Show(QMessageBox::Icon icon, const QString& text) const {
    QMessageBox box(&m_window);
    SetUp(box, icon, text).exec();
}

bool Boxes::Try(const std::function<void()>& action) const {
    QString failure;
    try {
        action();
    } catch (const DocumentError& error) {
        failure = QString::fromStdString(error.Utf8Text());
    } catch (const std::exception& error) {
        failure = Said(error.what());
    }
    if (!failure.isEmpty())
        Show(QMessageBox::Critical, failure);
    return failure.isEmpty();
}

bool Boxes::MayLose(const QString& text, const ProgramText& button) const {
    QMessageBox box(&m_window);
    SetUp(box, QMessageBox::Warning, text);
    const QPushButton* lose = box.addButton(Said(button), QMessageBox::DestructiveRole);
    QPushButton* cancel = box.addButton(QMessageBox::Cancel);
    box.setEscapeButton(cancel);
    box.setDefaultButton(cancel);
    box.exec();
    return box.clickedButton() == lose;
}

Boxes::Unsaved Boxes::AskWhatBecomesOf(const QString& text) const {
    QMessageBox box(&m_window);
    SetUp(box, QMessageBox::Warning, text);
    QPushButton* save = box.addButton(Said(TheProgramTexts.save), QMessageBox::AcceptRole);
    const QPushButton* discard = box.addButton(Said(TheProgramTexts.discard), QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton(QMessageBox::Cancel));
    box.setDefaultButton(save);
    box.exec();
    if (box.clickedButton() == save)
        return Unsaved::Save;
    return box.clickedButton() == discard ? Unsaved::Discard : Unsaved::Keep;
}

} // namespace korvel::inspector
