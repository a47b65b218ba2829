#pragma once

#include "desktop/recent_menu.h"
#include "texts/program_texts.h"

#include <QKeySequence>
#include <functional>
#include <memory>
#include <string>

class QAction;
class QMenu;
class QMenuBar;

namespace korvel::inspector {

class OpenDocument;

/// The menu of the document's file.
class FileMenu {
public:
    struct Actions {
        std::function<void()> open;
        std::function<bool(const std::string& path)> openRecent; ///< as RecentMenu takes it
        std::function<void()> reload;
        std::function<void()> save;
        std::function<void()> saveAs;
        std::function<void()> close;
        std::function<void()> quit;
    };

    /// Adds itself to `bar`.
    FileMenu(QMenuBar& bar, const Actions& actions);

    /// The document that is open, or null.
    void SetDocument(OpenDocument* document);

private:
    QAction* Add(const ProgramText& text, const std::function<void()>& action, const QKeySequence& key);

    QMenu* m_menu;
    std::unique_ptr<RecentMenu> m_recent;
    QAction* m_reload;
    QAction* m_save;
    QAction* m_saveAs;
    QAction* m_close;
};

} // namespace korvel::inspector
