#include "korvel/editors/combo_list.h"
#include "korvel/window/display/input.h"

namespace korvel {

namespace {

constexpr LRESULT NoActivation = 3; // what WM_MOUSEACTIVATE answers

UINT RepeatOf(LPARAM data) {
    return LOWORD(static_cast<std::uintptr_t>(data));
}

UINT FlagsOf(LPARAM data) {
    return HIWORD(static_cast<std::uintptr_t>(data));
}

bool IsKeyOfLists(WPARAM key) {
    return key == VK_SPACE || (key >= VK_LEFT && key <= VK_DOWN);
}

} // namespace

LRESULT CComboList::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const ComboTree::Keep keep(
        m_model.Tree()); // items that handlers look at outlive what the host does meanwhile
    const auto answer = HandleInput(message, wParam, lParam);
    return answer ? *answer : CListCtrl::WindowProc(message, wParam, lParam);
}

std::optional<LRESULT> CComboList::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
        return HandleButton(message, wParam, lParam);
    case WM_RBUTTONDOWN:
        OnRButtonDown(PointOf(lParam));
        return 0;
    case WM_RBUTTONUP:
        return 0; // the menu has been there already
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
    case WM_GETDLGCODE:
        return CListCtrl::WindowProc(message, wParam, lParam) | DLGC_WANTALLKEYS;
    case WM_MOUSEACTIVATE:
        return GetMode() == eDropDown ? std::optional<LRESULT>(NoActivation) : std::nullopt;
    case WM_SIZE: {
        const LRESULT result = CListCtrl::WindowProc(message, wParam, lParam);
        LayColumns();
        return result;
    }
    case WM_TIMER:
        if (wParam != ComboPreview::TimerId)
            return std::nullopt;
        if (IsInitialized())
            m_preview.OnTimer();
        return 0;
    case WM_COMMAND:
        return lParam == 0 && RunCommand(LOWORD(wParam)) ? std::optional<LRESULT>(1) : std::nullopt;
    case WM_DESTROY:
        UnIntialize();
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

// The list control's own handling of a press takes the keyboard and selects. A list that drops down serves a
// field that must keep the keyboard, and its input state alone selects.
LRESULT CComboList::HandleButton(UINT message, WPARAM wParam, LPARAM lParam) {
    const CPoint point = PointOf(lParam);
    const auto flags = static_cast<UINT>(wParam);
    if (GetMode() != eDropDown && HitTest(point) != -1)
        CListCtrl::WindowProc(message, wParam & ~WPARAM{MK_SHIFT | MK_CONTROL}, lParam);
    else if (GetMode() != eDropDown && message == WM_LBUTTONDOWN)
        SetFocus();
    if (const auto state = m_pInputState) {
        if (message == WM_LBUTTONDOWN)
            state->OnLButtonDown(flags, point);
        else if (message == WM_LBUTTONUP)
            state->OnLButtonUp(flags, point);
        else
            state->OnLButtonDblClk(flags, point);
    }
    DismissPreview();
    return 0;
}

LRESULT CComboList::HandleMouseMove(WPARAM wParam, LPARAM lParam) {
    if (GetMode() != eDropDown)
        CListCtrl::WindowProc(WM_MOUSEMOVE, wParam, lParam);
    if (const auto state = m_pInputState)
        state->OnMouseMove(static_cast<UINT>(wParam), PointOf(lParam));
    if (IsInitialized())
        m_preview.OnMouseMove(PointOf(lParam));
    return 0;
}

LRESULT CComboList::HandleWheel(WPARAM wParam, LPARAM lParam) {
    const auto state = m_pInputState;
    if (!state)
        return CListCtrl::WindowProc(WM_MOUSEWHEEL, wParam, lParam);
    state->OnMouseWheel(LOWORD(wParam), static_cast<short>(HIWORD(wParam)), PointOf(lParam));
    DismissPreview();
    return 0;
}

// A list that does not scroll must not hand the wheel to the window behind it.
void CComboList::ScrollByWheel(UINT flags, short delta, CPoint screen) {
    if (GetItemCount() > GetCountPerPage()) {
        CListCtrl::WindowProc(WM_MOUSEWHEEL, MAKEWPARAM(flags, static_cast<unsigned>(delta)),
                              MAKELPARAM(screen.x, screen.y));
    }
    UpdateWindow();
    RedrawWindow();
}

// Keys that mean nothing here go past the list control, which would move a selection of its own.
LRESULT CComboList::HandleKey(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto state = m_pInputState) {
        const auto key = static_cast<UINT>(wParam);
        if (message == WM_KEYDOWN) {
            state->OnKeyDown(key, RepeatOf(lParam), FlagsOf(lParam));
            TakeForwardedCharacters(key, lParam);
        } else {
            state->OnKeyUp(key, RepeatOf(lParam), FlagsOf(lParam));
        }
    }
    DismissPreview();
    return IsKeyOfLists(wParam) ? 0 : DefWindowProcA(m_hWnd, message, wParam, lParam);
}

// An owner that hands its keys to the dropped list gets no characters for them.
void CComboList::TakeForwardedCharacters(UINT key, LPARAM data) {
    const input::KeyOnTheWay* typed = input::CurrentKey();
    if (!typed || typed->window == m_hWnd || typed->key != key)
        return;
    const CString characters = typed->characters;
    for (const char character : characters)
        HandleCharacter(static_cast<unsigned char>(character), data);
}

LRESULT CComboList::HandleCharacter(WPARAM wParam, LPARAM lParam) {
    const auto state = m_pInputState;
    const auto character = static_cast<char>(wParam);
    if (!state || static_cast<unsigned char>(character) < ' ')
        return DefWindowProcA(m_hWnd, WM_CHAR, wParam, lParam);
    if (character == ' ' && state->TakesSpace())
        return 0;
    const int row = FindRowByText(m_typeAhead.Type(character, Display().Now()));
    if (row != -1 && row != state->GetCurrent())
        state->Step(row - state->GetCurrent());
    return 0;
}

int CComboList::FindRowByText(const internal::TypeAhead::Search& search) const {
    const int count = m_model.Tree().RowCount();
    const int first = GetCurrentRow() + (search.beginsAtNext ? 1 : 0);
    for (int step = 0; step < count && !search.beginning.empty(); ++step) {
        const int row = (std::max(first, 0) + step) % count;
        if (internal::TypeAhead::BeginsWith(GetTreeItem(row)->GetLabel(), search.beginning))
            return row;
    }
    return -1;
}

LRESULT CComboList::HandleFocus(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CListCtrl::WindowProc(message, wParam, lParam);
    RedrawRow(GetCurrentRow());
    SendParentComboMessage(message == WM_SETFOCUS ? ComboListSetFocus : ComboListKillFocus);
    return result;
}

void CComboList::RedrawRow(int row) {
    if (GetTreeItem(row))
        RedrawItems(row, row);
}

// An update in which the object makes the list hear of itself must not have the picture vanish under it.
void CComboList::DismissPreview() {
    if (IsRunningUpdateDisp())
        m_Flags |= FlagHidePreview;
    else
        m_preview.Dismiss();
}

} // namespace korvel
