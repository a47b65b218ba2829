#pragma once

#include "editing/changed_member.h"
#include "editing/edit_observer.h"
#include "editing/member_news.h"
#include "editing/undo_stack.h"
#include "korvel/window/base/types.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace korvel::inspector {

/// The changes of one document, from the grids that make them to the grids that show them: steps for undo and
/// redo, and what every grid hears. While it lives, every write to an object of the document passes through
/// it, whoever calls.
///
///     EditObserver observer;
///     CEditableGrid grid(&observer, nullptr);
///     DocumentEditing editing(document, observer);
///     grid.Initialize(&document.Root(), "Name", "Value", 0);
///     // the parent window of the grid, for each message:
///     editing.OnMessage(message, wParam, lParam);
///     // Edit > Undo:
///     editing.Undo();
///
/// What a frame has changed of names and types is told at its end: nothing happens to a row while its cell is
/// still writing. Outside of frames it is told with each write.
class DocumentEditing final : private DocumentListener {
public:
    /// Both must outlive this, and no grid may show the document after it.
    DocumentEditing(LandXmlDocument& document, EditObserver& observer);
    ~DocumentEditing();
    DocumentEditing(const DocumentEditing&) = delete;
    DocumentEditing& operator=(const DocumentEditing&) = delete;

    /// Takes WM_HISTORY and WM_HISTORY_ROLLBACK; false for all other messages.
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// The input that a grid was handling is over; see UndoStack.
    void Settle() { m_stack.Settle(); }

    const UndoStack& Steps() const { return m_stack; }
    /// Where the step was, to be shown to the user; nothing where there was no step.
    std::optional<ChangedMember> Undo();
    std::optional<ChangedMember> Redo();
    void MarkSaved() { m_stack.MarkClean(); }

    /// What of the document has changed.
    struct Changed {
        bool anything = false;
        bool counts = false; ///< members have come or gone
        bool units = false;
        std::vector<ElementIndex> elements; ///< whose start tags or texts are others now
    };
    /// Called when a frame has ended, or a step was made, undone or redone.
    using StepsHook = std::function<void(const Changed& changed)>;
    void SetStepsHook(StepsHook hook) { m_stepsHook = std::move(hook); }

private:
    void OnChanging(const DocumentChange& change) override;
    void OnChanged(const DocumentChange& change) override;
    /// Runs a change of the steps and tells all that comes of it.
    void Do(const std::function<void()>& change);
    std::optional<ChangedMember> Replay(void (UndoStack::*replay)(), const DocumentChange* change);

    LandXmlDocument& m_document;
    UndoStack m_stack;
    MemberNews m_news;
    StepsHook m_stepsHook;
    Changed m_changed; // since the hook was called
};

} // namespace korvel::inspector
