#include "desktop/inspector_window.h"

#include "desktop/frame_room.h"
#include "desktop/said.h"
#include "korvel/dialogs/file_dialog.h"
#include "korvel/output/angles.h"
#include "korvel/platform/code_page.h"
#include "korvel/qt/embed.h"
#include "korvel/window/core/display.h"
#include "program/document_dialogs.h"
#include "program/recent_files.h"
#include "source/document_error.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <utility>

namespace korvel::inspector {

namespace {

constexpr QSize FirstSize = {1000, 700};

// Shows the wait cursor for its lifetime.
class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

QString CountText(std::size_t count, const ProgramText& one, const ProgramText& many) {
    return count == 1 ? Said(one) : Said(many).arg(QLocale().toString(static_cast<qulonglong>(count)));
}

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
    : m_options(options), m_unitOfFile(unitOfFile), m_pane(std::make_unique<GridPane>()) {
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
                                        [this](const std::function<void()>& action) { Try(action); });
    MakeDocumentMenu();
    QMenu* view = menuBar()->addMenu(Said(texts.viewMenu));
    m_listsAction = view->addAction(Said(texts.lists), this, [this] { Try([this] { ShowLists(); }); });
    m_listsAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    m_listsAction->setEnabled(false);
    QMenu* help = menuBar()->addMenu(Said(texts.helpMenu));
    help->addAction(Said(texts.about), this, [this] { ShowAbout(); });
}

void InspectorWindow::MakeFileMenu() {
    const ProgramTexts& texts = TheProgramTexts;
    QMenu* file = menuBar()->addMenu(Said(texts.fileMenu));
    QAction* open = file->addAction(Said(texts.open), this, [this] { ChooseFile(); });
    open->setShortcut(QKeySequence::Open);
    m_recent = std::make_unique<RecentMenu>(
        *file, [this](const std::string& path) { return !MayLeave() || TryToOpen(path); });
    m_saveAction = file->addAction(Said(texts.save), this, [this] { Save(); });
    m_saveAction->setShortcut(QKeySequence::Save);
    m_saveAsAction = file->addAction(Said(texts.saveAs), this, [this] { SaveAs(); });
    m_saveAsAction->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    m_closeAction = file->addAction(Said(texts.close), this, [this] {
        if (MayLeave())
            CloseDocument();
    });
    m_closeAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_W));
    file->addSeparator();
    QAction* quit = file->addAction(Said(texts.quit), this, [this] { close(); });
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

void InspectorWindow::MakeDocumentMenu() {
    const ProgramTexts& texts = TheProgramTexts;
    m_documentMenu = menuBar()->addMenu(Said(texts.documentMenu));
    m_documentMenu->setEnabled(false);
    const auto add = [this](const ProgramText& text, auto* edit) {
        m_documentMenu->addAction(Said(text), this, [this, edit] {
            if (m_pane->EndEdit())
                Try([&] { edit(m_document->Document(), m_document->File().Path(), *m_pane); });
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
    m_document->Editing().SetStepsHook([this](const DocumentEditing::Changed& changed) {
        m_areListsOld = m_areListsOld || changed.anything;
        if (changed.counts)
            ShowStatus();
        ShowChanges();
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
    ShowDocument();
}

bool InspectorWindow::OpenOrWarn(const std::string& path) {
    return MayLeave() && TryToOpen(path);
}

bool InspectorWindow::TryToOpen(const std::string& path) {
    return Try([&] {
        Open(path);
        Remember(path);
    });
}

// After the painting: the settings may be in use elsewhere, and are waited for.
void InspectorWindow::Remember(const std::string& path) {
    QTimer::singleShot(
        0, this, [path] { AddRecentFile(path); });
}

bool InspectorWindow::MayLeave() {
    if (!m_document)
        return true;
    if (!m_pane->EndEdit())
        return false;
    if (!m_document->HasUnsavedChanges())
        return true;
    const ProgramTexts& texts = TheProgramTexts;
    QMessageBox box(QMessageBox::Warning, QGuiApplication::applicationDisplayName(),
                    Said(texts.unsaved).arg(NameOfFile(*m_document)), QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton* save = box.addButton(Said(texts.save), QMessageBox::AcceptRole);
    QPushButton* discard = box.addButton(Said(texts.discard), QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton(QMessageBox::Cancel));
    box.setDefaultButton(save);
    box.exec();
    return box.clickedButton() == discard || (box.clickedButton() == save && Save());
}

bool InspectorWindow::Save() {
    if (!m_document || !m_pane->EndEdit())
        return false;
    if (m_document->File().GetState() == DocumentFile::State::Changed && !MayOverwrite())
        return false;
    const bool isSaved = Try([this] {
        const WaitCursor wait;
        m_document->Save();
    });
    ShowChanges();
    return isSaved;
}

bool InspectorWindow::MayOverwrite() {
    const ProgramTexts& texts = TheProgramTexts;
    QMessageBox box(QMessageBox::Warning, QGuiApplication::applicationDisplayName(),
                    Said(texts.changedElsewhere).arg(NameOfFile(*m_document)), QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton* overwrite = box.addButton(Said(texts.overwrite), QMessageBox::DestructiveRole);
    QPushButton* cancel = box.addButton(QMessageBox::Cancel);
    box.setEscapeButton(cancel);
    box.setDefaultButton(cancel);
    box.exec();
    return box.clickedButton() == overwrite;
}

bool InspectorWindow::SaveAs() {
    if (!m_document || !m_pane->EndEdit())
        return false;
    constexpr unsigned long PromptOnOverwrite = 2;
    const std::string path = AskForFile(Asking::ToSave, m_document->File().Path(), PromptOnOverwrite);
    if (path.empty())
        return false;
    const bool isSaved = Try([&] {
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
    ShowBox(QMessageBox::Warning, QString::fromStdString(text));
}

void InspectorWindow::ShowBox(QMessageBox::Icon icon, const QString& text) {
    QMessageBox box(icon, QGuiApplication::applicationDisplayName(), text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool InspectorWindow::Try(const std::function<void()>& action) {
    QString failure;
    try {
        action();
    } catch (const DocumentError& error) {
        failure = QString::fromStdString(error.Utf8Text());
    } catch (const std::exception& error) {
        failure = Said(error.what());
    }
    if (!failure.isEmpty())
        ShowBox(QMessageBox::Critical, failure);
    return failure.isEmpty();
}

QRect InspectorWindow::Room() const {
    return screen()->availableGeometry().marginsRemoved(FrameRoom);
}

void InspectorWindow::ShowDocument() {
    m_pages->setCurrentIndex(m_document ? 1 : 0);
    for (QAction* action : {m_saveAsAction, m_closeAction, m_listsAction})
        action->setEnabled(m_document != nullptr);
    m_documentMenu->setEnabled(m_document != nullptr);
    m_saveAction->setEnabled(m_document &&
                             !m_document->Document().IsReadOnly()); // also for what is being typed
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
    m_status->setText(m_document ? StatusText() : QString());
    m_status->setToolTip(m_status->text());
}

QString InspectorWindow::StatusText() {
    const ProgramTexts& texts = TheProgramTexts;
    const GridPane::Counts counts = m_pane->Count();
    QString status = CountText(counts.objects, texts.oneObject, texts.objects) + QStringLiteral(", ") +
                     CountText(counts.members, texts.oneMember, texts.members);
    if (m_document->Document().IsReadOnly())
        status += QStringLiteral(" – ") + Said(texts.readOnly);
    for (const std::string& notice : m_document->Document().Notices())
        status += QStringLiteral(" – ") + Said(notice);
    return status;
}

std::string InspectorWindow::AskForFile(Asking asking, const std::string& begin, unsigned long flags) {
    const std::string filter = InCodePage(TheProgramTexts.landXmlFiles) +
                               "|*.xml;*.landxml;*.xml.gz;*.landxml.gz|" +
                               InCodePage(TheProgramTexts.allFiles) + "|*.*|";
    const bool isToOpen = asking == Asking::ToOpen;
    std::string path;
    bool isChosen = false;
    Try([&] {
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
        ShowBox(QMessageBox::Information, Said(TheProgramTexts.noLists));
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
