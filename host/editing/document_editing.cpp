#include "editing/document_editing.h"

#include "korvel/platform/first_failure.h"
#include "korvel/window/core/registered_messages.h"
#include "landxml/landxml_document.h"

namespace korvel::inspector {

DocumentEditing::DocumentEditing(LandXmlDocument& document, EditObserver& observer)
    : m_document(document), m_stack(document), m_news(document, observer) {
    m_document.SetListener(this);
}

DocumentEditing::~DocumentEditing() {
    m_document.SetListener(nullptr);
}

bool DocumentEditing::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_HISTORY_ROLLBACK)
        Replay(&UndoStack::RollBack, nullptr);
    else if (message != WM_HISTORY)
        return false;
    else if (wParam != 0)
        m_stack.Open(lParam ? reinterpret_cast<const char*>(lParam) : "");
    else
        Do([this] { m_stack.Close(); });
    return true;
}

void DocumentEditing::Do(const std::function<void()>& change) {
    internal::FirstFailure failure;
    failure.Try(change);
    failure.Try([this] { m_news.Tell(); });
    Changed changed = std::exchange(m_changed, {});
    changed.counts = m_news.TakeCountsChanged();
    if (m_stepsHook)
        failure.Try([&] { m_stepsHook(changed); });
    failure.Rethrow();
}

std::optional<ChangedMember> DocumentEditing::Replay(void (UndoStack::*replay)(),
                                                     const DocumentChange* change) {
    Do([&] { (m_stack.*replay)(); });
    return change ? std::optional(MemberOf(m_document, *change)) : std::nullopt;
}

std::optional<ChangedMember> DocumentEditing::Undo() {
    return Replay(&UndoStack::Undo, m_stack.NextUndo());
}

std::optional<ChangedMember> DocumentEditing::Redo() {
    return Replay(&UndoStack::Redo, m_stack.NextRedo());
}

void DocumentEditing::OnChanging(const DocumentChange& change) {
    m_news.Remember(change);
}

void DocumentEditing::OnChanged(const DocumentChange& change) {
    m_changed.anything = true;
    if (change.IsInFile()) {
        m_changed.units |= m_document.ReachOf(change).units;
        m_changed.elements.push_back(change.element);
    }
    m_stack.Record(change);
    if (!m_stack.IsOpen() && !m_stack.IsReplaying())
        Do([] {});
}

} // namespace korvel::inspector
