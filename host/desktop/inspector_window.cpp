#include "desktop/inspector_window.h"

#include "desktop/frame_room.h"
#include "desktop/said.h"
#include "desktop/status_text.h"
#include "korvel/output/angles.h"
#include "korvel/qt/embed.h"
#include "korvel/window/core/wait_cursor.h"
#include "program/document_dialogs.h"
#include "program/open_groups.h"
#include "program/recent_files.h"
#include "program/settings_keys.h"
#include "source/document_error.h"
#include "texts/messages.h"

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
#include <QPointer>
#include <QScopedValueRollback>
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

QString NameOfFile(const OpenDocument& document) {
    return QFileInfo(QFile::decodeName(document.File().Path().c_str())).fileName();
}

CRect AsRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

// The one local file that is being dragged; empty for anything else.
QString DraggedFile(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

bool HasProblems(OpenDocument& document, const Findings& findings) {
    return !findings.list.empty() || !document.Document().Notices().empty();
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
    m_events = new EventsDock(
        m_reports, m_boxes,
        {[this](const EventPlace& place) { m_boxes.Try([&] { ShowPlace(place); }); },
         [this](const ProgramText& text) { statusBar()->showMessage(Said(text), MessageTime); }});
    addDockWidget(Qt::BottomDockWidgetArea, m_events);
    m_events->hide(); // until there is something to be seen
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
    delete m_events;
    delete takeCentralWidget(); // ends the windows inside while the objects that they show are alive
}

void InspectorWindow::MakeMenus() {
    const ProgramTexts& texts = TheProgramTexts;
    MakeFileMenu();
    m_edit = std::make_unique<EditMenu>(
        *menuBar(), *m_pane, [this](const std::function<void()>& action) { m_boxes.Try(action); });
    m_edit->SetCopySource({[this] { return m_events->HasFocusInList(); }, [this] { m_events->Copy(); }});
    MakeDocumentMenu();
    QMenu* view = menuBar()->addMenu(Said(texts.viewMenu));
    m_listsAction =
        view->addAction(Said(texts.lists), this, [this] { m_boxes.Try([this] { ShowLists(); }); });
    m_listsAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    m_listsAction->setEnabled(false);
    QAction* messages = m_events->toggleViewAction();
    messages->setText(Said(texts.messages));
    messages->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    view->addAction(messages);
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
    const CWaitCursor wait;
    m_reports.Watch(path, [&] { Take(ReadAndCheck(path, m_options, m_pane->Observer(), nullptr), nullptr); });
    m_pane->SetFocus();
}

bool InspectorWindow::Load(const std::string& path) {
    const QScopedValueRollback loading(m_isLoading, true);
    LoadingDialog dialog(*m_pane, AsRect(geometry()), m_patience);
    if (m_lists)
        dialog.AlsoDisable(m_lists->m_hWnd);
    bool isOpen = false;
    m_reports.Watch(path, [&] {
        isOpen = dialog.Run(
            [&](ReadingProgress* progress) {
                return ReadAndCheck(path, m_options, m_pane->Observer(), progress);
            },
            [&](CheckedDocument read, ReadingProgress* progress) { Take(std::move(read), progress); });
    });
    if (!isOpen)
        m_reports.Cancelled(path);
    return isOpen;
}

// The former document is shown until the new one has its rows.
void InspectorWindow::Take(CheckedDocument read, ReadingProgress* progress) {
    const char unit = GetAngleUnit();
    try {
        if (m_unitOfFile)
            SetAngleUnit(read.document->Document().OwnAngleUnit()); // rows that are there keep their texts
        m_pane->Show(*read.document, progress);
    } catch (...) {
        SetAngleUnit(unit);
        throw;
    }
    m_lists.reset();
    m_edit->SetDocument(nullptr);
    m_document = std::move(read.document);
    m_isRemembered = false;
    m_document->SetStepsHook([this](const DocumentEditing::Changed& changed, bool areFiguresOld) {
        m_areListsOld = m_areListsOld || changed.anything;
        if (changed.counts)
            ShowStatus();
        ShowChanges();
        if (areFiguresOld)
            statusBar()->showMessage(Said(TheProgramTexts.oldStatistics), MessageTime);
    });
    ShowDocument();
    m_reports.Loaded(*m_document, read.findings);
    if (HasProblems(*m_document, read.findings))
        m_events->show();
}

void InspectorWindow::ShowPlace(const EventPlace& place) {
    if (place.path.empty() || !m_pane->EndEdit())
        return;
    const std::optional<ChangedMember> member =
        m_document ? m_reports.Find(*m_document, place) : std::optional<ChangedMember>();
    if (!member || member->name.empty()) {
        const std::string reason =
            Say({member ? "what this message is about is not there any more"
                        : "the document of this message was closed or read again since"});
        statusBar()->showMessage(QString::fromStdString(reason), MessageTime);
        return;
    }
    m_pane->Reveal(m_document->Document().ObjectOf(member->owner), member->name);
    m_pane->SetFocus();
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
    return !m_isLoading && MayLeave() && TryToOpen(path);
}

bool InspectorWindow::TryToOpen(const std::string& path) {
    bool isOpen = false;
    const bool isWell = m_boxes.Try([&] {
        isOpen = Load(path);
        if (!isOpen)
            return;
        m_pane->SetFocus();
        m_pane->RestoreColumns(GridKey);
        m_pane->Restore({KeptOpenGroups(path), {}, {}});
        Remember(path);
    });
    return isWell && isOpen;
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
    if (!m_document || m_isLoading)
        return;
    const DocumentFile::State state = m_document->File().GetState();
    if (state == DocumentFile::State::AsKnown)
        statusBar()->clearMessage(); // it may have been unreadable before
    if (state != DocumentFile::State::Changed || !MayReload(Said(TheProgramTexts.changedAndUnsaved)))
        return;
    const QString name = NameOfFile(*m_document);
    const std::string path = m_document->File().Path();
    m_boxes.Try([&] {
        try {
            if (ReadAgain())
                statusBar()->showMessage(Said(TheProgramTexts.reloaded).arg(name), MessageTime);
        } catch (const DocumentError& error) {
            const QString reason = QString::fromStdString(DocumentReports::ReasonOf(error, path));
            statusBar()->showMessage(Said(TheProgramTexts.notReloaded).arg(name, reason));
        }
    });
}

bool InspectorWindow::MayReload(const QString& question) {
    return m_pane->EndEdit() &&
           (!m_document->HasUnsavedChanges() ||
            m_boxes.MayLose(question.arg(NameOfFile(*m_document)), TheProgramTexts.reloadNow));
}

bool InspectorWindow::ReadAgain() {
    const GridView view = m_pane->View();
    const bool isRemembered = m_isRemembered;
    const QPointer<QWidget> focus = focusWidget();
    if (!Load(std::string(m_document->File().Path())))
        return false;
    if (!focus || !focus->isVisible())
        m_pane->SetFocus(); // it was in the former grid
    m_pane->Restore(view);
    m_isRemembered = isRemembered;
    return true;
}

bool InspectorWindow::Save() {
    if (!m_document || !m_pane->EndEdit())
        return false;
    if (m_document->File().GetState() == DocumentFile::State::Changed && !MayOverwrite())
        return false;
    const bool isSaved = m_boxes.Try([this] {
        const CWaitCursor wait;
        const std::string path = m_document->File().Path();
        m_reports.Watch(path, [&] { m_document->Save(); });
        m_reports.Saved(path);
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
    const std::string path = AskForFile(FileUse::Save, m_document->File().Path());
    if (path.empty())
        return false;
    const bool isSaved = m_boxes.Try([&] {
        const CWaitCursor wait;
        m_reports.Watch(path, [&] { m_document->SaveAs(path); });
        m_reports.Saved(path);
        Remember(path);
    });
    ShowDocument();
    return isSaved;
}

void InspectorWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!m_isLoading && MayLeave());
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

std::string InspectorWindow::AskForFile(FileUse use, const std::string& begin) {
    std::string path;
    m_boxes.Try([&] { path = AskForDocument(use, begin, *m_pane); });
    return path;
}

void InspectorWindow::ChooseFile() {
    if (m_document && !m_pane->EndEdit())
        return;
    const std::string begin =
        m_folder.isEmpty() ? "" : QFile::encodeName(m_folder + QLatin1Char('/')).toStdString();
    const std::string path = AskForFile(FileUse::Open, begin);
    if (!path.empty())
        OpenOrWarn(path);
}

void InspectorWindow::ShowLists() {
    if (!m_pane->EndEdit())
        return;
    if (std::exchange(m_areListsOld, false))
        m_lists.reset();
    if (!m_lists) {
        const CWaitCursor wait;
        const QRect room = Room();
        m_lists = std::make_unique<ListsWindow>(m_document->Document(), *m_pane, AsRect(room));
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
