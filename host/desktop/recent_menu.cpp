#include "desktop/recent_menu.h"

#include "desktop/said.h"
#include "program/recent_files.h"

#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QScreen>
#include <utility>

namespace korvel::inspector {

RecentMenu::RecentMenu(QMenu& menu, std::function<bool(const std::string& path)> open)
    : m_open(std::move(open)), m_menu(menu.addMenu(Said(TheProgramTexts.recentFiles))) {
    QObject::connect(
        &menu, &QMenu::aboutToShow, m_menu, [this] { List(); });
}

void RecentMenu::List() {
    m_menu->clear();
    for (const std::string& path : RecentFiles()) {
        // Both ends are needed: the file's name, and what tells it from others of that name.
        QString label = m_menu->fontMetrics().elidedText(QFile::decodeName(path.c_str()), Qt::ElideMiddle,
                                                         m_menu->screen()->size().width() / 2);
        label.replace(QLatin1Char('&'), QLatin1String("&&"));
        const int number = static_cast<int>(m_menu->actions().size()) + 1;
        m_menu->addAction(QStringLiteral("&%1  %2").arg(number).arg(label), m_menu,
                          [this, path] { Open(path); });
    }
    m_menu->setEnabled(!m_menu->isEmpty());
}

void RecentMenu::Open(const std::string& path) const {
    if (!m_open(path) && !QFileInfo::exists(QFile::decodeName(path.c_str())))
        RemoveRecentFile(path);
}

} // namespace korvel::inspector
