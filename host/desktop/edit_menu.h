#pragma once

#include "editing/grid_pane.h"
#include "editing/open_document.h"
#include "korvel/grid/grid_command.h"
#include "texts/program_texts.h"

#include <QMenu>
#include <functional>
#include <vector>

class QAction;
class QMenuBar;

namespace korvel::inspector {

/// The menu of what can be done to the document's values: undo and redo, the clipboard, and the operations on
/// the selected attribute. Everything but the clipboard ends the edit of a cell first, and does nothing where
/// its text is refused.
class EditMenu {
public:
    /// Adds itself to `bar`. `pane` must outlive it; `attempt` runs an action and tells what it throws.
    EditMenu(QMenuBar& bar, GridPane& pane, std::function<void(const std::function<void()>&)> attempt);

    /// What else than a field of the grid the user may copy from.
    struct CopySource {
        std::function<bool()> hasFocus;
        std::function<void()> copy;
    };
    void SetCopySource(CopySource source) { m_copySource = std::move(source); }
    /// The document that is open, or null.
    void SetDocument(OpenDocument* document);
    /// To be called when the document has been changed.
    void ShowSteps();

private:
    QAction* Add(QMenu& menu, const ProgramText& text, const std::function<void()>& action);
    QAction* AddCommand(QMenu& menu, const ProgramText& text, GridCommand command);
    void Reveal(const std::optional<ChangedMember>& changed);
    void AddClipboard();
    bool IsCopySourceMeant() const { return m_copySource.hasFocus && m_copySource.hasFocus(); }
    void AddTypes();
    void OnShow();
    void OnHide();
    /// While the menu is shown, what the selected row does not allow is grey; its keys are asked when they
    /// come.
    void EnableFor(const RowAbilities& row);

    GridPane& m_pane;
    const std::function<void(const std::function<void()>&)> m_attempt;
    CopySource m_copySource;
    OpenDocument* m_document = nullptr;
    QMenu* m_menu;
    QAction* m_undo;
    QAction* m_redo;
    std::vector<QAction*> m_clipboard;
    QAction* m_copy = nullptr; // one of these
    QAction* m_add;
    QAction* m_remove;
    QAction* m_rename;
    QMenu* m_types;
    QAction* m_protect;
};

} // namespace korvel::inspector
