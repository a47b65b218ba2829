#include "gallery/photographer.h"

#include "desktop/picture_file.h"
#include "gallery/cut_off_texts.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <exception>

namespace korvel::gallery {
namespace {

using namespace std::chrono_literals;

constexpr auto UntilPainted = 50ms;

// What has dropped down.
QList<QWidget*> Popups() {
    QList<QWidget*> popups;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && (window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip))
            popups += window;
    return popups;
}

// The window and what has dropped down, as they lie on the screen.
QImage PictureOf(QWidget& window) {
    const QList<QWidget*> popups = Popups();
    QRect all = window.geometry();
    for (const QWidget* popup : popups)
        all |= popup->geometry();
    const qreal scale = window.devicePixelRatioF();
    QImage picture(all.size() * scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (QWidget* shown : QList<QWidget*>{&window} + popups)
        shown->render(&painter, shown->geometry().topLeft() - all.topLeft());
    return picture;
}

} // namespace

Photographer::Photographer(QString folder, QString suffix)
    : m_folder(std::move(folder)), m_suffix(std::move(suffix)) {}

void Photographer::Save(const QString& name, QWidget& window) {
    const QString file = QDir(m_folder).filePath(QStringLiteral("%1-%2.png").arg(name, m_suffix));
    const QString written = inspector::SavePicture(PictureOf(window), file);
    if (written != file)
        m_notices.push_back("another file has that name; the picture is " + written.toStdString());
    for (const QString& text : CutOffTexts(window))
        m_faults.push_back("cut off in " + written.toStdString() + ": " + text.toStdString());
}

void Photographer::TakeDialog(const QString& name, const Act& show, const Act& use) {
    Take(name, show, use, Shown::Dialog);
}

void Photographer::TakeDropped(const QString& name, const Act& show, const Act& drop) {
    Take(name, show, drop, Shown::Popup);
}

void Photographer::Take(const QString& name, const Act& show, const Act& use, Shown wanted) {
    bool isTaken = false;
    std::exception_ptr failure; // no exception may go through Qt's event loop
    const auto attempt = [&failure](const Act& act) {
        try {
            act();
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
    };
    const auto take = [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog)
            return;
        isTaken = wanted == Shown::Dialog || !Popups().isEmpty();
        attempt([&] { Save(name, *dialog); });
        for (QWidget* popup : Popups())
            popup->close();
        dialog->close();
    };
    const QObject call; // with which the timers end
    QTimer::singleShot(UntilPainted, &call, [&] {
        if (QWidget* dialog = QApplication::activeModalWidget(); dialog && use) {
            dialog->activateWindow(); // no window manager does so
            QApplication::processEvents();
            attempt(use);
        }
        QTimer::singleShot(UntilPainted, &call, take);
    });
    show();
    if (failure)
        std::rethrow_exception(failure);
    if (!isTaken)
        m_faults.push_back("not shown: " + name.toStdString());
}

void Photographer::TakeWindow(const QString& name, QWidget& window) {
    QApplication::processEvents();
    Save(name, window);
}

} // namespace korvel::gallery
