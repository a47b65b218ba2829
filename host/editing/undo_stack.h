#pragma once

#include "landxml/document_change.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel::inspector {

class LandXmlDocument;

/// The steps by which a document was changed, to be taken back and done again.
///
///     stack.Open("Member edited");    // the grid: WM_HISTORY 1
///     stack.Record(change);           // the document's object, in SetMember
///     stack.Close();                  // WM_HISTORY 0
///     stack.UndoTitle()               // "Member edited: length"
///     stack.Undo();                   // the document is as before
///
/// A frame without a change leaves no step, a change outside a frame is a step of its own.
class UndoStack {
public:
    /// `document` must outlive this.
    explicit UndoStack(LandXmlDocument& document) : m_document(document) {}

    void Open(const std::string& title);
    /// Without effect where no frame is open.
    void Close();
    /// Takes back what the open frame, or the one just closed, has changed, and drops its step; with it the
    /// steps come back that could be done again before it. Without effect where that frame has changed
    /// nothing.
    void RollBack();
    /// The message that has opened and closed the frame is over: a later RollBack does not mean it.
    void Settle();

    void Record(const DocumentChange& change);

    bool IsOpen() const { return m_isOpen; }
    /// Within Undo, Redo and RollBack, whose changes are not to be recorded.
    bool IsReplaying() const { return m_isReplaying; }

    // Nothing while a frame is open.
    bool CanUndo() const { return !m_isOpen && m_position > 0; }
    bool CanRedo() const { return !m_isOpen && m_position < m_steps.size(); }
    void Undo();
    void Redo();
    /// The first change of the step that is next; null where there is none. Valid until something is
    /// recorded.
    const DocumentChange* NextUndo() const {
        return CanUndo() ? &m_steps[m_position - 1].changes.front() : nullptr;
    }
    const DocumentChange* NextRedo() const {
        return CanRedo() ? &m_steps[m_position].changes.front() : nullptr;
    }
    /// What was done, with the first member that it was done to; empty where there is nothing.
    std::string UndoTitle() const { return CanUndo() ? m_steps[m_position - 1].Title() : std::string(); }
    std::string RedoTitle() const { return CanRedo() ? m_steps[m_position].Title() : std::string(); }

    /// The file is as the document now is.
    void MarkClean() { m_clean = m_position; }
    /// Whether the file still is; what lasts for the run only makes no difference.
    bool IsClean() const;

private:
    struct Step {
        std::optional<std::string> action; // nothing outside of frames: the change says it
        std::vector<DocumentChange> changes;

        std::string Title() const;
        bool IsInFile() const;
    };
    using Steps = std::vector<Step>;

    void Push(Step step);
    void TakeBack(const Step& step);

    LandXmlDocument& m_document;
    Steps m_steps;
    std::size_t m_position = 0; // of these are done
    std::optional<std::size_t> m_clean = 0;
    bool m_isOpen = false;
    Step m_open;
    bool m_isReplaying = false;

    // What a RollBack of the last step brings back.
    struct Former {
        Steps redone;
        std::optional<std::size_t> clean;
    };
    std::optional<Former> m_former;
};

} // namespace korvel::inspector
