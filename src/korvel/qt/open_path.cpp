#include "korvel/qt/open_path.h"

#include "korvel/qt/desktop_chooser.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <filesystem>
#include <iterator>

namespace korvel::internal {

namespace {

constexpr int Opened = OpenPathFailed + 1;
constexpr int AnswerTime = 3000; // milliseconds

// Kinds of files that are run where the desktop, or a program on it, opens them.
const char* const ProgramKinds[] = {
    "application/x-executable",
    "application/x-sharedlib",
    "application/x-desktop",
    "application/x-ms-dos-executable",
    "application/x-msdownload",
    "application/x-msi",
    "application/vnd.microsoft.portable-executable",
    "application/x-ms-shortcut",
    "application/x-bat",
    "application/java-archive",
    "application/x-java-archive",
    "application/x-java-jnlp-file",
    "application/vnd.appimage",
    "application/x-iso9660-appimage",
};

// Names of such files, whatever is in them.
const char* const ProgramSuffixes[] = {"desktop", "exe", "com", "bat", "cmd",      "msi", "scr",
                                       "lnk",     "jar", "run", "sh",  "appimage", "jnlp"};

// Why nothing can be opened at a path; Opened: there is no reason.
int FindObstacle(const QFileInfo& file) {
    std::error_code error;
    const auto status = std::filesystem::status(QFile::encodeName(file.filePath()).toStdString(), error);
    if (error == std::errc::permission_denied)
        return SE_ERR_ACCESSDENIED; // of a folder on the way
    if (!std::filesystem::exists(status))
        return SE_ERR_FNF;
    return file.isReadable() ? Opened : SE_ERR_ACCESSDENIED;
}

// Asks the desktop whether it has a program for files of this kind, or of one that it is a case of. True also
// where the desktop does not say.
bool HasProgram(const QString& path) {
    const QString asker = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
    if (asker.isEmpty())
        return true;
    const QMimeType kind = QMimeDatabase().mimeTypeForFile(path);
    for (const QString& name : QStringList(kind.name()) + kind.allAncestors()) {
        QProcess process;
        process.start(asker, {QStringLiteral("query"), QStringLiteral("default"), name});
        if (!process.waitForFinished(AnswerTime) || process.exitStatus() != QProcess::NormalExit)
            return true;
        if (!process.readAllStandardOutput().trimmed().isEmpty())
            return true;
    }
    return false;
}

int Show(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path)) ? Opened : SE_ERR_NOASSOC;
}

int ShowFolder(const QFileInfo& file) {
    return Show(file.isDir() ? file.absoluteFilePath() : file.absolutePath());
}

} // namespace

bool IsProgram(const QString& path) {
    const QFileInfo file(path);
    if (file.isDir())
        return false;
    const QString suffix = file.suffix().toLower();
    const auto isNamed = [&](const char* name) { return suffix == QLatin1String(name); };
    const QMimeType kind = QMimeDatabase().mimeTypeForFile(file);
    const auto isOfKind = [&](const char* name) { return kind.inherits(QLatin1String(name)); };
    // The permission alone says little: on a disk that knows none, every file has it. It counts where nothing
    // else tells what a file is.
    return (file.isExecutable() && kind.isDefault()) ||
           std::any_of(std::begin(ProgramSuffixes), std::end(ProgramSuffixes), isNamed) ||
           std::any_of(std::begin(ProgramKinds), std::end(ProgramKinds), isOfKind);
}

int OpenOnDesktop(const QWidget* owner, const QString& path, OpenAs as) {
    const QFileInfo file(path);
    if (const int obstacle = FindObstacle(file); obstacle != Opened)
        return obstacle;
    if (as == OpenAs::Folder || file.isDir() || IsProgram(path))
        return ShowFolder(file);
    if (as == OpenAs::FileByChoice)
        return OfferPrograms(owner, file.absoluteFilePath()) ? Opened : ShowFolder(file);
    return HasProgram(path) ? Show(file.absoluteFilePath()) : SE_ERR_NOASSOC;
}

} // namespace korvel::internal
