#pragma once

#include "editing/edit_observer.h"
#include "editing/member_news.h"
#include "editing/undo_stack.h"
#include "korvel/window/base/types.h"

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
/// Names and types that a frame has changed are told at its end, so that the editor of a cell finds its member
/// under the same name until then; outside of frames they are told with each write.
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
    void Undo();
    void Redo();
    void MarkSaved() { m_stack.MarkClean(); }

private:
    void OnChanging(const DocumentChange& change) override;
    void OnChanged(const DocumentChange& change) override;
    void RollBack();

    LandXmlDocument& m_document;
    UndoStack m_stack;
    MemberNews m_news;
};

} // namespace korvel::inspector
