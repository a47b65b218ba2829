#include "desktop/edit_menu.h"

#include "desktop/said.h"
#include "korvel/editors/grid_ctrl_edit.h"

#include <QKeySequence>
#include <QMenuBar>
#include <utility>

namespace korvel::inspector {

namespace {

QString WithStep(const ProgramText& text, const std::string& step) {
    return step.empty() ? Said(text)
                        : Said(text) + QStringLiteral(": ") + Said(step).replace(u'&', QStringLiteral("&&"));
}

constexpr RowAbilities Everything = {true, true, true, true, true, false};

} // namespace

EditMenu::EditMenu(QMenuBar& bar, GridPane& pane, std::function<void(const std::function<void()>&)> attempt)
    : m_pane(pane), m_attempt(std::move(attempt)), m_menu(bar.addMenu(Said(TheProgramTexts.editMenu))) {
    const ProgramTexts& texts = TheProgramTexts;
    m_undo = Add(*m_menu, texts.undo, [this] { Reveal(m_document->Editing().Undo()); });
    m_undo->setShortcut(QKeySequence::Undo);
    m_redo = Add(*m_menu, texts.redo, [this] { Reveal(m_document->Editing().Redo()); });
    m_redo->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    m_menu->addSeparator();
    AddClipboard();
    m_menu->addSeparator();
    m_add = AddCommand(*m_menu, texts.addAttribute, GridCommand::AddMember);
    m_add->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_N));
    m_remove = AddCommand(*m_menu, texts.removeAttribute, GridCommand::RemoveMember);
    m_remove->setShortcut(Qt::Key_Delete);
    m_remove->setShortcutContext(Qt::WidgetShortcut); // the grid's own, as fields and lists have that key too
    m_rename = AddCommand(*m_menu, texts.rename, GridCommand::RenameMember);
    m_rename->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
    AddTypes();
    m_protect = AddCommand(*m_menu, texts.writeProtected, GridCommand::ToggleWriteProtection);
    m_protect->setCheckable(true);
    QObject::connect(
        m_menu, &QMenu::aboutToShow, m_menu, [this] { OnShow(); });
    QObject::connect(m_menu, &QMenu::aboutToHide, m_menu, [this] { OnHide(); });
    SetDocument(nullptr);
}

QAction* EditMenu::Add(QMenu& menu, const ProgramText& text, const std::function<void()>& action) {
    return menu.addAction(
        Said(text), m_menu,
        [this, action] {
            m_attempt([&] {
                if (m_document && m_pane.EndEdit())
                    action();
            });
        });
}

QAction* EditMenu::AddCommand(QMenu& menu, const ProgramText& text, GridCommand command) {
    return Add(
        menu, text, [this, command] { m_pane.Send(static_cast<unsigned>(command)); });
}

void EditMenu::Reveal(const std::optional<ChangedMember>& changed) {
    if (changed && !changed->name.empty())
        m_pane.Reveal(m_document->Document().ObjectOf(changed->owner), changed->name);
}

void EditMenu::AddClipboard() {
    struct Entry {
        const ProgramText& text;
        UINT command;
        QKeySequence::StandardKey key;
    };
    for (const Entry& entry : {Entry{TheProgramTexts.cut, ID_EDIT_CUT, QKeySequence::Cut},
                               Entry{TheProgramTexts.copy, ID_EDIT_COPY, QKeySequence::Copy},
                               Entry{TheProgramTexts.paste, ID_EDIT_PASTE, QKeySequence::Paste}}) {
        QAction* action = m_menu->addAction(Said(entry.text), m_menu, [this, command = entry.command] {
            m_attempt([&] {
                if (command == ID_EDIT_COPY && IsCopySourceMeant())
                    m_copySource.copy();
                else
                    m_pane.SendToField(command);
            });
        });
        action->setShortcut(entry.key);
        m_clipboard.push_back(action);
        if (entry.command == ID_EDIT_COPY)
            m_copy = action;
    }
}

void EditMenu::AddTypes() {
    const ProgramTexts& texts = TheProgramTexts;
    m_types = m_menu->addMenu(Said(texts.changeType));
    AddCommand(*m_types, texts.wholeNumber, GridCommand::ChangeToInt);
    AddCommand(*m_types, texts.number, GridCommand::ChangeToDouble);
    AddCommand(*m_types, texts.angle, GridCommand::ChangeToAngleDouble);
    AddCommand(*m_types, texts.text, GridCommand::ChangeToString);
}

void EditMenu::SetDocument(OpenDocument* document) {
    m_document = document;
    EnableFor(Everything);
    ShowSteps();
}

void EditMenu::OnShow() {
    EnableFor(m_pane.SelectedRow());
    for (QAction* action : m_clipboard)
        action->setEnabled(m_pane.HasField() || (action == m_copy && IsCopySourceMeant()));
}

void EditMenu::OnHide() {
    EnableFor(Everything);
    for (QAction* action : m_clipboard)
        action->setEnabled(true);
}

void EditMenu::ShowSteps() {
    const ProgramTexts& texts = TheProgramTexts;
    const UndoStack* steps = m_document ? &m_document->Editing().Steps() : nullptr;
    m_undo->setEnabled(steps && steps->CanUndo());
    m_undo->setText(WithStep(texts.undo, steps ? steps->UndoTitle() : std::string()));
    m_redo->setEnabled(steps && steps->CanRedo());
    m_redo->setText(WithStep(texts.redo, steps ? steps->RedoTitle() : std::string()));
}

void EditMenu::EnableFor(const RowAbilities& row) {
    const bool canWrite = m_document && !m_document->Document().IsReadOnly();
    m_add->setEnabled(canWrite && row.canAdd);
    m_remove->setEnabled(canWrite && row.canRemove);
    m_rename->setEnabled(canWrite && row.canRename);
    m_types->setEnabled(canWrite && row.canChangeType);
    m_protect->setEnabled(canWrite && row.canProtect);
    m_protect->setChecked(row.isProtected);
}

} // namespace korvel::inspector
