#include "desktop/inspector_window.h"

#include "desktop/frame_room.h"
#include "desktop/said.h"
#include "desktop/status_text.h"
#include "korvel/dialogs/file_dialog.h"
#include "korvel/output/angles.h"
#include "korvel/platform/code_page.h"
#include "korvel/qt/embed.h"
#include "korvel/window/core/display.h"
#include "program/document_dialogs.h"
#include "program/open_groups.h"
#include "program/recent_files.h"
#include "program/settings_keys.h"
#include "source/document_error.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <utility>

namespace korvel::inspector {

namespace {

constexpr QSize FirstSize = {1000, 700};
constexpr int MessageTime = 5000; // milliseconds

// Shows the wait cursor for its lifetime.
class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

QString NameOfFile(const OpenDocument& document) {
    return QFileInfo(QFile::decodeName(document.File().Path().c_str())).fileName();
}

// The one local file that is being dragged; empty for anything else.
QString DraggedFile(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

InspectorWindow::InspectorWindow(const ReadingOptions& options, bool unitOfFile)
    : m_options(options), m_unitOfFile(unitOfFile), m_boxes(*this), m_pane(std::make_unique<GridPane>()),
      m_watch([this] { OnFileChanged(); }) {
    setWindowTitle(QGuiApplication::applicationDisplayName());
    // Placed from the start, so that the first box is in front of it.
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry().marginsRemoved(FrameRoom);
    setGeometry(
        QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, FirstSize.boundedTo(room.size()), room));
    setAcceptDrops(true);
    m_pane->SetFailureHook([this](const std::string& message) {
        statusBar()->showMessage(Said(message));
        QApplication::beep();
    });
    m_pane->SetNoticeHook(
        [this](const std::string& message) { statusBar()->showMessage(Said(message), MessageTime); });
    MakeMenus();
    m_pages = new QStackedWidget;
    auto* invitation = new QLabel(Said(TheProgramTexts.invitation));
    invitation->setAlignment(Qt::AlignCenter);
    invitation->setWordWrap(true);
    m_pages->addWidget(invitation);
    m_pages->addWidget(qt::Embed(m_pane->m_hWnd));
    setCentralWidget(m_pages);
    m_status = new QLabel;
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long text widens no window
    statusBar()->addWidget(m_status, 1);
}

InspectorWindow::~InspectorWindow() {
    m_lists.reset();
    m_pane->Clear();
    delete takeCentralWidget(); // ends the windows inside while the objects that they show are alive
}

void InspectorWindow::MakeMenus() {
    const ProgramTexts& texts = TheProgramTexts;
    MakeFileMenu();
    m_edit = std::make_unique<EditMenu>(*menuBar(), *m_pane,
                                        [this](const std::function<void()>& action) { m_boxes.Try(action); });
    MakeDocumentMenu();
    QMenu* view = menuBar()->addMenu(Said(texts.viewMenu));
    m_listsAction =
        view->addAction(Said(texts.lists), this, [this] { m_boxes.Try([this] { ShowLists(); }); });
    m_listsAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    m_listsAction->setEnabled(false);
    QMenu* help = menuBar()->addMenu(Said(texts.helpMenu));
    help->addAction(Said(texts.about), this, [this] { ShowAbout(); });
}

void InspectorWindow::MakeFileMenu() {
    FileMenu::Actions actions;
    actions.open = [this] { ChooseFile(); };
    actions.openRecent = [this](const std::string& path) { return !MayLeave() || TryToOpen(path); };
    actions.reload = [this] { Reload(); };
    actions.save = [this] { Save(); };
    actions.saveAs = [this] { SaveAs(); };
    actions.close = [this] {
        if (MayLeave())
            CloseDocument();
    };
    actions.quit = [this] { close(); };
    m_file = std::make_unique<FileMenu>(*menuBar(), actions);
}

void InspectorWindow::MakeDocumentMenu() {
    const ProgramTexts& texts = TheProgramTexts;
    m_documentMenu = menuBar()->addMenu(Said(texts.documentMenu));
    m_documentMenu->setEnabled(false);
    const auto add = [this](const ProgramText& text, auto* edit) {
        m_documentMenu->addAction(Said(text), this, [this, edit] {
            if (m_pane->EndEdit())
                m_boxes.Try([&] { edit(m_document->Document(), m_document->File().Path(), *m_pane); });
        });
    };
    add(texts.codes, EditCodes);
    add(texts.description, EditDescription);
}

void InspectorWindow::Open(const std::string& path) {
    const WaitCursor wait;
    auto document = std::make_unique<OpenDocument>(path, m_options, m_pane->Observer());
    CloseDocument();
    m_document = std::move(document);
    if (m_unitOfFile)
        SetAngleUnit(m_document->Document().OwnAngleUnit());
    m_document->SetStepsHook([this](const DocumentEditing::Changed& changed, bool areFiguresOld) {
        m_areListsOld = m_areListsOld || changed.anything;
        if (changed.counts)
            ShowStatus();
        ShowChanges();
        if (areFiguresOld)
            statusBar()->showMessage(Said(TheProgramTexts.oldStatistics), MessageTime);
    });
    ShowDocument();
    m_pane->Show(*m_document);
    ShowStatus();
}

void InspectorWindow::CloseDocument() {
    m_lists.reset();
    m_pane->Clear();
    m_edit->SetDocument(nullptr);
    m_document.reset();
    m_isRemembered = false;
    ShowDocument();
}

bool InspectorWindow::OpenOrWarn(const std::string& path) {
    return MayLeave() && TryToOpen(path);
}

bool InspectorWindow::TryToOpen(const std::string& path) {
    return m_boxes.Try([&] {
        Open(path);
        m_pane->RestoreColumns(GridKey);
        m_pane->Restore({KeptOpenGroups(path), {}, {}});
        Remember(path);
    });
}

// After the painting: the settings may be in use elsewhere, and are waited for.
void InspectorWindow::Remember(const std::string& path) {
    m_isRemembered = true;
    QTimer::singleShot(0, this, [path] { AddRecentFile(path); });
}

bool InspectorWindow::MayLeave() {
    if (!m_document)
        return true;
    if (!m_pane->EndEdit() || (m_document->HasUnsavedChanges() && !MayLeaveChanges()))
        return false;
    if (m_isRemembered) {
        KeepOpenGroups(m_document->File().Path(), m_pane->View().openGroups);
        m_pane->KeepColumns(GridKey);
    }
    return true;
}

bool InspectorWindow::MayLeaveChanges() {
    switch (m_boxes.AskWhatBecomesOf(Said(TheProgramTexts.unsaved).arg(NameOfFile(*m_document)))) {
    case Boxes::Unsaved::Save:
        return Save();
    case Boxes::Unsaved::Discard:
        return true;
    default:
        return false;
    }
}

void InspectorWindow::Reload() {
    const QString question = Said(TheProgramTexts.reloadingLoses);
    if (m_document && MayReload(question))
        m_boxes.Try([this] { ReadAgain(); });
}

void InspectorWindow::OnFileChanged() {
    if (!m_document)
        return;
    const DocumentFile::State state = m_document->File().GetState();
    if (state == DocumentFile::State::AsKnown)
        statusBar()->clearMessage(); // it may have been unreadable before
    if (state != DocumentFile::State::Changed || !MayReload(Said(TheProgramTexts.changedAndUnsaved)))
        return;
    const QString name = NameOfFile(*m_document);
    const std::string path = m_document->File().Path() + ": "; // with which the reason begins
    m_boxes.Try([&] {
        try {
            ReadAgain();
            statusBar()->showMessage(Said(TheProgramTexts.reloaded).arg(name), MessageTime);
        } catch (const DocumentError& error) {
            const std::string& text = error.Utf8Text();
            const std::string reason = text.starts_with(path) ? text.substr(path.size()) : text;
            statusBar()->showMessage(
                Said(TheProgramTexts.notReloaded).arg(name, QString::fromStdString(reason)));
        }
    });
}

bool InspectorWindow::MayReload(const QString& question) {
    return m_pane->EndEdit() &&
           (!m_document->HasUnsavedChanges() ||
            m_boxes.MayLose(question.arg(NameOfFile(*m_document)), TheProgramTexts.reloadNow));
}

void InspectorWindow::ReadAgain() {
    const GridView view = m_pane->View();
    const bool isRemembered = m_isRemembered;
    Open(std::string(m_document->File().Path()));
    m_pane->Restore(view);
    m_isRemembered = isRemembered;
}

bool InspectorWindow::Save() {
    if (!m_document || !m_pane->EndEdit())
        return false;
    if (m_document->File().GetState() == DocumentFile::State::Changed && !MayOverwrite())
        return false;
    const bool isSaved = m_boxes.Try([this] {
        const WaitCursor wait;
        m_document->Save();
    });
    ShowChanges();
    return isSaved;
}

bool InspectorWindow::MayOverwrite() {
    return m_boxes.MayLose(Said(TheProgramTexts.changedElsewhere).arg(NameOfFile(*m_document)),
                           TheProgramTexts.overwrite);
}

bool InspectorWindow::SaveAs() {
    if (!m_document || !m_pane->EndEdit())
        return false;
    constexpr unsigned long PromptOnOverwrite = 2;
    const std::string path = AskForFile(Asking::ToSave, m_document->File().Path(), PromptOnOverwrite);
    if (path.empty())
        return false;
    const bool isSaved = m_boxes.Try([&] {
        const WaitCursor wait;
        m_document->SaveAs(path);
        Remember(path);
    });
    ShowDocument();
    return isSaved;
}

void InspectorWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(MayLeave());
}

void InspectorWindow::Warn(const std::string& text) {
    m_boxes.Show(QMessageBox::Warning, QString::fromStdString(text));
}

QRect InspectorWindow::Room() const {
    return screen()->availableGeometry().marginsRemoved(FrameRoom);
}

void InspectorWindow::ShowDocument() {
    m_pages->setCurrentIndex(m_document ? 1 : 0);
    m_listsAction->setEnabled(m_document != nullptr);
    m_documentMenu->setEnabled(m_document != nullptr);
    m_file->SetDocument(m_document.get());
    if (m_document)
        m_watch.Watch(m_document->File().Path(), m_document->File().Stamp());
    else
        m_watch.Watch({}, {});
    m_edit->SetDocument(m_document.get());
    const QString program = QGuiApplication::applicationDisplayName();
    setWindowTitle(m_document ? NameOfFile(*m_document) + QStringLiteral("[*]") : program);
    m_folder = m_document ? QFileInfo(QFile::decodeName(m_document->File().Path().c_str())).absolutePath()
                          : m_folder;
    ShowStatus();
    ShowChanges();
}

void InspectorWindow::ShowChanges() {
    const bool isChanged = m_document && m_document->HasUnsavedChanges();
    setWindowModified(isChanged);
    statusBar()->clearMessage(); // of a failure before
    m_edit->ShowSteps();
}

void InspectorWindow::ShowStatus() {
    m_status->setText(m_document ? StatusText(*m_document, m_pane->Count()) : QString());
    m_status->setToolTip(m_status->text());
}

std::string InspectorWindow::AskForFile(Asking asking, const std::string& begin, unsigned long flags) {
    const std::string filter = InCodePage(TheProgramTexts.landXmlFiles) +
                               "|*.xml;*.landxml;*.xml.gz;*.landxml.gz|" +
                               InCodePage(TheProgramTexts.allFiles) + "|*.*|";
    const bool isToOpen = asking == Asking::ToOpen;
    std::string path;
    bool isChosen = false;
    m_boxes.Try([&] {
        isChosen = doModalFileDialog(path, isToOpen, isToOpen ? nullptr : "xml",
                                     platform::FromUtf8(begin).text.c_str(), flags, filter.c_str(),
                                     m_pane->m_hWnd, 0, 1);
    });
    return isChosen ? platform::ToUtf8(path) : std::string();
}

void InspectorWindow::ChooseFile() {
    if (m_document && !m_pane->EndEdit())
        return;
    constexpr unsigned long FileMustExist = 0x1000;
    const std::string begin =
        m_folder.isEmpty() ? "" : QFile::encodeName(m_folder + QLatin1Char('/')).toStdString();
    const std::string path = AskForFile(Asking::ToOpen, begin, FileMustExist);
    if (!path.empty())
        OpenOrWarn(path);
}

void InspectorWindow::ShowLists() {
    if (!m_pane->EndEdit())
        return;
    if (std::exchange(m_areListsOld, false))
        m_lists.reset();
    if (!m_lists) {
        const WaitCursor wait;
        const QRect room = Room();
        m_lists = std::make_unique<ListsWindow>(
            m_document->Document(), *m_pane,
            CRect{room.x(), room.y(), room.x() + room.width(), room.y() + room.height()});
    }
    if (m_lists->HasLists())
        m_lists->Show();
    else
        m_boxes.Show(QMessageBox::Information, Said(TheProgramTexts.noLists));
}

void InspectorWindow::ShowAbout() {
    QMessageBox::about(this, QGuiApplication::applicationDisplayName(),
                       Said(TheProgramTexts.aboutText).arg(QGuiApplication::applicationVersion()));
}

void InspectorWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

// The file is read when the drag is over: until then the program that it comes from waits.
void InspectorWindow::dropEvent(QDropEvent* event) {
    const std::string path = QFile::encodeName(DraggedFile(event->mimeData())).toStdString();
    event->acceptProposedAction();
    QTimer::singleShot(0, this, [this, path] { OpenOrWarn(path); });
}

} // namespace korvel::inspector
