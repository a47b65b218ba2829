#include "korvel/grid/cell_edit_grid.h"

#include "korvel/editors/item_keys.h"
#include "korvel/grid/cell_actions.h"
#include "korvel/grid/cell_keyboard.h"
#include "korvel/grid/edit_session.h"
#include "korvel/grid/hover_timer.h"
#include "korvel/grid/member_reads.h"
#include "korvel/grid/seen_cell.h"
#include "korvel/platform/first_failure.h"
#include "korvel/window/app/app.h"
#include "korvel/window/list/list_label_edit.h"
#include "korvel/window/list/list_mouse.h"

namespace korvel {

using namespace internal;

namespace {

constexpr int EditId = 105;
constexpr int ListId = 106;
constexpr int ArrowId = 107;
constexpr int FieldId = 108;
constexpr int DateId = 109;
constexpr int SpinId = 15046;

constexpr UINT BS_NOTIFY = 0x4000; // kept, although buttons say nothing of the focus
constexpr UINT ArrowStyle = WS_CHILD | WS_TABSTOP | BS_NOTIFY | BS_OWNERDRAW;

bool IsKey(UINT message) {
    return message >= WM_KEYDOWN && message <= WM_KEYLAST;
}

bool IsTab(UINT message, WPARAM key) {
    return message == WM_KEYDOWN && key == VK_TAB && !IsKeyDown(VK_CONTROL);
}

} // namespace

struct CellEditGrid::Parts {
    Parts(CellEditGrid& grid, EditedMembers& ofGrid, WriteFrame& frame)
        : members(ofGrid), frameHook(&grid, &CellEditGrid::CtrlEnd),
          commit(members, frame, grid.m_Edit.m_pObserver),
          dropDown(grid, commit,
                   {grid.m_ComboList, grid.m_ComboEdit, grid.m_ComboButton, grid.m_ComboHook, frameHook,
                    grid.m_DroppedState}),
          session(grid, members, commit, dropDown,
                  {grid.m_Edit, grid.m_Spin, grid.m_DateTime, grid.m_ActiveControl}),
          actions(grid, members, commit), hover(grid, grid.m_HoverTimer, grid.m_HighlightItem) {}

    EditedMembers& members;
    CComboListHook<CellEditGrid> frameHook;
    MemberCommit commit;
    DropDownSession dropDown;
    EditSession session;
    CellActions actions;
    HoverTimer hover;
    bool isListEndedByPress = false;
};

CellEditGrid::CellEditGrid(IObserverGrid* observer) : m_Edit(observer), m_DateTime(observer) {}

CellEditGrid::~CellEditGrid() = default;

void CellEditGrid::SetUpEditing(EditedMembers& members, WriteFrame& frame) {
    m_parts = std::make_unique<Parts>(*this, members, frame);
}

// A window that exists already gets them here, any other when it is made.
void CellEditGrid::PreSubclassWindow() {
    CSuperGridCtrl::PreSubclassWindow();
    if (GetHeaderCtrl()->m_hWnd)
        CreateControls();
}

void CellEditGrid::CreateControls() {
    CreateEdit();
    CreateListBox();
    CreateButton();
}

void CellEditGrid::CreateEdit() {
    constexpr UINT EditStyle = WS_CHILD | WS_TABSTOP | WS_GROUP | ES_AUTOHSCROLL;
    m_Edit.Create(EditStyle | WS_DISABLED, {}, this, EditId);
    m_Spin.Create(WS_CHILD | UDS_HORZ | WS_DISABLED, {}, this, SpinId);
    m_DateTime.Create(WS_CHILD | DTS_SHOWNONE | WS_DISABLED, {}, this, DateId);
}

void CellEditGrid::CreateListBox() {
    m_ComboList.CreateDropDown(this, ListId);
}

void CellEditGrid::CreateButton() {
    m_ComboEdit.Create(WS_CHILD | WS_TABSTOP | ES_READONLY | WS_DISABLED, {}, this, FieldId);
    m_ComboButton.Create("", ArrowStyle | WS_DISABLED, {}, this, ArrowId);
}

bool CellEditGrid::EndEdit() {
    const ModuleStateGuard guard;
    return m_parts->session.EndByCommand() && TakeLabel(m_hWnd);
}

bool CellEditGrid::IsCellMarked(int row, int column) const {
    return m_parts && m_parts->members.Options().Has(EGridOption::InlineErrors) &&
           m_parts->session.IsRefused(row, column);
}

bool CellEditGrid::IsEditing() const {
    return m_parts->session.IsOpen();
}

void CellEditGrid::CtrlEnd() {
    const ModuleStateGuard guard;
    m_parts->session.End(EditSession::WayOut::User);
}

void CellEditGrid::CtrlClear() {
    FirstFailure failure;
    failure.Try([&] { m_parts->session.End(EditSession::WayOut::Gone); });
    failure.Try([&] { m_parts->session.Drop(); }); // from within a commit nothing has ended
    failure.Try([&] { CancelEditLabel(); });
    failure.Rethrow();
}

void CellEditGrid::OnOK() {
    const HWND window = m_hWnd;
    SendParentComboMessage(CBN_SELENDOK);
    if (IsWindow(window))
        CtrlEnd();
}

void CellEditGrid::OnCancel() {
    const HWND window = m_hWnd;
    SendParentComboMessage(CBN_SELENDCANCEL);
    if (!IsWindow(window))
        return;
    if (m_parts->members.Options().Has(EGridOption::EscapeCancels))
        m_parts->session.CancelList();
    else
        CtrlEnd();
}

void CellEditGrid::SendParentComboMessage(UINT code) {
    NotifyParentCommand(m_hWnd, code);
}

void CellEditGrid::StartHilight(int) {
    m_parts->hover.Start();
}

void CellEditGrid::StopHilight() {
    m_parts->hover.Stop();
}

CRect CellEditGrid::GetSubItemRect(int row, int column) const {
    return CellRect(*this, row, column);
}

CRect CellEditGrid::GetControlRect(int row, int column, EDataTyps type) const {
    return ControlSquare(type, GetSubItemRect(row, column));
}

// Whoever hears of the end of the former edit may change the rows.
void CellEditGrid::OnEdit(CItemInfo*, int row, int column, CPoint point, IMemberDispatch* disp,
                          const CString& name) {
    const ModuleStateGuard guard;
    const EditedMembers& members = m_parts->members;
    const CTreeItem* node = NodeAtRow(row);
    const CRect before = GetSubItemRect(row, column);
    const bool isFiled = members.FindRow(disp, name) == node;
    const auto isThere = [&] {
        return isFiled ? members.FindRow(disp, name) == node
                       : NodeAtRow(row) == node && members.FindRow(disp, name);
    };
    if (!m_parts->session.End(EditSession::WayOut::User) || !node || !isThere())
        return;
    CellClick click;
    click.isEditable = ReadMemberEditable(*disp, name);
    if (column <= 0)
        return; // a name
    click.type = isThere() ? ReadMemberType(*disp, name) : DT_Void;
    if (!isThere() || !node->info)
        return;
    click.control = node->info->GetControlType(column - 1);
    const auto decide = [&] {
        click.cell = GetSubItemRect(RowOfNode(node), column);
        click.point = {point.x + click.cell.left - before.left, point.y + click.cell.top - before.top};
        return DecideEdit(click);
    };
    if (OpensControl(decide().action)) {
        EnsureVisible(RowOfNode(node), false); // which would be cut off with its row
        if (!isThere())
            return;
    }
    Carry(decide(), disp, name);
}

void CellEditGrid::Carry(const EditDecision& decision, IMemberDispatch* disp, const CString& name) {
    switch (decision.action) {
    case CellAction::EditPath:
        if (m_parts->actions.CanTypePath(disp, name))
            EditCtrlStart(decision.field, disp, name);
        return;
    case CellAction::EditText:
        return EditCtrlStart(decision.field, disp, name);
    case CellAction::EditBesideSpin:
        m_parts->session.ShowSpin(decision.spin, disp, name);
        if (!decision.field.IsRectEmpty())
            EditCtrlStart(decision.field, disp, name);
        return;
    case CellAction::PickDate:
        return m_parts->session.StartDate(decision.field, disp, name);
    case CellAction::DropList:
        return EditComboStart(decision.field, disp, name);
    default:
        return m_parts->actions.Do(decision.action, disp, name);
    }
}

void CellEditGrid::EditCtrlStart(const CRect& rect, IMemberDispatch* disp, const std::string& name) {
    m_parts->session.StartText(rect, disp, name);
}

void CellEditGrid::EditComboStart(const CRect& rect, IMemberDispatch* disp, const std::string& name) {
    if (m_DroppedState) {
        OnOK();
    } else {
        m_parts->session.StartList(rect, disp, name);
        m_parts->commit.RunOutside([&] { DisplayTree(disp, name); });
    }
    RedrawWindow(RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void CellEditGrid::DisplayTree(IMemberDispatch* disp, const std::string& name) {
    CRect place;
    CalculateDroppedRect(place);
    ShowTree(place, disp, name);
}

void CellEditGrid::ShowTree(CRect place, IMemberDispatch* disp, const std::string& name) {
    m_parts->dropDown.Drop(place, disp, name);
}

void CellEditGrid::HideTree() {
    m_parts->dropDown.Hide();
}

void CellEditGrid::CalculateDroppedRect(CRect& rect) const {
    rect = m_parts->dropDown.FieldOnScreen();
    rect.top = rect.bottom;
    rect.bottom += HighestDropDown;
}

void CellEditGrid::OnComboListSelOK() {
    m_parts->dropDown.ShowText();
}

bool CellEditGrid::OnCommand(WPARAM wParam, LPARAM lParam) {
    const auto control = reinterpret_cast<HWND>(lParam);
    const bool isText = control && (control == m_Edit.m_hWnd || control == m_Spin.m_hWnd);
    const bool isDate = control && control == m_DateTime.m_hWnd;
    const bool isList = control && control == m_ComboList.m_hWnd;
    if (CSuperGridCtrl::OnCommand(wParam, lParam))
        return true;
    const UINT code = HIWORD(wParam);
    if ((isText || isDate) && code == EN_KILLFOCUS)
        m_parts->session.OnFocusLost();
    else if (isList && code == ComboListChanged)
        OnComboListSelOK();
    else if (isList && (code == ComboListKillFocus || code == ComboListFinished))
        CtrlEnd();
    else
        return false;
    return true;
}

// The width of a column does not change under an edit.
bool CellEditGrid::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const bool isDrag = reinterpret_cast<const NMHDR*>(lParam)->code == HDN_BEGINTRACK;
    if (isDrag && !m_parts->session.End(EditSession::WayOut::User)) {
        *result = 1;
        return true;
    }
    return CSuperGridCtrl::OnNotify(wParam, lParam, result);
}

LRESULT CellEditGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool losesFocus =
        message == WM_KILLFOCUS && (!m_ActiveControl || reinterpret_cast<HWND>(wParam) != m_ActiveControl);
    FirstFailure failure;
    LRESULT result = 0;
    if (message == WM_DESTROY) {
        failure.Try([&] { m_ComboList.DestroyWindow(); }); // the top-level window owns it
    } else if (message == WM_SHOWWINDOW && !wParam) {
        failure.Try([&] { m_parts->session.End(EditSession::WayOut::Gone); });
        failure.Try([&] { CancelEditLabel(); });
    }
    failure.Try([&] { result = CSuperGridCtrl::WindowProc(message, wParam, lParam); });
    if (message == WM_CREATE)
        failure.Try([&] { CreateControls(); });
    else if (losesFocus)
        failure.Try([&] { m_parts->session.OnFocusLost(); });
    else if (message == WM_LBUTTONDOWN && m_parts->isListEndedByPress)
        ForgetLabelClick(m_hWnd);
    else if (message == WM_MOUSEMOVE)
        failure.Try([&] { m_parts->hover.OnMouseMove(PointOf(lParam)); });
    else if (message == WM_TIMER && wParam == HoverTimer::TimerId)
        failure.Try([&] { m_parts->hover.OnTimer(); });
    else if (result && message == LVM_KORVEL_READLIST)
        Complete(*reinterpret_cast<view::ListView*>(lParam));
    else if (result && message == LVM_KORVEL_READCELL)
        Complete(*reinterpret_cast<view::CellView*>(lParam));
    failure.Rethrow();
    return result;
}

void CellEditGrid::Complete(view::ListView& list) const {
    if (const auto edited = m_parts->session.EditedCell())
        list.edited = edited;
}

// What edits a cell opens the value, also from the name.
void CellEditGrid::Complete(view::CellView& cell) const {
    cell.readOnly |= cell.at.column == 0;
}

bool CellEditGrid::PreTranslateMessage(MSG& message) {
    if (message.message != WM_MOUSEMOVE) {
        m_parts->session.OnInput();
        m_parts->isListEndedByPress = false;
    }
    if (m_parts->dropDown.IsPressOnField(message)) {
        CtrlEnd();
        return true;
    }
    if (m_DroppedState)
        return TranslateDropped(message) || CSuperGridCtrl::PreTranslateMessage(message);
    if (IsKey(message.message) && TranslateKey(message))
        return true;
    return CSuperGridCtrl::PreTranslateMessage(message);
}

// The list has no focus: what is meant for it comes to the grid.
bool CellEditGrid::TranslateDropped(const MSG& message) {
    if (!IsKey(message.message)) {
        if (m_parts->dropDown.TakeMouse(message))
            return true;
        if (!m_parts->dropDown.IsPress(message))
            return false;
        const bool isEnded = EndEdit();
        m_parts->isListEndedByPress = true;
        return !isEnded || !IsWindow(message.hwnd);
    }
    if (OnKeyDropdownActive(message.message, static_cast<UINT>(message.wParam)))
        m_ComboList.SendMessageA(message.message, message.wParam, message.lParam);
    return true;
}

// True: the key is used up, or dropped.
bool CellEditGrid::TranslateKey(const MSG& message) {
    const HWND focus = GetFocus();
    const bool isOwn = message.hwnd == m_hWnd && focus == m_hWnd;
    const bool mayEdit = isOwn && m_parts->members.Options().Has(EGridOption::KeyboardEditing);
    if (mayEdit && CellKeyboard(*this, m_parts->members, m_parts->actions).Press(message))
        return true;
    if (message.hwnd == m_DateTime.m_hWnd && message.wParam != VK_TAB)
        return false; // its keys for the calendar are those that the grid keeps for a list
    const bool passesOn = OnKeyDropdownInactive(message.message, static_cast<UINT>(message.wParam));
    // Tab has done what it does, also where a refused text brought the focus back: a native field must not
    // leave by it once more.
    return IsTab(message.message, message.wParam) || !passesOn || GetFocus() != focus;
}

int CellEditGrid::OnKeyDropdownActive(UINT message, UINT key) {
    const HWND window = m_hWnd;
    MSG pressed;
    pressed.message = message;
    pressed.wParam = key;
    switch (ItemListKeyOf(pressed)) {
    case ItemListKey::Ignore:
        return 0;
    case ItemListKey::Take:
        return OnOK(), 1;
    case ItemListKey::Cancel:
        return OnCancel(), 1;
    case ItemListKey::Leave:
        return OnOK(), IsWindow(window) && LeaveGridByTab(window);
    default:
        return 1;
    }
}

int CellEditGrid::OnKeyDropdownInactive(UINT message, UINT key) {
    const bool dropsList =
        (message == WM_SYSKEYDOWN && key == VK_DOWN) || (message == WM_KEYDOWN && key == VK_F4);
    return !dropsList && (!IsTab(message, key) || LeaveGridByTab(m_hWnd));
}

void CellEditGrid::OnEditedRowsGone() {
    m_parts->session.OnRowsGone();
}

void CellEditGrid::OnEditedMemberRetyped(IMemberDispatch* disp, const std::string& name) {
    m_parts->session.OnRetyped(disp, name);
}

void CellEditGrid::OnEditedMemberRenamed(IMemberDispatch* disp, const std::string& name,
                                         const std::string& newName) {
    m_parts->session.OnRenamed(disp, name, newName);
}

} // namespace korvel
