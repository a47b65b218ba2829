#include "korvel/editors/wnd_item.h"

#include "korvel/editors/angle_unit.h"
#include "korvel/editors/dialog_around.h"
#include "korvel/editors/dice.h"
#include "korvel/editors/item_cell.h"
#include "korvel/editors/item_edit.h"
#include "korvel/editors/item_keyboard.h"
#include "korvel/platform/first_failure.h"
#include "korvel/window/base/loss_watch.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/thread_queue.h"
#include "korvel/window/display/window_view.h"

#include <utility>

namespace korvel {

using namespace internal;

namespace {

constexpr const char* ClassName = "KorvelItem";
constexpr const char* MemberName = "Member";

constexpr int EditId = 105;
constexpr int ListId = 106;
constexpr int DateId = 107;
constexpr UINT EditStyle = WS_CHILD | WS_GROUP | WS_TABSTOP | ES_AUTOHSCROLL;
constexpr UINT DateStyle = WS_CHILD | DTS_SHOWNONE;

constexpr int HighestList = 100;

} // namespace

CWndItem::CWndItem() {
    RegisterClassA(ClassName, DefWindowProcA);
    m_Dispatch.AddMember(MemberName, true, m_Value);
}

CWndItem::~CWndItem() {
    GuardedUntilRun([this] { DestroyWindow(); }); // while it can hear of its controls
}

bool CWndItem::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, ClassName, "", style, rect, parent, id);
}

void CWndItem::SetValue(const CVariantValue& value) {
    const CVariantValue shown = value; // may be the item's own
    Drop();
    ++m_values;
    m_Value = shown;
    StartDate();
    Invalidate();
}

void CWndItem::SetOptions(GridOptions options) {
    m_options = options;
    m_Edit.SetOptions(options);
    m_DateTime.SetOptions(options);
    Invalidate();
}

void CWndItem::SendParentComboMessage(UINT code) {
    NotifyParentCommand(m_hWnd, code);
}

ItemCell CWndItem::Cell() const {
    return {GetClientRect(), m_options, view::IsSwitchedOn(m_hWnd), m_hWnd && GetFocus() == m_hWnd};
}

void CWndItem::Synchronize() {
    HideEditor();
    m_Dispatch.RemoveMember(MemberName); // SetMember would ask for a type that shares a bit
    m_Dispatch.AddMember(MemberName, true, m_Value);
}

// The editor forgets the member first: it is told of the loss of the focus.
void CWndItem::HideEditor() {
    CWnd* editor = std::exchange(m_pActive, nullptr);
    m_Edit.Drop();
    m_DateTime.Drop();
    if (!editor)
        return;
    editor->ShowWindow(SW_HIDE);
    editor->EnableWindow(false);
    Invalidate();
}

void CWndItem::ShowEditor(CWnd& editor) {
    m_pActive = &editor;
    Place();
    editor.EnableWindow(true);
    editor.ShowWindow(SW_SHOW);
}

void CWndItem::Place() {
    const unsigned margins = m_Edit.GetMargins();
    m_rcText = Cell().BesideButton(m_Value, GetClientRect());
    m_rcText.left += static_cast<int>(LOWORD(margins));
    m_rcText.right -= static_cast<int>(HIWORD(margins));
    if (m_pActive)
        m_pActive->MoveWindow(m_pActive == &m_Edit ? m_rcText : GetClientRect(), false);
}

void CWndItem::PassFontOn(CWnd& editor) const {
    editor.SendMessageA(WM_SETFONT, reinterpret_cast<WPARAM>(m_pFont));
}

void CWndItem::StartText() {
    Synchronize();
    if (!m_Edit.m_hWnd)
        m_Edit.Create(EditStyle, {}, this, EditId);
    PassFontOn(m_Edit);
    m_Edit.Start(&m_Dispatch, MemberName);
    ShowEditor(m_Edit);
}

// The picker of a disabled item would look as if it could be used.
void CWndItem::StartDate() {
    Synchronize();
    if (ItemEditorOf(m_Value) != ItemEditor::Date || !view::IsSwitchedOn(m_hWnd))
        return;
    if (!m_DateTime.m_hWnd)
        m_DateTime.Create(DateStyle, {}, this, DateId);
    PassFontOn(m_DateTime);
    m_valueBefore = m_Value;
    m_DateTime.Start(&m_Dispatch, MemberName);
    ShowEditor(m_DateTime);
}

// From within the field's own End nothing is to be done: whoever called that goes on here.
void CWndItem::EndText() {
    if (m_pActive != &m_Edit || m_Edit.m_bInEnd)
        return;
    EndField(m_Edit, m_Value.Type);
    if (m_pActive != &m_Edit)
        return;
    m_Dispatch.GetMember(MemberName, m_Value);
    HideEditor();
}

// The picker goes when the user is done with it, not at the first change.
void CWndItem::EndDate() {
    if (m_pActive != &m_DateTime)
        return;
    if (!m_DateTime.m_pDisp) { // given up
        m_Value = m_valueBefore;
        return Synchronize();
    }
    m_DateTime.End();
    m_Dispatch.GetMember(MemberName, m_Value);
    if (GetFocus() != m_DateTime.m_hWnd)
        HideEditor();
    Invalidate();
}

void CWndItem::End() {
    CloseUp();
    EndText();
    EndDate();
}

void CWndItem::Drop() {
    HideEditor();
    CloseUp();
}

void CWndItem::Change(const CVariantValue& value) {
    m_Value = value;
    Synchronize();
    Invalidate();
    SendParentComboMessage(CBN_SELCHANGE);
}

void CWndItem::DropDown() {
    if (m_isDropped || ItemEditorOf(m_Value) != ItemEditor::List)
        return;
    Synchronize();
    if (!m_List.m_hWnd)
        m_List.CreateDropDown(this, ListId);
    const LossWatch same(m_values);
    m_List.Initialize(&m_Dispatch, MemberName);
    if (!same || !m_hWnd || !m_List.IsInitialized()) {
        if (!m_isDropped) // the host has dropped it for no other value
            m_List.UnIntialize();
        return;
    }
    m_isDropped = true;
    m_valueBefore = m_Value;
    m_List.DropBelow(GetWindowRect(), HighestList);
    m_List.SetWindowPos(HWND_TOPMOST, {}, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    m_List.ShowWindow(SW_SHOWNA);
    SendParentComboMessage(CBN_DROPDOWN);
    if (m_isDropped)
        SetFocus(); // and hands the keys to the list
    if (m_isDropped)
        m_hook.HookWindow(TopLevelAround(m_hWnd));
}

void CWndItem::CloseUp() {
    if (!std::exchange(m_isDropped, false))
        return;
    m_hook.HookWindow(nullptr);
    m_List.ShowWindow(SW_HIDE);
    FirstFailure failure;
    failure.Try([&] { m_List.UnIntialize(); });
    Invalidate();
    failure.Try([&] { SendParentComboMessage(CBN_CLOSEUP); });
    failure.Rethrow();
}

void CWndItem::TakeFromList() {
    if (!m_isDropped)
        return;
    m_Value = m_List.GetValue();
    m_Dispatch.SetMember(MemberName, m_Value);
    Invalidate();
}

void CWndItem::Press(CPoint point) {
    SetFocus();
    if (!m_hWnd || GetFocus() != m_hWnd)
        return;
    if (m_isDropped)
        CloseUp();
    else if (Cell().IsOnButton(m_Value, point))
        PressButton();
    else
        Edit();
}

void CWndItem::PressButton() {
    const ItemButton button = ItemButtonOf(m_Value);
    if (button == ItemButton::AngleUnit) {
        AdvanceAngleUnit();
        Invalidate();
    } else if (button != ItemButton::Dice) {
        Edit();
    } else if (const auto rolled = Roll(m_Value)) {
        Change(*rolled);
    }
}

void CWndItem::Edit() {
    switch (ItemEditorOf(m_Value)) {
    case ItemEditor::None:
        break;
    case ItemEditor::List:
        DropDown();
        break;
    case ItemEditor::Flag:
    case ItemEditor::Color:
    case ItemEditor::File:
        ChangeAtOnce();
        break;
    case ItemEditor::Date:
        if (m_pActive != &m_DateTime)
            StartDate();
        m_DateTime.SetFocus();
        break;
    case ItemEditor::Text:
        if (m_pActive != &m_Edit)
            StartText();
        m_Edit.SetFocus();
        break;
    }
}

// The item may show another value when the user is done.
void CWndItem::ChangeAtOnce() {
    const LossWatch same(m_values);
    const auto edited = EditAtOnce(m_Value, this);
    if (edited && same)
        Change(*edited);
}

bool CWndItem::PreTranslateMessage(MSG& message) {
    return ItemKeyboard(*this).Translate(message) || CWnd::PreTranslateMessage(message);
}

void CWndItem::PreSubclassWindow() {
    m_pFont = reinterpret_cast<CFont*>(SendMessageA(WM_GETFONT));
    StartDate();
}

LRESULT CWndItem::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT:
        Cell().Paint(*reinterpret_cast<CDC*>(wParam), m_Value);
        return 0;
    case WM_KORVEL_READVALUE:
        *reinterpret_cast<view::ValueView*>(lParam) = Cell().Read(m_Value);
        return 1;
    case WM_ERASEBKGND:
        return 1;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | (ItemEditorOf(m_Value) == ItemEditor::Text ? DLGC_WANTCHARS : 0u);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        Press(PointOf(lParam));
        return 0;
    case WM_DESTROY:
        Drop();
        m_List.DestroyWindow(); // the top-level window owns it
        break;
    }
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    FollowWindow(message, wParam);
    return result;
}

void CWndItem::FollowWindow(UINT message, WPARAM wParam) {
    switch (message) {
    case WM_SETFONT:
        m_pFont = reinterpret_cast<CFont*>(wParam);
        PassFontOn(m_Edit);
        PassFontOn(m_DateTime);
        [[fallthrough]];
    case WM_SIZE:
        Place();
        break;
    case WM_SETFOCUS:
        Invalidate();
        if (m_pActive)
            m_pActive->SetFocus();
        m_Edit.SetSel(0, -1);
        break;
    case WM_KILLFOCUS:
        Invalidate();
        CloseUp();
        break;
    case WM_ENABLE:
        if (!wParam)
            EndUncorrected();
        Invalidate();
        break;
    }
}

// A box, a dialog and another program give the focus back.
void CWndItem::OnEditorLeft() {
    if (ComesFocusBack())
        return;
    if (CauseOfFocusMove() != FocusCause::Moved)
        return EndUncorrected();
    EndDate();
    EndText();
}

// Hidden, disabled or destroyed: nobody can correct what is refused.
void CWndItem::EndUncorrected() {
    FirstFailure dropped;
    dropped.Try([&] { EndDate(); });
    dropped.Try([&] { EndText(); });
    Drop();
}

bool CWndItem::OnCommand(WPARAM wParam, LPARAM lParam) {
    const unsigned id = LOWORD(wParam);
    const UINT code = HIWORD(wParam);
    if (CWnd::OnCommand(wParam, lParam)) // a companion of the field has the focus
        return true;
    if ((id == EditId || id == DateId) && code == EN_KILLFOCUS)
        OnEditorLeft();
    else if (id == DateId && code == GridDateChanged)
        EndDate();
    else if (id == ListId && code == ComboListChanged)
        TakeFromList();
    else if (id == ListId && code == ComboListFinished)
        CloseUp();
    else
        return false;
    return true;
}

} // namespace korvel
