#pragma once

#include "desktop/boxes.h"
#include "desktop/document_watch.h"
#include "desktop/edit_menu.h"
#include "desktop/events_dock.h"
#include "desktop/file_menu.h"
#include "desktop/lists_window.h"
#include "desktop/loading_dialog.h"
#include "editing/checked_document.h"
#include "editing/document_reports.h"
#include "editing/grid_pane.h"
#include "editing/open_document.h"
#include "program/document_chooser.h"

#include <QMainWindow>
#include <chrono>
#include <memory>
#include <string>

class QAction;
class QLabel;
class QMenu;
class QStackedWidget;

namespace korvel::inspector {

/// The inspector's main window: menus, the grid of the open document, messages, and a status line. It is to be made
/// while a QtDisplay is in force.
class InspectorWindow final : public QMainWindow {
public:
    /// `unitOfFile`: angles take the unit of each document that is opened.
    explicit InspectorWindow(const ReadingOptions& options, bool unitOfFile = false);
    ~InspectorWindow() override;

    /// Opens a document instead of the one that is shown, whatever changes that has. Throws DocumentError;
    /// what was shown stays then, with its changes.
    void Open(const std::string& path);
    /// The same, when the user wants to leave the one that is shown, and while the window stays alive; see
    /// LoadingDialog. A box shows what went wrong. True when the document is open.
    bool OpenOrWarn(const std::string& path);
    /// For how long a load shows no dialog.
    void SetPatience(std::chrono::milliseconds patience) { m_patience = patience; }
    /// Shows a text (UTF-8) in a box.
    void Warn(const std::string& text);
    GridPane& Pane() { return *m_pane; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Asks what becomes of unsaved changes; false when the document stays open.
    bool MayLeave();
    bool MayLeaveChanges();
    /// Reads the file of the document again, when the user wants that.
    void Reload();
    /// Another program has changed it: the same, but where it cannot be read the status line says so.
    void OnFileChanged();
    /// Ends the edit of a cell, and asks `question` (%1: the file's name) where changes are not saved.
    bool MayReload(const QString& question);
    /// Open groups, selection and the rows in sight stay. False when the user has cancelled. Throws
    /// DocumentError; the document stays then.
    bool ReadAgain();
    bool Save();
    bool SaveAs();
    bool MayOverwrite();
    bool TryToOpen(const std::string& path);
    /// False when the user has cancelled. Throws as Open does.
    bool Load(const std::string& path);
    void Take(CheckedDocument read, ReadingProgress* progress);
    /// Selects what a message is about.
    void ShowPlace(const EventPlace& place);
    void CloseDocument();
    void Remember(const std::string& path);
    /// Empty: the user has chosen none.
    std::string AskForFile(FileUse use, const std::string& begin);
    /// The title, the menus and the status line say what is open.
    void ShowDocument();
    void ShowChanges();
    void MakeMenus();
    void MakeFileMenu();
    void MakeDocumentMenu();
    /// The part of its screen that is free for windows with their frames.
    QRect Room() const;
    void ChooseFile();
    void ShowLists();
    void ShowAbout();
    void ShowStatus();

    const ReadingOptions m_options;
    const bool m_unitOfFile;
    const Boxes m_boxes;
    DocumentReports m_reports;
    std::unique_ptr<GridPane> m_pane;
    std::unique_ptr<OpenDocument> m_document; // not longer than the pane, which shows it
    std::unique_ptr<ListsWindow> m_lists;     // of the open document, made when first asked for
    bool m_areListsOld = false;               // the document was edited since
    DocumentWatch m_watch;
    std::chrono::milliseconds m_patience = LoadingDialog::Patience;
    bool m_isLoading = false;
    bool m_isRemembered = false; // it was opened by the user: where it is left is kept
    std::unique_ptr<FileMenu> m_file;
    std::unique_ptr<EditMenu> m_edit;
    QMenu* m_documentMenu = nullptr; // for what needs a document
    QAction* m_listsAction = nullptr;
    EventsDock* m_events = nullptr;
    QStackedWidget* m_pages = nullptr;
    QLabel* m_status = nullptr;
    QString m_folder; // of the open document
};

} // namespace korvel::inspector
