#include "korvel/editors/combo_input.h"

#include "korvel/editors/combo_list_codes.h"
#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"
#include "korvel/editors/make_input_state.h"
#include "korvel/platform/code_page.h"
#include "korvel/window/core/display.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/input_delivery.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

UINT RepeatOf(LPARAM data) {
    return LOWORD(static_cast<std::uintptr_t>(data));
}

UINT FlagsOf(LPARAM data) {
    return HIWORD(static_cast<std::uintptr_t>(data));
}

bool IsKeyOfLists(WPARAM key) {
    return key >= VK_SPACE && key <= VK_DOWN;
}

} // namespace

ComboInput::ComboInput(ComboView& view, const ComboWriteBack& writeBack)
    : m_view(view), m_control(view.Control()), m_writeBack(writeBack), m_preview(view) {}

void ComboInput::Begin() {
    const ComboBinding& binding = m_view.Model().Binding();
    const LossWatch bound = binding.Watch();
    const std::uint32_t flags = binding.Enumeration()->GetEnumFlags();
    if (!bound)
        return;
    auto state = MakeInputState(m_view, flags);
    if (bound)
        m_state = std::move(state);
    else if (state)
        state->Detach(); // the row that it repaints has asked the host
}

void ComboInput::End() {
    m_preview.Close();
    m_typeAhead = {};
    if (const auto state = std::exchange(m_state, nullptr))
        state->Detach();
}

int ComboInput::CurrentRow() const {
    return m_state ? m_state->GetCurrent() : -1;
}

void ComboInput::SetCurrentRow(int row) {
    if (const auto state = m_state) {
        state->SetCurrent(m_view.ItemAt(row) ? row : -1);
        m_control.EnsureVisible(state->GetCurrent(), false);
    }
}

bool ComboInput::Choose(int row) {
    const auto state = m_state;
    if (!m_view.IsDropDown())
        m_control.SetFocus();
    if (!state || state != m_state || !m_view.ItemAt(row))
        return false;
    state->Step(row - state->GetCurrent());
    return true;
}

std::optional<LRESULT> ComboInput::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
        return HandleButton(message, wParam, lParam);
    case WM_MOUSEMOVE:
        return HandleMouseMove(wParam, lParam);
    case WM_MOUSEWHEEL:
        return HandleWheel(wParam, lParam);
    case WM_KEYDOWN:
    case WM_KEYUP:
        return HandleKey(message, wParam, lParam);
    case WM_CHAR:
        return HandleCharacter(wParam, lParam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        return HandleFocus(message, wParam, lParam);
    case WM_TIMER:
        if (wParam != ComboPreview::TimerId)
            return std::nullopt;
        if (m_view.Model().Binding().IsOpen())
            m_preview.OnTimer();
        return 0;
    default:
        return std::nullopt;
    }
}

// The list control's own handling of a press takes the keyboard and selects. A list that drops down serves a
// field that must keep the keyboard, and its input state alone selects.
LRESULT ComboInput::HandleButton(UINT message, WPARAM wParam, LPARAM lParam) {
    const CPoint point = PointOf(lParam);
    const auto flags = static_cast<UINT>(wParam);
    const bool isDesign = !m_view.IsDropDown();
    const bool passes = isDesign && m_control.HitTest(point) != -1;
    if (passes)
        m_view.PassToList(message, wParam & ~WPARAM{MK_SHIFT | MK_CONTROL}, lParam);
    else if (isDesign && message == WM_LBUTTONDOWN)
        m_control.SetFocus();
    if (const auto state = m_state) {
        // The list control has selected the row of a second press on another row: that is a press of its own.
        const bool isOnOtherRow = passes && m_control.GetNextItem(-1, LVNI_SELECTED) != state->GetCurrent();
        if (message == WM_LBUTTONDOWN || (message == WM_LBUTTONDBLCLK && isOnOtherRow))
            state->OnLButtonDown(flags, point);
        else if (message == WM_LBUTTONUP)
            state->OnLButtonUp(flags, point);
        else
            state->OnLButtonDblClk(flags, point);
    }
    DismissPreview();
    return 0;
}

LRESULT ComboInput::HandleMouseMove(WPARAM wParam, LPARAM lParam) {
    if (!m_view.IsDropDown())
        m_view.PassToList(WM_MOUSEMOVE, wParam, lParam);
    if (const auto state = m_state)
        state->OnMouseMove(static_cast<UINT>(wParam), PointOf(lParam));
    if (m_view.Model().Binding().IsOpen())
        m_preview.OnMouseMove(PointOf(lParam));
    return 0;
}

LRESULT ComboInput::HandleWheel(WPARAM wParam, LPARAM lParam) {
    const auto state = m_state;
    if (!state)
        return m_view.PassToList(WM_MOUSEWHEEL, wParam, lParam);
    state->OnMouseWheel(LOWORD(wParam), static_cast<short>(HIWORD(wParam)), PointOf(lParam));
    DismissPreview();
    return 0;
}

// Keys that mean nothing here go past the list control, which would move a selection of its own.
LRESULT ComboInput::HandleKey(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto state = m_state) {
        const auto key = static_cast<UINT>(wParam);
        if (message == WM_KEYDOWN) {
            state->OnKeyDown(key, RepeatOf(lParam), FlagsOf(lParam));
            TakeForwardedCharacters(key, lParam);
        } else {
            state->OnKeyUp(key, RepeatOf(lParam), FlagsOf(lParam));
        }
    }
    DismissPreview();
    return IsKeyOfLists(wParam) ? 0 : DefWindowProcA(m_control.m_hWnd, message, wParam, lParam);
}

// An owner that hands its keys to the dropped list gets no characters for them.
void ComboInput::TakeForwardedCharacters(UINT key, LPARAM data) {
    const input::KeyOnTheWay* typed = input::CurrentKey();
    if (!typed || typed->window == m_control.m_hWnd || typed->key != key)
        return;
    const CString characters = typed->characters;
    for (std::size_t at = 0; at < characters.size();) {
        const std::size_t next = platform::NextCharacter(characters, at);
        if (!TakeCharacter(characters.substr(at, next - at)))
            DefWindowProcA(m_control.m_hWnd, WM_CHAR, static_cast<unsigned char>(characters[at]), data);
        at = next;
    }
}

LRESULT ComboInput::HandleCharacter(WPARAM wParam, LPARAM lParam) {
    const auto character = TypedText(m_control.m_hWnd, wParam);
    if (!character || TakeCharacter(*character))
        return 0;
    return DefWindowProcA(m_control.m_hWnd, WM_CHAR, wParam, lParam);
}

bool ComboInput::TakeCharacter(const CString& character) {
    const auto state = m_state;
    if (!state || static_cast<unsigned char>(character.front()) < ' ')
        return false;
    if (character == " " && state->TakesSpace())
        return true;
    const ComboTree& tree = m_view.Model().Tree();
    const int row =
        TypeAhead::Find(tree.RowCount(), CurrentRow(), m_typeAhead.Type(character, Display().Now()),
                        [&](int asked) -> const std::string& { return tree.ItemAt(asked)->GetLabel(); });
    if (row != -1 && row != state->GetCurrent())
        state->Step(row - state->GetCurrent());
    return true;
}

LRESULT ComboInput::HandleFocus(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = m_view.PassToList(message, wParam, lParam);
    m_view.RedrawRow(std::max(CurrentRow(), 0));
    m_view.Notify(message == WM_SETFOCUS ? ComboListSetFocus : ComboListKillFocus);
    return result;
}

// Writing a value back may send messages to the list itself: the picture must not vanish meanwhile.
void ComboInput::DismissPreview() {
    if (m_writeBack.IsWriting())
        m_dismissesAfterWriting = true;
    else
        m_preview.Dismiss();
}

void ComboInput::OnWrittenBack() {
    if (std::exchange(m_dismissesAfterWriting, false)) {
        m_preview.Dismiss();
        m_control.RedrawWindow();
    }
}

} // namespace korvel::internal
