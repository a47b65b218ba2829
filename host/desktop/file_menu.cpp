#include "desktop/file_menu.h"

#include "desktop/said.h"
#include "editing/open_document.h"

#include <QMenu>
#include <QMenuBar>

namespace korvel::inspector {

FileMenu::FileMenu(QMenuBar& bar, const Actions& actions)
    : m_menu(bar.addMenu(Said(TheProgramTexts.fileMenu))) {
    const ProgramTexts& texts = TheProgramTexts;
    Add(texts.open, actions.open, QKeySequence::Open);
    m_recent = std::make_unique<RecentMenu>(*m_menu, actions.openRecent);
    m_reload = Add(texts.reload, actions.reload, QKeySequence::Refresh);
    m_save = Add(texts.save, actions.save, QKeySequence::Save);
    m_saveAs = Add(texts.saveAs, actions.saveAs, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    m_close = Add(texts.close, actions.close, QKeySequence(Qt::CTRL | Qt::Key_W));
    m_menu->addSeparator();
    Add(texts.quit, actions.quit, QKeySequence(Qt::CTRL | Qt::Key_Q));
    SetDocument(nullptr);
}

QAction* FileMenu::Add(const ProgramText& text, const std::function<void()>& action,
                       const QKeySequence& key) {
    QAction* added = m_menu->addAction(Said(text), m_menu, action);
    added->setShortcut(key);
    return added;
}

void FileMenu::SetDocument(OpenDocument* document) {
    for (QAction* action : {m_reload, m_saveAs, m_close})
        action->setEnabled(document != nullptr);
    m_save->setEnabled(document && !document->Document().IsReadOnly()); // also for what is being typed
}

} // namespace korvel::inspector
