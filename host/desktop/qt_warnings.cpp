#include "desktop/qt_warnings.h"

#include <QString>
#include <QtGlobal>
#include <iostream>

namespace korvel::inspector {
namespace {

void PrintErrors(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::cerr << message.toStdString() << '\n';
}

} // namespace

void DropQtWarnings() {
    qInstallMessageHandler(PrintErrors);
}

} // namespace korvel::inspector
