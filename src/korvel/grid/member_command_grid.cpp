#include "korvel/grid/member_command_grid.h"

#include "korvel/grid/edited_members.h"
#include "korvel/grid/grid_context_menu.h"
#include "korvel/grid/member_label_edit.h"
#include "korvel/grid/member_operations.h"
#include "korvel/grid/path_opening.h"
#include "korvel/grid/type_commands.h"
#include "korvel/grid/write_frame.h"
#include "korvel/platform/first_failure.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/list/list_mouse.h"

#include <algorithm>
#include <iterator>

namespace korvel {

using namespace internal;

namespace {

// Whether WM_CONTEXTMENU is meant for the grid, and not for a control in it.
bool IsOwnOrNone(WPARAM asked, HWND window) {
    return asked == 0 || reinterpret_cast<HWND>(asked) == window;
}

} // namespace

struct MemberCommandGrid::Parts {
    Parts(MemberCommandGrid& grid, AttributeRows& rows, EditedMembers& ofGrid, WriteFrame& ofWrites,
          IObserverGrid* observer)
        : members(ofGrid), frame(ofWrites), operations(grid, rows, frame, observer),
          labelEdit(grid, rows, frame, observer), menu(grid, rows, frame) {}

    EditedMembers& members;
    WriteFrame& frame;
    MemberOperations operations;
    MemberLabelEdit labelEdit;
    GridContextMenu menu;
};

MemberCommandGrid::MemberCommandGrid(IObserverGrid* observer, IEnumContainer* enumerations)
    : ExchangeGrid(observer), m_pEnumContainer(enumerations) {}

MemberCommandGrid::~MemberCommandGrid() = default;

void MemberCommandGrid::SetUpCommands(AttributeRows& rows, EditedMembers& members, WriteFrame& frame,
                                      IObserverGrid* observer) {
    m_parts = std::make_unique<Parts>(*this, rows, members, frame, observer);
}

LRESULT MemberCommandGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = m_hWnd;
    if (message == WM_CONTEXTMENU && lParam == MAKELPARAM(-1, -1) && IsOwnOrNone(wParam, window)) {
        if (m_parts->menu.OpenAtSelection(Permissions()))
            return 0;
    } else if (message == WM_RBUTTONUP && m_parts->menu.TakeRelease()) {
        return 0;
    }
    if (message == WM_COMMAND && lParam == 0 && !SelectFor(LOWORD(wParam)))
        return 0;
    if (message == WM_RBUTTONDOWN)
        m_parts->menu.BeginPress();
    const LRESULT result = ExchangeGrid::WindowProc(message, wParam, lParam);
    if (message == WM_RBUTTONDOWN && WasPressRefused(window))
        m_parts->menu.SkipPress();
    else if (message == WM_RBUTTONDOWN && m_hWnd == window)
        OnRButtonDown(static_cast<UINT>(wParam), PointOf(lParam));
    return result;
}

void MemberCommandGrid::OnRButtonDown_Version_1(UINT, CPoint point) {
    const ModuleStateGuard guard;
    m_parts->menu.OpenAt(point, Permissions());
}

void MemberCommandGrid::OnContextCommands_Version_1(UINT id) {
    const ModuleStateGuard guard;
    m_parts->menu.RunObjectCommand(id);
}

void MemberCommandGrid::OnFormats() {
    const ModuleStateGuard guard;
    if (EndEdit())
        m_parts->frame.RunOutside([&] {
            korvel::SendMessageA(korvel::GetParent(m_hWnd), WM_COMMAND,
                                 static_cast<WPARAM>(GridCommand::ConfigureFormats),
                                 reinterpret_cast<LPARAM>(m_hWnd));
        });
}

MenuPermissions MemberCommandGrid::Permissions() const {
    return {m_AllowEdit, m_AllowRemove,        m_AllowRename, m_AllowChangeType,
            m_AllowAdd,  m_AllowCopyClipboard, m_AllowFormats};
}

bool MemberCommandGrid::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    auto* header = reinterpret_cast<NMHDR*>(message == WM_NOTIFY ? lParam : 0);
    if (header && header->code == LVN_BEGINLABELEDIT)
        return OnLvnBeginlabeledit(header, result), true;
    if (header && header->code == LVN_ENDLABELEDIT)
        return OnLvnEndlabeledit(header, result), true;
    return ExchangeGrid::OnChildNotify(message, wParam, lParam, result);
}

bool MemberCommandGrid::SelectFor(unsigned command) {
    const ModuleStateGuard guard;
    return m_parts->menu.SelectFor(command);
}

bool MemberCommandGrid::OnCommand(WPARAM wParam, LPARAM lParam) {
    const ModuleStateGuard guard;
    return (lParam == 0 && RunCommand(static_cast<GridCommand>(LOWORD(wParam)))) ||
           ExchangeGrid::OnCommand(wParam, lParam);
}

bool MemberCommandGrid::RunCommand(GridCommand command) {
    if (const auto type = TypeOfCommand(command))
        return OnChangeType(*type), true;
    if (command >= GridCommand::FirstObjectCommand && command <= GridCommand::LastObjectCommand)
        return OnContextCommands(static_cast<UINT>(command)), true;
    const struct {
        GridCommand command;
        void (MemberCommandGrid::*run)();
    } commands[] = {{GridCommand::AddMember, &MemberCommandGrid::OnAddAttribut_V1},
                    {GridCommand::RemoveMember, &MemberCommandGrid::OnDelAttribut_V1},
                    {GridCommand::RenameMember, &MemberCommandGrid::OnRenameAttribut_V1},
                    {GridCommand::ToggleWriteProtection, &MemberCommandGrid::OnChangeEditableAttribut_V1},
                    {GridCommand::CopyRow, &MemberCommandGrid::OnCopyClipboardRow},
                    {GridCommand::CopyTree, &MemberCommandGrid::OnCopyClipboardRecursive},
                    {GridCommand::CopyValue, &MemberCommandGrid::OnCopyClipboardValue},
                    {GridCommand::CopyColumn, &MemberCommandGrid::OnCopyClipboardColumn},
                    {GridCommand::ConfigureFormats, &MemberCommandGrid::OnFormats},
                    {GridCommand::OpenFile, &MemberCommandGrid::OnOpenFile},
                    {GridCommand::OpenFolder, &MemberCommandGrid::OnOpenFolder}};
    const auto* found = std::find_if(std::begin(commands), std::end(commands),
                                     [=](const auto& row) { return row.command == command; });
    if (found == std::end(commands))
        return false;
    (this->*found->run)();
    return true;
}

void MemberCommandGrid::OnLvnBeginlabeledit(NMHDR*, LRESULT* result) {
    *result = !IsEditing() && m_parts->labelEdit.Begin() ? 0 : 1;
}

void MemberCommandGrid::OnLvnEndlabeledit(NMHDR* header, LRESULT* result) {
    const bool isHidden = CauseOfFocusMove() == FocusCause::Hidden; // nobody could type it anew
    const auto& edited = *reinterpret_cast<const NMLVDISPINFO*>(header);
    *result = m_parts->labelEdit.End(edited.iItem, isHidden ? nullptr : edited.pszText) ? 1 : 0;
}

void MemberCommandGrid::OnAddAttribut_V1() {
    const ModuleStateGuard guard;
    if (EndEdit())
        m_parts->operations.Add(
            {m_pEnumContainer, m_EnableUserAttributsTyps, m_AllowWriteProtect, m_parts->members.Options()});
}

void MemberCommandGrid::OnDelAttribut_V1() {
    const ModuleStateGuard guard;
    if (m_AllowRemove && EndEdit())
        m_parts->operations.Remove();
}

void MemberCommandGrid::OnRenameAttribut_V1() {
    const ModuleStateGuard guard;
    if (!EndEdit())
        return;
    FirstFailure failure;
    m_bLabelEditArmed = false;
    failure.Try([&] { EditLabel(GetNextItem(-1, LVNI_SELECTED)); });
    m_bLabelEditArmed = true;
    failure.Rethrow();
}

void MemberCommandGrid::OnChangeEditableAttribut_V1() {
    const ModuleStateGuard guard;
    if (m_AllowEdit && EndEdit())
        m_parts->operations.ToggleWriteProtection();
}

void MemberCommandGrid::OnChangeType(EDataTyps target) {
    const ModuleStateGuard guard;
    if (EndEdit())
        m_parts->operations.ChangeType(target);
}

void MemberCommandGrid::OnOpenFile() {
    const ModuleStateGuard guard;
    if (const auto path = EndEdit() ? m_parts->operations.FindPath() : std::nullopt)
        m_parts->frame.RunOutside([&] { OpenFile(*path); });
}

void MemberCommandGrid::OnOpenFolder() {
    const ModuleStateGuard guard;
    if (const auto path = EndEdit() ? m_parts->operations.FindPath() : std::nullopt)
        m_parts->frame.RunOutside([&] { OpenFolder(FolderOf(*path)); });
}

bool MemberCommandGrid::OpenFile(CString path) {
    return OpenOnDesktop(m_hWnd, path, OpenAs::File);
}

bool MemberCommandGrid::OpenFolder(CString path) {
    return OpenOnDesktop(m_hWnd, path, OpenAs::Folder);
}

} // namespace korvel
