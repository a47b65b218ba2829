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
        RollBack();
    else if (message != WM_HISTORY)
        return false;
    else if (wParam != 0)
        m_stack.Open(lParam ? reinterpret_cast<const char*>(lParam) : "");
    else {
        m_stack.Close();
        m_news.Tell();
    }
    return true;
}

void DocumentEditing::RollBack() {
    internal::FirstFailure failure;
    failure.Try([&] { m_stack.RollBack(); });
    failure.Try([&] { m_news.Tell(); });
    failure.Rethrow();
}

void DocumentEditing::Undo() {
    internal::FirstFailure failure;
    failure.Try([&] { m_stack.Undo(); });
    failure.Try([&] { m_news.Tell(); });
    failure.Rethrow();
}

void DocumentEditing::Redo() {
    internal::FirstFailure failure;
    failure.Try([&] { m_stack.Redo(); });
    failure.Try([&] { m_news.Tell(); });
    failure.Rethrow();
}

void DocumentEditing::OnChanging(const DocumentChange& change) {
    m_news.Remember(change);
}

void DocumentEditing::OnChanged(const DocumentChange& change) {
    m_stack.Record(change);
    if (!m_stack.IsOpen() && !m_stack.IsReplaying())
        m_news.Tell();
}

} // namespace korvel::inspector
