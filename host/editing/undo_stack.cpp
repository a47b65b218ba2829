#include "editing/undo_stack.h"

#include "korvel/platform/raised_flag.h"
#include "korvel/values/text_table.h"
#include "landxml/landxml_document.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace korvel::inspector {
namespace {

using Kind = DocumentChange::Kind;

// The rows of the library's texts for what is done outside of frames.
const char* ActionOf(Kind kind) {
    switch (kind) {
    case Kind::Add:
        return Text(28);
    case Kind::Remove:
        return Text(29);
    case Kind::Rename:
        return Text(31);
    case Kind::Retype:
        return Text(32);
    case Kind::Protect:
        return Text(71);
    default:
        return Text(30);
    }
}

} // namespace

std::string UndoStack::Step::Title() const {
    const DocumentChange& first = changes.front();
    return (action ? *action : ActionOf(first.kind)) + ": " + first.member;
}

bool UndoStack::Step::IsInFile() const {
    return std::any_of(
        changes.begin(), changes.end(), [](const auto& change) { return change.IsInFile(); });
}

void UndoStack::Open(const std::string& title) {
    Close();
    m_former.reset();
    m_isOpen = true;
    m_open.action = title;
}

void UndoStack::Close() {
    if (!std::exchange(m_isOpen, false))
        return;
    Step step = std::exchange(m_open, {});
    if (!step.changes.empty())
        Push(std::move(step));
}

void UndoStack::Push(Step step) {
    const auto undone = m_steps.begin() + static_cast<std::ptrdiff_t>(m_position);
    m_former = Former{{std::make_move_iterator(undone), std::make_move_iterator(m_steps.end())}, m_clean};
    m_steps.erase(undone, m_steps.end());
    if (m_clean && *m_clean > m_position)
        m_clean.reset();
    m_steps.push_back(std::move(step));
    m_position = m_steps.size();
}

void UndoStack::Settle() {
    m_former.reset();
}

void UndoStack::Record(const DocumentChange& change) {
    if (m_isReplaying)
        return;
    if (!m_isOpen) {
        Push({{}, {change}});
        m_former.reset();
        return;
    }
    m_open.changes.push_back(change);
}

void UndoStack::TakeBack(const Step& step) {
    const internal::RaisedFlag replaying(m_isReplaying);
    for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change)
        m_document.Put(*change, LandXmlDocument::Side::Before);
}

void UndoStack::RollBack() {
    Close();
    if (!m_former)
        return;
    TakeBack(m_steps.back());
    m_steps.pop_back();
    m_position = m_steps.size();
    std::move(m_former->redone.begin(), m_former->redone.end(), std::back_inserter(m_steps));
    m_clean = m_former->clean;
    m_former.reset();
}

void UndoStack::Undo() {
    if (!CanUndo())
        return;
    m_former.reset();
    TakeBack(m_steps[m_position - 1]);
    --m_position;
}

void UndoStack::Redo() {
    if (!CanRedo())
        return;
    m_former.reset();
    const internal::RaisedFlag replaying(m_isReplaying);
    for (const DocumentChange& change : m_steps[m_position].changes)
        m_document.Put(change, LandXmlDocument::Side::After);
    ++m_position;
}

bool UndoStack::IsClean() const {
    if (m_isOpen && m_open.IsInFile())
        return false;
    if (!m_clean)
        return false;
    const auto [first, last] = std::minmax(*m_clean, m_position);
    return std::none_of(m_steps.begin() + static_cast<std::ptrdiff_t>(first),
                        m_steps.begin() + static_cast<std::ptrdiff_t>(last),
                        [](const Step& step) { return step.IsInFile(); });
}

} // namespace korvel::inspector
