#include "desktop/desktop_language.h"

#include "texts/messages.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace korvel::inspector {

void UseDesktopLanguage(const std::string& locale, QTranslator& translator) {
    if (!locale.empty())
        QLocale::setDefault(QLocale(QString::fromStdString(locale)));
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (SpeaksGerman() && translator.load(QStringLiteral("qtbase_de"), folder))
        QApplication::installTranslator(&translator);
}

} // namespace korvel::inspector
