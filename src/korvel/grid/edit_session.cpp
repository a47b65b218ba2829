#include "korvel/grid/edit_session.h"

#include "korvel/editors/cell_geometry.h"
#include "korvel/grid/member_reads.h"
#include "korvel/grid/seen_cell.h"
#include "korvel/platform/first_failure.h"
#include "korvel/platform/raised_flag.h"
#include "korvel/values/refusal_text.h"
#include "korvel/window/core/focus.h"

#include <utility>

namespace korvel::internal {

namespace {

// A commit calls the host, who may move the focus, and so end this edit or that of another grid again.
bool g_InCtrlEnd = false;

bool IsMouseDown() {
    constexpr UINT RightButton = 2;
    return IsKeyDown(VK_LBUTTON) || IsKeyDown(RightButton);
}

grid::CTreeItem* OutermostClosedGroup(const grid::CTreeItem& node) {
    grid::CTreeItem* closed = nullptr;
    for (grid::CTreeItem* group = node.parent(); group; group = group->parent())
        closed = group->collapsed() ? group : closed;
    return closed;
}

} // namespace

EditSession::EditSession(CSuperGridCtrl& grid, EditedMembers& members, const MemberCommit& commit,
                         DropDownSession& dropDown, Controls controls)
    : m_grid(grid), m_members(members), m_commit(commit), m_dropDown(dropDown), m_controls(controls) {
    m_controls.text.SetHeldValueHook(
        [this](IMemberDispatch* disp, const std::string& name, const CVariantValue& held) {
            m_members.ShowValue(disp, name, held);
        });
    m_controls.spin.m_pEdit = &m_controls.text;
    m_controls.spin.m_Step = -1.0; // the first arrow raises
    m_controls.spin.SetWriteHook([this] { WriteStep(); });
    m_controls.spin.SetFailureHook([this](const std::exception_ptr& failure) { OnStepFailed(failure); });
}

bool EditSession::IsOpen() const {
    return m_member || m_controls.text.m_pDisp || m_controls.date.m_pDisp || m_dropDown.IsOpen();
}

std::optional<view::CellPlace> EditSession::EditedCell() const {
    const int row = IsOpen() ? EditedRow() : -1;
    return row >= 0 ? std::optional(view::CellPlace{row, m_member->column}) : std::nullopt;
}

bool EditSession::IsEdited(IMemberDispatch* disp, const std::string& name) const {
    return m_member && m_member->disp == disp && m_member->name == name;
}

void EditSession::Begin(const CRect& field, IMemberDispatch* disp, const std::string& name) {
    const int column = m_members.ColumnOf(name);
    const CRect cell = CellRect(m_grid, m_grid.RowOfNode(m_members.FindRow(disp, name)), column);
    m_member = EditedMember{disp, name, column, CellOffsets::Of(field, cell)};
    m_refused.reset();
    m_wayOutInCommit.reset();
    m_grid.SetCellsMovedHook([this] { FollowCell(); });
}

void EditSession::TakeFont(CWnd& control) const {
    control.SendMessageA(WM_SETFONT, static_cast<WPARAM>(m_grid.SendMessageA(WM_GETFONT)));
}

void EditSession::Activate(CWnd& control) {
    control.EnableWindow(true);
    control.ShowWindow(SW_SHOW);
    m_controls.active = control.m_hWnd;
    control.SetFocus();
}

void EditSession::StartText(const CRect& field, IMemberDispatch* disp, const std::string& name) {
    CGridCtrlEdit& text = m_controls.text;
    text.MoveWindow(field, false);
    TakeFont(text);
    text.SetOptions(m_members.Options());
    m_commit.RunOutside([&] { text.Start(disp, name); });
    const auto isStarted = [&] { return text.m_pDisp && m_commit.IsShown(disp, name); };
    const EDataTyps type = isStarted() ? ReadMemberType(*disp, name) : DT_Void;
    if (!isStarted())
        return Drop();
    Begin(field, disp, name);
    m_member->type = type;
    Activate(text);
}

void EditSession::ShowSpin(const CRect& spin, IMemberDispatch* disp, const std::string& name) {
    Begin(spin, disp, name);
    m_controls.text.m_CompanionWindows = {m_controls.spin.m_hWnd};
    m_controls.spin.MoveWindow(spin, false);
    m_controls.spin.EnableWindow(true);
    m_controls.spin.ShowWindow(SW_SHOW);
}

void EditSession::StartDate(const CRect& field, IMemberDispatch* disp, const std::string& name) {
    CGridCtrlDateTime& date = m_controls.date;
    date.MoveWindow(field, false);
    TakeFont(date);
    date.SetOptions(m_members.Options());
    m_commit.RunOutside([&] { date.Start(disp, name); });
    if (!date.m_pDisp || !m_commit.IsShown(disp, name))
        return Drop();
    Begin(field, disp, name);
    m_grid.SetFocus();
    if (m_member)
        Activate(date);
}

void EditSession::StartList(const CRect& cell, IMemberDispatch* disp, const std::string& name) {
    Begin(cell, disp, name);
    m_dropDown.Place(cell);
    m_dropDown.ShowField();
    m_grid.SetFocus(); // which gets the keys for the list
}

bool EditSession::End(WayOut way) {
    if (g_InCtrlEnd) {
        m_wayOutInCommit = way;
        return false;
    }
    m_isRefusedByPress = false;
    m_wayOutInCommit.reset(); // which came while another grid wrote
    if (!IsOpen())
        return true;
    const RaisedFlag ending(g_InCtrlEnd);
    if (CanWrite())
        return EndAll(way);
    Drop();
    return true;
}

// The object is asked again: it may have protected the member meanwhile.
bool EditSession::CanWrite() const {
    const auto member = m_member;
    return !member || m_commit.CanWrite(member->disp, member->name);
}

bool EditSession::EndAll(WayOut way) {
    bool isChosen = true, isEnded = false, isDated = true;
    FirstFailure failure;
    failure.Try([&] { isChosen = m_dropDown.End(DropDownSession::Choice::Taken, way == WayOut::User); });
    failure.Try([&] { isEnded = EndText(way, failure); });
    failure.Try([&] { isDated = EndDate(way); });
    if (isEnded)
        failure.Try([&] { Close(); });
    failure.Rethrow();
    return isEnded && isChosen && isDated;
}

bool EditSession::EndByCommand() {
    return !std::exchange(m_isRefusedByPress, false) && End(WayOut::User);
}

void EditSession::CancelList() {
    if (g_InCtrlEnd)
        return;
    const RaisedFlag ending(g_InCtrlEnd);
    FirstFailure failure;
    failure.Try([&] { m_dropDown.End(DropDownSession::Choice::Left, true); });
    failure.Try([&] { Close(); });
    failure.Rethrow();
}

// True: nothing is open any more, or is to be. A user who cannot be told of a refusal keeps the text all the
// same.
bool EditSession::EndText(WayOut way, FirstFailure& failure) {
    CGridCtrlEdit& text = m_controls.text;
    if (!text.m_pDisp)
        return true;
    const CString typed = text.GetWindowTextA();
    if (m_refused == typed)
        return true; // has been told, and is dropped
    bool isWritten = false;
    failure.Try([&] { isWritten = IsTextWritten(way); });
    if (!text.m_pDisp)
        return true; // also when the host has dropped it meanwhile
    if (isWritten)
        return false; // the host has begun another edit meanwhile
    return way == WayOut::Gone || m_wayOutInCommit == WayOut::Gone || !KeepRefused(typed);
}

bool EditSession::IsTextWritten(WayOut way) {
    CGridCtrlEdit& text = m_controls.text;
    const CString typed = text.GetWindowTextA();
    const EDataTyps type = EditedType();
    return m_commit.RunStep(
        [&](HistoryStep&) {
            try {
                text.End(true);
            } catch (...) {
                if (way == WayOut::User)
                    throw;
                return false;
            }
            return true;
        },
        [&](const std::string& own) { return RefusalText(own, typed, type); });
}

EDataTyps EditSession::EditedType() const {
    return m_member ? m_member->type : DT_Void;
}

// The user goes on in the field. False: its row is not there any more.
bool EditSession::KeepRefused(const CString& text) {
    OpenGroupsAround();
    const int row = EditedRow();
    if (row < 0)
        return false;
    m_refused = text;
    m_grid.RedrawRow(row);
    m_grid.EnsureVisible(row, false);
    if (!m_member)
        return false; // whoever was painted or scrolled has ended it
    if (const auto cell = SeenCell(m_grid, row, m_member->column))
        PlaceOver(*cell);
    m_controls.text.SetFocus();
    return true;
}

bool EditSession::EndDate(WayOut way) {
    CGridCtrlDateTime& date = m_controls.date;
    if (!date.m_pDisp)
        return true;
    return m_commit.RunStep([&](HistoryStep&) {
        try {
            return date.End();
        } catch (...) {
            if (way == WayOut::User)
                throw;
            return false;
        }
    });
}

void EditSession::OnFocusLost() {
    switch (CauseOfFocusMove()) {
    case FocusCause::Moved: {
        const bool isPressedOutside = GetFocus() != m_grid.m_hWnd && IsMouseDown();
        if (!End(WayOut::User) && m_refused)
            m_isRefusedByPress = isPressedOutside;
        break;
    }
    case FocusCause::Hidden:
        End(WayOut::Gone);
        break;
    case FocusCause::Disabled:
    case FocusCause::Question:
    case FocusCause::ProgramLeft:
        if (m_dropDown.IsOpen())
            End(WayOut::Gone); // a field gets the focus back; a list would hang above what comes now
        break;
    }
}

void EditSession::Drop() {
    FirstFailure failure;
    failure.Try([&] { m_dropDown.End(DropDownSession::Choice::Left, false); });
    failure.Try([&] { Close(); });
    failure.Rethrow();
}

// Hidden first, so that a focus in a control goes to the grid.
void EditSession::Close() {
    if (m_refused && m_grid.m_hWnd)
        m_grid.RedrawRow(EditedRow());
    m_member.reset();
    m_refused.reset();
    m_controls.text.Drop();
    m_controls.date.Drop();
    FirstFailure failure;
    failure.Try([&] { m_grid.SetCellsMovedHook(nullptr); });
    failure.Try([&] { CloseControl(m_controls.spin); });
    failure.Try([&] { CloseControl(m_controls.text); });
    failure.Try([&] { CloseControl(m_controls.date); });
    m_controls.active = nullptr;
    failure.Rethrow();
}

void EditSession::CloseControl(CWnd& control) {
    if (!control.m_hWnd)
        return;
    FirstFailure failure;
    failure.Try([&] { control.ShowWindow(SW_HIDE); });
    failure.Try([&] { control.EnableWindow(false); });
    failure.Rethrow();
}

void EditSession::OnRowsGone() {
    if (m_member && !m_commit.IsShown(m_member->disp, m_member->name))
        Drop();
}

void EditSession::OnRetyped(IMemberDispatch* disp, const std::string& name) {
    if (IsEdited(disp, name))
        Drop();
}

void EditSession::OnRenamed(IMemberDispatch* disp, const std::string& name, const std::string& newName) {
    if (!IsEdited(disp, name) || !m_commit.IsShown(disp, newName))
        return;
    m_member->name = newName;
    m_member->column = m_members.ColumnOf(newName);
    if (m_controls.text.m_pDisp)
        m_controls.text.m_strName = newName;
    if (m_controls.date.m_pDisp)
        m_controls.date.m_strName = newName;
    m_dropDown.OnRenamed(newName);
    FollowCell();
}

// The host may move the focus or hide the grid meanwhile: the edit then ends after the write, as another one.
void EditSession::WriteStep() {
    if (g_InCtrlEnd)
        return; // the end of the edit writes it
    if (!CanWrite())
        return Drop();
    m_wayOutInCommit.reset();
    {
        const RaisedFlag writing(g_InCtrlEnd);
        m_controls.text.End(false);
        if (std::exchange(m_refused, std::nullopt)) // the text is another one
            m_grid.RedrawRow(EditedRow());
    }
    if (const auto way = std::exchange(m_wayOutInCommit, std::nullopt))
        End(*way);
}

void EditSession::OnStepFailed(const std::exception_ptr& stepFailure) {
    CGridCtrlEdit& text = m_controls.text;
    const CString typed = text.GetWindowTextA();
    const auto isGone = [&] { return !text.m_pDisp || m_wayOutInCommit == WayOut::Gone; };
    FirstFailure failure;
    if (!isGone()) {
        const RaisedFlag telling(g_InCtrlEnd);
        failure.Try([&] {
            m_commit.Tell(stepFailure,
                          [&](const std::string& own) { return RefusalText(own, typed, EditedType()); });
        });
    }
    failure.Try([&] {
        if (isGone() || !KeepRefused(typed))
            Drop();
    });
    failure.Rethrow();
}

const grid::CTreeItem* EditSession::EditedNode() const {
    return m_member ? m_members.FindRow(m_member->disp, m_member->name) : nullptr;
}

// -1 while it has none.
int EditSession::EditedRow() const {
    return m_grid.RowOfNode(EditedNode());
}

// From the outermost on. Whoever hears of a row may close a group again: then it stays so.
void EditSession::OpenGroupsAround() {
    const auto* node = EditedNode();
    for (int depth = node ? node->indent() : 0; depth > 1 && node && EditedRow() < 0; --depth) {
        grid::CTreeItem* closed = OutermostClosedGroup(*node);
        if (!closed)
            return;
        m_grid.ExpandNode(closed, m_grid.RowOfNode(closed));
        node = EditedNode();
    }
}

void EditSession::PlaceOver(const CRect& cell) {
    const CRect field = m_member->field.Around(cell);
    if (m_dropDown.IsOpen())
        m_dropDown.Place(field);
    m_controls.spin.MoveWindow(SpinArea(cell));
    m_controls.text.MoveWindow(field);
    m_controls.date.MoveWindow(field);
}

void EditSession::FollowCell() {
    const auto* node = EditedNode();
    const int row = m_grid.RowOfNode(node);
    if (!node || (row < 0 ? !OutermostClosedGroup(*node) : m_grid.NodeAtRow(row) != node))
        return; // the rows are being changed
    if (const auto cell = SeenCell(m_grid, row, m_member->column))
        PlaceOver(*cell);
    else
        End(WayOut::User);
}

} // namespace korvel::internal
