#pragma once

#include "desktop/boxes.h"
#include "editing/document_reports.h"
#include "editing/events_pane.h"

#include <QDockWidget>
#include <functional>
#include <memory>
#include <string>

class QComboBox;
class QLineEdit;

namespace korvel::inspector {

/// The messages below the document: a list, what of it is shown, and what can be done with it.
class EventsDock final : public QDockWidget {
public:
    struct Hooks {
        EventsPane::ChosenHook chosen;
        std::function<void(const ProgramText& text)> notice; ///< says what was done and cannot be seen
    };
    /// `reports` and `boxes` must outlive it.
    EventsDock(DocumentReports& reports, const Boxes& boxes, Hooks hooks);
    ~EventsDock() override;

    /// Copies the selected messages, without any all that are shown.
    void Copy();
    bool HasFocusInList() const;
    EventsPane& Pane() { return *m_pane; }

private:
    QWidget* MakeTools();
    void Filter();
    void Save();

    DocumentReports& m_reports;
    const Boxes& m_boxes;
    const Hooks m_hooks;
    std::unique_ptr<EventsPane> m_pane;
    QComboBox* m_kinds = nullptr;
    QLineEdit* m_text = nullptr;
};

} // namespace korvel::inspector
