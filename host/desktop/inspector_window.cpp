#include "desktop/inspector_window.h"

#include "desktop/frame_room.h"
#include "korvel/dialogs/file_dialog.h"
#include "korvel/output/angles.h"
#include "korvel/platform/code_page.h"
#include "korvel/qt/embed.h"
#include "korvel/window/core/display.h"
#include "program/document_dialogs.h"
#include "program/recent_files.h"
#include "source/document_error.h"
#include "texts/program_texts.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>

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
    return count == 1
               ? QString::fromUtf8(one.Utf8())
               : QString::fromUtf8(many.Utf8()).arg(QLocale().toString(static_cast<qulonglong>(count)));
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
    MakeMenus();
    m_pages = new QStackedWidget;
    auto* invitation = new QLabel(QString::fromUtf8(TheProgramTexts.invitation.Utf8()));
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
    delete takeCentralWidget(); // ends the windows inside while the objects that they show are alive
}

void InspectorWindow::MakeMenus() {
    const ProgramTexts& texts = TheProgramTexts;
    MakeFileMenu();
    MakeDocumentMenu();
    QMenu* view = menuBar()->addMenu(QString::fromUtf8(texts.viewMenu.Utf8()));
    m_listsAction = view->addAction(QString::fromUtf8(texts.lists.Utf8()), this,
                                    [this] { Try([this] { ShowLists(); }); });
    m_listsAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    m_listsAction->setEnabled(false);
    QMenu* help = menuBar()->addMenu(QString::fromUtf8(texts.helpMenu.Utf8()));
    help->addAction(QString::fromUtf8(texts.about.Utf8()), this, [this] { ShowAbout(); });
}

void InspectorWindow::MakeFileMenu() {
    const ProgramTexts& texts = TheProgramTexts;
    QMenu* file = menuBar()->addMenu(QString::fromUtf8(texts.fileMenu.Utf8()));
    QAction* open = file->addAction(QString::fromUtf8(texts.open.Utf8()), this, [this] { ChooseFile(); });
    open->setShortcut(QKeySequence::Open);
    m_recentMenu = file->addMenu(QString::fromUtf8(texts.recentFiles.Utf8()));
    connect(file, &QMenu::aboutToShow, this, [this] { ListRecentFiles(); });
    file->addSeparator();
    QAction* quit = file->addAction(QString::fromUtf8(texts.quit.Utf8()), this, [this] { close(); });
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

void InspectorWindow::ListRecentFiles() {
    m_recentMenu->clear();
    for (const std::string& path : RecentFiles()) {
        // Both ends are needed: the file's name, and what tells it from others of that name.
        QString label = fontMetrics().elidedText(QFile::decodeName(path.c_str()), Qt::ElideMiddle,
                                                 screen()->size().width() / 2);
        label.replace(QLatin1Char('&'), QLatin1String("&&"));
        const int number = static_cast<int>(m_recentMenu->actions().size()) + 1;
        m_recentMenu->addAction(QStringLiteral("&%1  %2").arg(number).arg(label), this,
                                [this, path] { OpenRecent(path); });
    }
    m_recentMenu->setEnabled(!m_recentMenu->isEmpty());
}

void InspectorWindow::OpenRecent(const std::string& path) {
    if (!OpenOrWarn(path) && !QFileInfo::exists(QFile::decodeName(path.c_str())))
        RemoveRecentFile(path);
}

void InspectorWindow::MakeDocumentMenu() {
    const ProgramTexts& texts = TheProgramTexts;
    m_documentMenu = menuBar()->addMenu(QString::fromUtf8(texts.documentMenu.Utf8()));
    m_documentMenu->setEnabled(false);
    m_documentMenu->addAction(
        QString::fromUtf8(texts.codes.Utf8()), this,
        [this] { Try([this] { EditCodes(*m_document, m_file, *m_pane); }); });
    m_documentMenu->addAction(QString::fromUtf8(texts.description.Utf8()), this,
                              [this] { Try([this] { EditDescription(*m_document, m_file, *m_pane); }); });
}

void InspectorWindow::Open(const std::string& path) {
    const WaitCursor wait;
    auto document = std::make_unique<LandXmlDocument>(path, m_options);
    m_lists.reset();
    m_pane->Clear();
    m_document = std::move(document);
    m_pages->setCurrentIndex(1);
    if (m_unitOfFile)
        SetAngleUnit(m_document->OwnAngleUnit());
    m_pane->Show(m_document->Root());
    m_listsAction->setEnabled(true);
    m_documentMenu->setEnabled(true);
    m_file = path;
    ShowStatus(path);
}

bool InspectorWindow::OpenOrWarn(const std::string& path) {
    return Try([&] {
        Open(path);
        // After the painting: the settings may be in use elsewhere, and are waited for.
        QTimer::singleShot(
            0, this, [path] { AddRecentFile(path); });
    });
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
        failure = QString::fromStdString(platform::ToUtf8(error.what()));
    }
    if (!failure.isEmpty())
        ShowBox(QMessageBox::Critical, failure);
    return failure.isEmpty();
}

QRect InspectorWindow::Room() const {
    return screen()->availableGeometry().marginsRemoved(FrameRoom);
}

void InspectorWindow::ShowStatus(const std::string& path) {
    const ProgramTexts& texts = TheProgramTexts;
    const QFileInfo file(QFile::decodeName(path.c_str()));
    setWindowTitle(file.fileName()); // Qt adds the name of the program
    m_folder = file.absolutePath();
    const GridPane::Counts counts = m_pane->Count();
    QString status = CountText(counts.objects, texts.oneObject, texts.objects) + QStringLiteral(", ") +
                     CountText(counts.members, texts.oneMember, texts.members);
    if (m_document->IsReadOnly())
        status += QStringLiteral(" – ") + QString::fromUtf8(texts.readOnly.Utf8());
    for (const std::string& notice : m_document->Notices())
        status += QStringLiteral(" – ") + QString::fromStdString(platform::ToUtf8(notice));
    m_status->setText(status);
    m_status->setToolTip(status);
}

void InspectorWindow::ChooseFile() {
    constexpr unsigned long FileMustExist = 0x1000;
    const std::string filter = InCodePage(TheProgramTexts.landXmlFiles) +
                               "|*.xml;*.landxml;*.xml.gz;*.landxml.gz|" +
                               InCodePage(TheProgramTexts.allFiles) + "|*.*|";
    const std::string folder = QFile::encodeName(m_folder + QLatin1Char('/')).toStdString();
    const std::string begin = m_folder.isEmpty() ? "" : platform::FromUtf8(folder).text;
    std::string path;
    bool isChosen = false;
    Try([&] {
        isChosen = doModalFileDialog(path, 1, nullptr, begin.c_str(), FileMustExist, filter.c_str(),
                                     m_pane->m_hWnd, 0, 1);
    });
    if (isChosen)
        OpenOrWarn(platform::ToUtf8(path));
}

void InspectorWindow::ShowLists() {
    if (!m_lists) {
        const WaitCursor wait;
        const QRect room = Room();
        m_lists = std::make_unique<ListsWindow>(
            *m_document, *m_pane,
            CRect{room.x(), room.y(), room.x() + room.width(), room.y() + room.height()});
    }
    if (m_lists->HasLists())
        m_lists->Show();
    else
        ShowBox(QMessageBox::Information, QString::fromUtf8(TheProgramTexts.noLists.Utf8()));
}

void InspectorWindow::ShowAbout() {
    QMessageBox::about(
        this, QGuiApplication::applicationDisplayName(),
        QString::fromUtf8(TheProgramTexts.aboutText.Utf8()).arg(QGuiApplication::applicationVersion()));
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
