#include "korvel/qt/desktop_chooser.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QGuiApplication>
#include <QVariantMap>
#include <QWidget>

namespace korvel::internal {

namespace {

constexpr int AnswerTime = 3000; // milliseconds that the portal has to take the request

// The window over which the dialog is to come, as the portal names it; empty: none.
QString NameOf(const QWidget* owner) {
    if (!owner || QGuiApplication::platformName() != QLatin1String("xcb"))
        return {};
    return QStringLiteral("x11:%1").arg(owner->window()->winId(), 0, 16);
}

} // namespace

// The portal's operation is described at https://flatpak.github.io/xdg-desktop-portal, OpenURI.
bool OfferPrograms(const QWidget* owner, const QString& path) {
    QFile file(path);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !file.open(QIODevice::ReadOnly))
        return false;
    QDBusMessage request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.OpenURI"), QStringLiteral("OpenFile"));
    request << NameOf(owner) << QVariant::fromValue(QDBusUnixFileDescriptor(file.handle()))
            << QVariantMap{{QStringLiteral("ask"), true}};
    return bus.call(request, QDBus::Block, AnswerTime).type() == QDBusMessage::ReplyMessage;
}

} // namespace korvel::internal
