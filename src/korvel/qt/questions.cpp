#include "korvel/qt/questions.h"

#include "korvel/platform/code_page.h"
#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"

#include <QColorDialog>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <utility>

namespace korvel::internal {

namespace {

constexpr UINT ButtonMask = 0x0F;
constexpr UINT IconMask = 0xF0;

// Bytes: a longer text would push the buttons off the screen, and take its time to be laid out.
constexpr std::size_t LongestMessage = 2000;
constexpr std::size_t LongestEntry = 200; // of a menu

struct ButtonsRow {
    UINT type;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton escape; // what closing the box means
};

const ButtonsRow ButtonRows[] = {
    {MB_OK, QMessageBox::Ok, QMessageBox::Ok},
    {MB_OKCANCEL, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel},
    {MB_YESNOCANCEL, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel},
    {MB_YESNO, QMessageBox::Yes | QMessageBox::No, QMessageBox::No},
};

QMessageBox::Icon IconOf(UINT type) {
    switch (type & IconMask) {
    case MB_ICONERROR:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONWARNING:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int AnswerOf(int button) {
    switch (button) {
    case QMessageBox::Cancel:
        return IDCANCEL;
    case QMessageBox::Yes:
        return IDYES;
    case QMessageBox::No:
        return IDNO;
    default:
        return IDOK;
    }
}

void Fill(QMenu& menu, const std::vector<MenuEntry>& entries) {
    for (const MenuEntry& entry : entries) {
        if (entry.text.empty()) {
            menu.addSeparator();
            continue;
        }
        const QString text = ToQString(platform::Abbreviate(entry.text, LongestEntry));
        QAction* action = entry.popup.empty() ? menu.addAction(text) : menu.addMenu(text)->menuAction();
        if (!entry.popup.empty())
            Fill(*action->menu(), entry.popup);
        action->setData(entry.command);
        action->setCheckable(entry.checked);
        action->setChecked(entry.checked);
        action->setEnabled(entry.enabled);
    }
}

// For choosers that look at the case: "*.xml" gives "*.[xX][mM][lL]".
QString InEveryCase(const QString& pattern) {
    QString each;
    for (const QChar character : pattern)
        if (character.toLower() != character.toUpper())
            each += QLatin1Char('[') + character.toLower() + character.toUpper() + QLatin1Char(']');
        else
            each += character;
    return each;
}

// As Qt has them, separated by blanks; its "*.*" leaves out files without a dot. As they are they come first:
// from the first one Qt takes the extension of a name to save.
QString PatternsOf(const QString& patterns) {
    QStringList all;
    for (const QString& pattern : patterns.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        all += pattern.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : pattern.trimmed();
    for (const QString& pattern : QStringList(all))
        if (InEveryCase(pattern) != pattern)
            all += InEveryCase(pattern);
    return all.join(QLatin1Char(' '));
}

// "description|patterns|description|patterns|" as Qt has it: "description (patterns)".
QStringList FiltersOf(const CString& filter) {
    const QStringList parts = ToQString(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size() && !parts[i].isEmpty(); i += 2)
        filters += QStringLiteral("%1 (%2)").arg(parts[i], PatternsOf(parts[i + 1]));
    return filters;
}

// A box belongs to its owner, which may die while the box is shown; the box is gone then.
template <class Box>
class OwnedBox {
public:
    template <class... Arguments>
    explicit OwnedBox(Arguments&&... arguments) : m_box(new Box(std::forward<Arguments>(arguments)...)) {}
    ~OwnedBox() { delete m_box; }
    OwnedBox(const OwnedBox&) = delete;
    OwnedBox& operator=(const OwnedBox&) = delete;

    Box* operator->() const { return m_box; }
    Box& operator*() const { return *m_box; }
    bool IsAlive() const { return m_box; }

private:
    QPointer<Box> m_box;
};

// Closes a menu when a widget (may be null) disappears. One that is about to be deleted is hidden first.
class CloserWithWidget : public QObject {
public:
    CloserWithWidget(QMenu& menu, QWidget* widget) : m_menu(&menu) {
        if (widget)
            widget->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Hide && m_menu)
            m_menu->close();
        return false;
    }

private:
    QPointer<QMenu> m_menu;
};

std::optional<QString> AskPath(const OwnedBox<QFileDialog>& dialog) {
    if (dialog->exec() != QDialog::Accepted || !dialog.IsAlive() || dialog->selectedFiles().isEmpty())
        return std::nullopt;
    return dialog->selectedFiles().first();
}

// The path of a file to open: as it was typed where there is such a file.
QString WithExtension(const QString& path, const QString& extension) {
    const QFileInfo file(path);
    const bool isWhole = file.exists() || file.fileName().contains(QLatin1Char('.'));
    return isWhole ? path : path + QLatin1Char('.') + extension;
}

} // namespace

int AskMessage(QWidget* owner, const CString& text, const CString& caption, UINT type) {
    const ButtonsRow* row = &ButtonRows[0];
    for (const ButtonsRow& candidate : ButtonRows)
        if (candidate.type == (type & ButtonMask))
            row = &candidate;
    const QString shown = ToQString(platform::Abbreviate(text, LongestMessage));
    const OwnedBox<QMessageBox> box(IconOf(type), ToQString(caption), shown, row->buttons, owner);
    box->setTextFormat(Qt::PlainText);
    box->setEscapeButton(row->escape);
    const int button = box->exec();
    return AnswerOf(box.IsAlive() ? button : row->escape);
}

unsigned AskMenu(QWidget* owner, QWidget* shownFor, CPoint screen, const std::vector<MenuEntry>& entries) {
    const OwnedBox<QMenu> menu(owner);
    Fill(*menu, entries);
    const CloserWithWidget closer(*menu, shownFor);
    const QAction* chosen = menu->exec(QPoint(screen.x, screen.y));
    return chosen && menu.IsAlive() ? chosen->data().toUInt() : 0;
}

std::optional<COLORREF> AskColor(QWidget* owner, COLORREF color) {
    const OwnedBox<QColorDialog> dialog(ToQColor(color), owner);
    if (dialog->exec() != QDialog::Accepted || !dialog.IsAlive())
        return std::nullopt;
    return FromQColor(dialog->selectedColor());
}

std::optional<CString> AskFile(QWidget* owner, const FileQuery& query) {
    const OwnedBox<QFileDialog> dialog(owner);
    dialog->setAcceptMode(query.open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    QString extension = ToQString(query.defaultExtension);
    if (extension.startsWith(QLatin1Char('.')))
        extension.remove(0, 1);
    // Qt would look for a file to open under the name with the extension alone.
    const bool addsExtension = query.open && !extension.isEmpty();
    const bool takesAny = !query.open || !query.fileMustExist || addsExtension;
    dialog->setFileMode(takesAny ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, !query.promptOnOverwrite);
    if (!query.open)
        dialog->setDefaultSuffix(extension);
    dialog->setOption(QFileDialog::HideNameFilterDetails); // a description says what it wants to
    dialog->setNameFilters(FiltersOf(query.filter));
    const QFileInfo begin(ToQString(query.path));
    if (!query.path.empty() && begin.dir().exists())
        dialog->setDirectory(begin.dir());
    dialog->selectFile(begin.fileName());
    const std::optional<QString> chosen = AskPath(dialog);
    if (!chosen)
        return std::nullopt;
    return FromQString(addsExtension ? WithExtension(*chosen, extension) : *chosen);
}

FolderAnswer AskFolder(QWidget* owner, const FolderQuery& query) {
    const OwnedBox<QFileDialog> dialog(owner);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setOption(QFileDialog::DontUseNativeDialog, query.chooser == FolderQuery::Chooser::Plain);
    if (!query.title.empty())
        dialog->setWindowTitle(ToQString(query.title));
    const QString begin = ToQString(query.path);
    if (!begin.isEmpty() && QFileInfo(begin).isDir())
        dialog->setDirectory(begin);
    const std::optional<QString> chosen = AskPath(dialog);
    using Outcome = FolderAnswer::Outcome;
    return chosen ? FolderAnswer{Outcome::Chosen, FromQString(*chosen)} : FolderAnswer{Outcome::Cancelled};
}

} // namespace korvel::internal
