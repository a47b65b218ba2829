// Takes a picture of each dialog and control: gallery FOLDER LANGUAGE DOCUMENT. The scale is that of
// QT_SCALE_FACTOR.

#include "desktop/desktop_language.h"
#include "desktop/inspector_window.h"
#include "desktop/lists_window.h"
#include "desktop/qt_warnings.h"
#include "gallery/controls_dialog.h"
#include "gallery/ground.h"
#include "gallery/library_dialogs.h"
#include "gallery/photographer.h"
#include "gallery/values_dialog.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/qt/qt_display.h"
#include "korvel/values/language.h"
#include "korvel/window/dialog/dialog_items.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QMenuBar>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTranslator>
#include <clocale>
#include <filesystem>
#include <iostream>

using namespace korvel;
using namespace korvel::gallery;
using namespace korvel::inspector;

namespace {

struct LanguageRow {
    const char* name;
    const char* locale;
};

constexpr Qt::Key DropKey = Qt::Key_F4;

constexpr LanguageRow Languages[] = {{"German", "de-DE"}, {"English", "en-US"}};

const LanguageRow* FindLanguage(const QString& name) {
    for (const LanguageRow& row : Languages)
        if (name == QLatin1String(row.name))
            return &row;
    return nullptr;
}

// On Qt's own one, which is no larger than a dialog at twice the scale, lists would drop beside their fields.
void UseLargeScreen(const QTemporaryDir& scratch) {
    QFile file(scratch.filePath(QStringLiteral("screen.json")));
    file.open(QIODevice::WriteOnly);
    file.write(R"({"screens": [{"name": "Gallery", "x": 0, "y": 0, "width": 3840, "height": 2160,
                                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file.fileName()));
}

void Press(Qt::Key key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    if (QWidget* focused = QApplication::focusWidget())
        QApplication::sendEvent(focused, &press);
}

void TakeLibrary(Photographer& photographer, const std::string& file) {
    const std::string folder = std::filesystem::path(file).parent_path().parent_path();
    photographer.TakeDialog("code-list", ShowCodeList);
    photographer.TakeDialog("code-list-to-pick", ShowCodeListToPick);
    photographer.TakeDialog("code-pair", ShowCodePair);
    photographer.TakeDialog("text", ShowText);
    photographer.TakeDialog("color", ShowColorWithTransparency);
    photographer.TakeDialog(
        "new-attribute", ShowNewAttribute, [] { Press(Qt::Key_Return); });
    photographer.TakeDialog(
        "file", [&] { ShowFileChooser(file); });
    photographer.TakeDialog("folder", [&] { ShowFolderChooser(folder); });
    photographer.TakeDialog("question", ShowQuestion);
}

void TakeProgress(Photographer& photographer, const qt::QtDisplay& display) {
    const auto take = [&](const char* name, ProgressLook look) {
        ShowProgress(look, [&](HWND dialog) { photographer.TakeWindow(name, *display.WidgetOf(dialog)); });
    };
    take("progress", ProgressLook::Position);
    take("progress-marquee", ProgressLook::Marquee);
}

void TakeControls(Photographer& photographer) {
    ControlsDialog dialog;
    const auto show = [&] { dialog.DoModal(); };
    const auto drop = [&](int id) {
        return [&dialog, id] {
            SetFocus(GetDlgItem(dialog.m_hWnd, id));
            Press(DropKey);
        };
    };
    photographer.TakeDialog("controls", show, [] { Press(Qt::Key_Tab); });
    photographer.TakeDropped("controls-choice", show, drop(ControlsDialog::ChoiceId));
    photographer.TakeDropped("controls-calendar", show, drop(ControlsDialog::DateId));
}

void TakeValues(Photographer& photographer) {
    ValuesDialog dialog;
    const auto show = [&] { dialog.DoModal(); };
    const auto press = [&](int id) {
        return [&dialog, id] {
            SetFocus(GetDlgItem(dialog.m_hWnd, id));
            Press(DropKey);
            Press(Qt::Key_F2);
        };
    };
    photographer.TakeDialog("values", show, press(ValuesDialog::NumberId));
    photographer.TakeDropped("values-list", show, press(ValuesDialog::ListId));
}

void TakeMenus(Photographer& photographer, QMainWindow& window) {
    const QMenuBar& bar = *window.menuBar();
    for (int i = 0; i < bar.actions().size(); ++i) {
        QAction* title = bar.actions()[i];
        title->menu()->popup(bar.mapToGlobal(bar.actionGeometry(title).bottomLeft()));
        photographer.TakeWindow(QStringLiteral("menu-%1").arg(i + 1), window);
        title->menu()->close();
    }
}

void TakeLists(Photographer& photographer, const qt::QtDisplay& display, const LandXmlDocument& document,
               CWnd& owner) {
    ListsWindow lists(document, owner, {0, 0, 800, 600});
    lists.Show();
    QWidget& shown = *display.WidgetOf(lists.m_hWnd);
    photographer.TakeWindow("lists", shown);
    Press(DropKey);
    photographer.TakeWindow("lists-choice", shown);
}

void TakeInspector(Photographer& photographer, const qt::QtDisplay& display, const std::string& file,
                   const LandXmlDocument& document) {
    InspectorWindow window(ReadingOptions(), true);
    window.resize(800, 600);
    window.show();
    photographer.TakeWindow("inspector-empty", window);
    window.Open(file);
    window.Pane().ExpandAll();
    photographer.TakeWindow("inspector", window);
    TakeMenus(photographer, window);
    TakeLists(photographer, display, document, window.Pane());
}

void Print(const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
        std::cerr << "gallery: " << line << '\n';
}

int TakeAll(const QString& folder, const char* language, const qt::QtDisplay& display,
            const std::string& file) {
    const LandXmlDocument document(file, ReadingOptions());
    bool isFine = true;
    for (const Ground ground : AllGrounds) {
        UseGround(ground);
        const int scale = qRound(qApp->devicePixelRatio() * 100);
        Photographer photographer(
            folder, QStringLiteral("%1-%2-%3").arg(QString(language).toLower(), NameOf(ground)).arg(scale));
        TakeLibrary(photographer, file);
        TakeProgress(photographer, display);
        TakeControls(photographer);
        TakeValues(photographer);
        TakeInspector(photographer, display, file, document);
        Print(photographer.Notices());
        Print(photographer.Faults());
        isFine = isFine && photographer.Faults().empty();
    }
    return isFine ? 0 : 1;
}

} // namespace

int main(int count, char** arguments) {
    const LanguageRow* language = count == 4 ? FindLanguage(QFile::decodeName(arguments[2])) : nullptr;
    if (!language) {
        std::cerr << "usage: gallery FOLDER German|English DOCUMENT\n";
        return 2;
    }
    const QTemporaryDir scratch;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(scratch.path())); // no windows where the user had them
    UseLargeScreen(scratch);
    DropQtWarnings();
    QApplication application(count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QString folder = QFile::decodeName(arguments[1]);
    if (!QDir().mkpath(folder)) {
        std::cerr << "gallery: the folder cannot be made: " << arguments[1] << '\n';
        return 1;
    }
    try {
        SetLanguageForThisRun(language->name);
        platform::UseLocale(language->locale);
        QTranslator translator;
        UseDesktopLanguage(language->locale, translator);
        qt::QtDisplay display;
        SetDisplay(&display);
        return TakeAll(folder, language->name, display, arguments[3]);
    } catch (const std::exception& error) {
        std::cerr << "gallery: " << platform::ToUtf8(error.what()) << '\n';
        return 1;
    }
}
