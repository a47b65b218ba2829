#pragma once

#include "editing/changed_member.h"
#include "editing/open_document.h"
#include "korvel/events/event_queue.h"
#include "korvel/events/event_sink_observer.h"
#include "landxml/document_check.h"
#include "source/document_error.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace korvel::inspector {

/// Reports what becomes of documents, and what is wrong in them: with a place, by which the member of a message
/// is found again. The sinks hear of it when messages are next dispatched.
///
///     DocumentReports reports;
///     reports.AddSink(&list);              // a CGridEvents
///     reports.Loaded(document, findings);  // "line 17: 'abc' is no valid value of 'length'"
///     reports.Find(document, place);       // the member, as long as the document is open
class DocumentReports final : public CEventSinkObserver {
public:
    /// From now on this one is the document that is open.
    void Loaded(OpenDocument& document, const Findings& findings);
    // Paths and texts are UTF-8.
    void Saved(const std::string& path);
    void Cancelled(const std::string& path);
    /// Runs an action on a file and reports its failure, which goes on.
    void Watch(const std::string& path, const std::function<void()>& action);
    /// What is wrong with a file, without the path that the error begins with.
    static std::string ReasonOf(const DocumentError& error, const std::string& path);

    /// Nothing for a place in another document than the last one; an empty name where the member is gone.
    std::optional<ChangedMember> Find(OpenDocument& document, const EventPlace& place) const;

private:
    void Failed(const std::string& path, const std::string& reason);
    void Add(CEventMessage::EEventType type, const std::string& path, const std::string& text,
             EventPlace place = {});

    EventQueue m_queue{*this};
    std::uint32_t m_document = 0; // the number of the last one
};

} // namespace korvel::inspector
