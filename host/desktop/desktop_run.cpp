#include "desktop/desktop_run.h"

#include "desktop/desktop_language.h"
#include "desktop/inspector_window.h"
#include "desktop/picture_file.h"
#include "desktop/qt_warnings.h"
#include "desktop/said.h"
#include "desktop/window_place.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/screen.h"
#include "korvel/platform/store_problem.h"
#include "korvel/qt/qt_display.h"
#include "korvel/window/app/app.h"
#include "program/run_settings.h"
#include "program/settings_keys.h"
#include "texts/messages.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTranslator>
#include <QtMath>
#include <clocale>
#include <iostream>

namespace korvel::inspector {

namespace {

constexpr const char* PlatformVariable = "QT_QPA_PLATFORM";

// The display that the session names may not respond, or its plugin may not be installed: then Qt takes the
// next one here.
void ChoosePlatform(bool onScreen) {
    if (!onScreen)
        qputenv(PlatformVariable, "offscreen");
    else if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv(PlatformVariable, "wayland;xcb;offscreen");
    else if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv(PlatformVariable, "xcb;offscreen");
}

QString PictureBeside(const std::string& file) {
    const QFileInfo info(QFile::decodeName(file.c_str()));
    return QDir::current().filePath(info.completeBaseName() + QStringLiteral(".png"));
}

void ExpandAsAsked(GridPane& pane, const Options& options) {
    if (options.expandAll)
        pane.ExpandAll();
    for (const std::string& path : options.expand)
        if (!pane.Expand(platform::FromUtf8(path).text))
            throw UsageError({"--expand: there is no %1", {InQuotes(path)}});
}

// Of exactly this size in pixels; where the desktop scales, of a window that is smaller than it says.
QImage PictureOf(InspectorWindow& window, const PictureSize& size) {
    QImage picture(size.width, size.height, QImage::Format_RGB32);
    picture.setDevicePixelRatio(window.devicePixelRatioF());
    picture.fill(window.palette().window().color()); // a window manager may keep the window smaller
    window.render(&picture);
    return picture;
}

void WritePicture(InspectorWindow& window, const Options& options) {
    const double scale = window.devicePixelRatioF();
    window.resize(qCeil(options.size.width / scale), qCeil(options.size.height / scale));
    window.show();
    if (!options.file.empty())
        window.Open(options.file);
    ExpandAsAsked(window.Pane(), options);
    QApplication::processEvents();
    const bool isAsked = !options.screenshot.empty();
    const QString name =
        isAsked ? QFile::decodeName(options.screenshot.c_str()) : PictureBeside(options.file);
    const QString written = SavePicture(PictureOf(window, options.size), name);
    const std::string taken = QFile::encodeName(written).toStdString();
    if (!isAsked)
        std::cout << Say({"there is no screen; the picture of the window is %1", {taken}}) << '\n';
    else if (written != name)
        std::cout << Say({"another file has that name; the picture is %1", {taken}}) << '\n';
}

// Shows a box for a settings store that fails from now on: after the call that met it, which may be in the
// middle of a painting, and on the window's thread.
class StoreProblemBoxes {
public:
    explicit StoreProblemBoxes(InspectorWindow& window) {
        platform::SetStoreProblemListener([&window](const platform::StoreProblem& problem) {
            QMetaObject::invokeMethod(
                &window, [&window, problem] { window.Warn(SetAsideIfDamaged(problem)); },
                Qt::QueuedConnection);
        });
    }
    ~StoreProblemBoxes() { platform::SetStoreProblemListener(nullptr); }
    StoreProblemBoxes(const StoreProblemBoxes&) = delete;
    StoreProblemBoxes& operator=(const StoreProblemBoxes&) = delete;
};

// Names the inspector to the library, whose dialogs belong to its window.
class NamedHost {
public:
    explicit NamedHost(InspectorWindow& window) {
        m_app.m_pszAppName = HostName;
        m_app.m_pMainWnd = &window.Pane();
        SetHostApp(&m_app);
    }
    ~NamedHost() { SetHostApp(nullptr); }
    NamedHost(const NamedHost&) = delete;
    NamedHost& operator=(const NamedHost&) = delete;

private:
    CWinApp m_app;
};

int ShowUntilClosed(InspectorWindow& window, const Options& options, const std::string& notice) {
    const StoreProblemBoxes boxes(window);
    RestorePlace(window);
    window.show();
    QApplication::processEvents(); // paints the window before it waits for a file
    if (!notice.empty())
        window.Warn(notice);
    if (!options.file.empty() && window.OpenOrWarn(options.file))
        ExpandAsAsked(window.Pane(), options);
    const int status = QApplication::exec();
    KeepPlace(window);
    return status;
}

} // namespace

int RunOnDesktop(const Options& options, const TakenFormats& formats) {
    // A platform that the user chose for Qt counts as a screen.
    const bool isChosen = !qEnvironmentVariableIsEmpty(PlatformVariable);
    const bool onScreen = options.screenshot.empty() && (isChosen || platform::HasScreen());
    if (!onScreen)
        DropQtWarnings();
    if (!isChosen)
        ChoosePlatform(onScreen);
    int count = 1;
    char name[] = "inspector";
    char* arguments[] = {name, nullptr};
    QApplication application(count, arguments);
    const bool picture = !onScreen || (!isChosen && QApplication::platformName() == u"offscreen");
    if (picture && options.screenshot.empty() && options.file.empty())
        throw UsageError("there is no screen, and no file to make a picture of");
    if (!isChosen)
        qunsetenv(PlatformVariable); // not for the programs that are started from here
    std::setlocale(LC_NUMERIC, "C"); // the application object took the user's; files are read and written
    QApplication::setApplicationDisplayName(Said(TheProgramTexts.programName));
    QApplication::setApplicationVersion(QStringLiteral(KORVEL_VERSION));
    QTranslator translator;
    UseDesktopLanguage(options.locale, translator);
    qt::QtDisplay display;
    SetDisplay(&display);
    InspectorWindow window({options.stations, nullptr, options.encoding}, formats.hasUnitOfFile);
    const NamedHost host(window);
    if (!picture)
        return ShowUntilClosed(window, options, formats.notice);
    WritePicture(window, options);
    return 0;
}

} // namespace korvel::inspector
