#pragma once

#include "desktop/grid_pane.h"
#include "desktop/lists_window.h"
#include "landxml/landxml_document.h"

#include <QMainWindow>
#include <QMessageBox>
#include <functional>
#include <memory>
#include <string>

class QAction;
class QLabel;
class QMenu;
class QStackedWidget;

namespace korvel::inspector {

/// The inspector's main window: menus, the grid of the open document, and a status line. It is to be made
/// while a QtDisplay is in force.
class InspectorWindow final : public QMainWindow {
public:
    /// `unitOfFile`: angles take the unit of each document that is opened.
    explicit InspectorWindow(const ReadingOptions& options, bool unitOfFile = false);
    ~InspectorWindow() override;

    /// Opens a document instead of the one that is shown. Throws DocumentError; what was shown stays then.
    void Open(const std::string& path);
    /// The same; a box shows what went wrong. True when the document is open.
    bool OpenOrWarn(const std::string& path);
    /// Shows a text (UTF-8) in a box.
    void Warn(const std::string& text);
    GridPane& Pane() { return *m_pane; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeMenus();
    void MakeFileMenu();
    void MakeDocumentMenu();
    void ListRecentFiles();
    void OpenRecent(const std::string& path);
    /// The part of its screen that is free for windows with their frames.
    QRect Room() const;
    void ShowBox(QMessageBox::Icon icon, const QString& text);
    /// A box shows what went wrong; false then.
    bool Try(const std::function<void()>& action);
    void ChooseFile();
    void ShowLists();
    void ShowAbout();
    void ShowStatus(const std::string& path);

    const ReadingOptions m_options;
    const bool m_unitOfFile;
    std::unique_ptr<LandXmlDocument> m_document; // outlives the grid that shows it
    std::unique_ptr<GridPane> m_pane;
    std::unique_ptr<ListsWindow> m_lists; // of the open document, made when first asked for
    std::string m_file;                   // the open document
    QMenu* m_recentMenu = nullptr;
    QMenu* m_documentMenu = nullptr; // for what needs a document
    QAction* m_listsAction = nullptr;
    QStackedWidget* m_pages = nullptr;
    QLabel* m_status = nullptr;
    QString m_folder; // of the open document
};

} // namespace korvel::inspector
