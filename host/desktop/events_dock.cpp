#include "desktop/events_dock.h"

#include "desktop/said.h"
#include "korvel/dialogs/file_dialog.h"
#include "korvel/events/event_export.h"
#include "korvel/platform/code_page.h"
#include "korvel/qt/embed.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace korvel::inspector {

EventsDock::EventsDock(DocumentReports& reports, const Boxes& boxes, Hooks hooks)
    : QDockWidget(Said(TheProgramTexts.messages).remove(u'&')), m_reports(reports), m_boxes(boxes),
      m_hooks(std::move(hooks)),
      m_pane(std::make_unique<EventsPane>(reports, platform::FromUtf8(windowTitle().toStdString()).text)) {
    m_pane->SetChosenHook(m_hooks.chosen);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeTools());
    column->addWidget(qt::Embed(m_pane->m_hWnd), 1);
    setWidget(content);
    setAllowedAreas(Qt::BottomDockWidgetArea);
    setFeatures(DockWidgetClosable);
}

EventsDock::~EventsDock() {
    delete widget(); // ends the window inside while the pane is alive
}

QWidget* EventsDock::MakeTools() {
    const ProgramTexts& texts = TheProgramTexts;
    auto* tools = new QWidget;
    auto* row = new QHBoxLayout(tools);
    m_kinds = new QComboBox;
    for (const ProgramText* kinds : {&texts.allMessages, &texts.warningsAndErrors, &texts.errorsOnly})
        m_kinds->addItem(Said(*kinds));
    m_kinds->setAccessibleName(Said(texts.kindsOfMessages));
    m_text = new QLineEdit;
    m_text->setAccessibleName(Said(texts.filterHint));
    m_text->setPlaceholderText(Said(texts.filterHint));
    m_text->setClearButtonEnabled(true);
    connect(
        m_kinds, &QComboBox::currentIndexChanged, this, [this] { Filter(); });
    connect(m_text, &QLineEdit::textChanged, this, [this] { Filter(); });
    row->addWidget(m_kinds);
    row->addWidget(m_text, 1);
    const auto addButton = [&](const ProgramText& text, const std::function<void()>& action) {
        auto* button = new QPushButton(Said(text));
        connect(
            button, &QPushButton::clicked, this, [this, action] { m_boxes.Try(action); });
        row->addWidget(button);
    };
    addButton(
        texts.copyMessages, [this] { Copy(); });
    addButton(
        texts.saveMessages, [this] { Save(); });
    addButton(texts.clearMessages, [this] { m_reports.Fire_OnClear(); });
    return tools;
}

void EventsDock::Filter() {
    EventFilter filter;
    if (m_kinds->currentIndex() > 0)
        filter.HideKind(CEventMessage::eInformation);
    if (m_kinds->currentIndex() > 1)
        filter.HideKind(CEventMessage::eWarning);
    filter.SetText(platform::FromUtf8(m_text->text().toStdString()).text);
    m_pane->List().SetFilter(filter);
}

void EventsDock::Copy() {
    const bool hasSelection = m_pane->List().GetNextItem(-1, LVNI_SELECTED) >= 0;
    const auto answer = CopyEvents(m_pane->List(), hasSelection ? EventRows::Selected : EventRows::Shown);
    if (answer)
        m_hooks.notice(answer->IsSet() ? TheProgramTexts.copied : TheProgramTexts.notCopied);
}

void EventsDock::Save() {
    constexpr unsigned long PromptOnOverwrite = 2;
    const std::string filter =
        InCodePage(TheProgramTexts.textFiles) + "|*.txt|" + InCodePage(TheProgramTexts.allFiles) + "|*.*|";
    std::string path;
    if (!doModalFileDialog(path, false, "txt", "", PromptOnOverwrite, filter.c_str(), m_pane->m_hWnd, 0, 1))
        return;
    SaveEvents(m_pane->List(), platform::ToUtf8(path));
    m_hooks.notice(TheProgramTexts.messagesSaved);
}

bool EventsDock::HasFocusInList() const {
    return korvel::GetFocus() == m_pane->List().m_hWnd;
}

} // namespace korvel::inspector
