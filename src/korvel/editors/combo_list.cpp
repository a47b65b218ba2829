#include "korvel/editors/combo_list.h"

#include "korvel/editors/combo_list_parts.h"
#include "korvel/editors/combo_names.h"
#include "korvel/editors/combo_row_painter.h"
#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"
#include "korvel/platform/error.h"
#include "korvel/platform/first_failure.h"
#include "korvel/window/core/thread_queue.h"

#include <utility>

namespace korvel {

using internal::ComboListParts;
using internal::ComboNames;
using internal::ComboRowGeometry;
using internal::ComboTree;
using internal::ComboView;

namespace {

void Require(const IEnumValue* enumeration) {
    if (!enumeration)
        throw Error("A value without an enumeration has no entries to choose from.");
}

int RowOf(const ComboTreeItem& item) {
    return item.HasRow() ? item.GetRow() : -1;
}

CRect PartOf(const ComboView& view, int row, CRect (ComboRowGeometry::*part)() const) {
    const auto geometry = view.GeometryOf(row);
    return geometry ? (*geometry.*part)() : CRect();
}

} // namespace

CComboList::CComboList(EComboListMode mode) : m_parts(std::make_unique<ComboListParts>(*this, mode)) {}

CComboList::CComboList(const CVariantValue& value, EComboListMode mode) : CComboList(mode) {
    m_parts->model.Binding().SetValue(value);
}

CComboList::~CComboList() {
    internal::GuardedUntilRun([this] { UnIntialize(); });
    internal::GuardedUntilRun([this] { DestroyWindow(); }); // while it can say that it loses the keyboard
}

// GetParent names none, as for a child of the desktop. It is owned all the same, so that it stays before its
// owner and is destroyed with it.
bool CComboList::CreateDropDown(CWnd* owner, int id) {
    constexpr UINT Style = WS_POPUP | WS_BORDER | WS_VSCROLL | LVS_OWNERDRAWFIXED | LVS_REPORT;
    constexpr CRect Unplaced{0, 0, 100, 100}; // larger than its frame, which is measured to place it
    SetOwner(owner);
    return CreateEx(WS_EX_TOOLWINDOW, "SysListView32", "", Style, Unplaced, owner, id);
}

void CComboList::DropBelow(const CRect& field, int highest) {
    m_parts->field = field;
    m_parts->highest = highest;
    m_parts->PlaceBelowField();
    EnsureVisible(GetCurrentRow(), false);
}

void CComboList::PreSubclassWindow() {
    ModifyStyle(0, LVS_REPORT | LVS_OWNERDRAWFIXED);
    SetTextSource([this](LPARAM data, int column) {
        return GetColumnText(*reinterpret_cast<const CTreeItem*>(data), column);
    });
}

void CComboList::SetOwner(CWnd* owner) {
    m_parts->view.SetOwner(owner ? owner->m_hWnd : nullptr);
}

HWND CComboList::GetOwnerWindow() const {
    return m_parts->view.Owner();
}

void CComboList::SendParentComboMessage(UINT code) {
    m_parts->view.Notify(code);
}

void CComboList::Initialize(IMemberDispatch* disp, const std::string& name) {
    const std::string memberName = name; // may be the list's own
    m_parts->writeBack.SetMember(disp, memberName);
    CVariantValue value;
    if (disp && disp->GetMember(memberName, value))
        Bind(disp, memberName, memberName, value);
}

void CComboList::Initialize(const std::string& name, const CVariantValue& value) {
    Bind(nullptr, {}, name, value);
}

// By value: name and value may be the list's own, which UnIntialize forgets.
void CComboList::Bind(IMemberDispatch* disp, std::string memberName, std::string valueName,
                      CVariantValue value) {
    Require(value.EnumValue);
    UnIntialize();
    m_parts->writeBack.SetMember(disp, memberName);
    m_parts->commands.SetBaseName(std::move(valueName));
    m_parts->model.Binding().SetValue(value);
    Initialize();
}

void CComboList::Initialize() {
    if (IsInitialized())
        return;
    Require(GetEnumValue());
    m_parts->Open();
}

// The host is told of the end of a label edit, and may begin another binding then.
void CComboList::UnIntialize() {
    while (IsInitialized())
        m_parts->Close();
}

bool CComboList::IsInitialized() const {
    return m_parts->model.Binding().IsOpen();
}

bool CComboList::UpdateDisp(IObserverGrid* observer) {
    if (IsRunningUpdateDisp())
        return true;
    bool isTaken = false;
    try {
        isTaken = m_parts->writeBack.Write(observer);
    } catch (...) {
        m_parts->input.OnWrittenBack();
        throw;
    }
    m_parts->input.OnWrittenBack();
    return isTaken;
}

bool CComboList::IsRunningUpdateDisp() const {
    return m_parts->writeBack.IsWriting();
}

const bool& CComboList::IsDirty() {
    return m_parts->writeBack.IsDirty();
}

IMemberDispatch* CComboList::GetDisp() const {
    return m_parts->writeBack.Object();
}

const std::string& CComboList::GetMemberName() const {
    return m_parts->writeBack.MemberName();
}

void CComboList::OnRenameMember(const std::string& name) {
    m_parts->writeBack.Rename(name);
}

const CVariantValue& CComboList::GetValue() const {
    return m_parts->model.Binding().Value();
}

EComboListMode CComboList::GetMode() const {
    return m_parts->model.Binding().Mode();
}

IEnumValue* CComboList::GetEnumValue() const {
    return m_parts->model.Binding().Enumeration();
}

const IGridCtrlComboBoxInputState* CComboList::GetInputState() const {
    return m_parts->input.State().get();
}

CComboList::CTreeItem* CComboList::GetTreeItem(int row) const {
    return m_parts->model.Tree().ItemAt(row);
}

const CComboList::CTreeItem& CComboList::GetRootItem() const {
    return m_parts->model.Tree().Root();
}

internal::ComboModel& CComboList::GetModel() {
    return m_parts->model;
}

void CComboList::Expand(CTreeItem* item) {
    if (item)
        m_parts->view.Expand(*item);
}

void CComboList::Collapse(CTreeItem* item) {
    if (item)
        m_parts->view.Collapse(*item);
}

void CComboList::ExpandParent(CTreeItem* item) {
    m_parts->model.ExpandParent(item);
}

std::string CComboList::GetPath(const CTreeItem& item) const {
    return ComboNames(m_parts->model).Path(item);
}

std::string CComboList::CreateUniqueName(const std::string& base, const CTreeItem& parent) const {
    return ComboNames(m_parts->model).UniqueNameUnder(parent, base);
}

void CComboList::EnableCommands(std::uint32_t commands, bool enable) {
    m_parts->commands.Enable(commands, enable);
}

int CComboList::GetCurrentRow() const {
    return m_parts->input.CurrentRow();
}

void CComboList::SetCurrentRow(int row) {
    m_parts->input.SetCurrentRow(row);
}

void CComboList::OnAddEnumValue(IEnumValue* enumeration, long id) {
    m_parts->OnEntryAdded(enumeration, id);
}

void CComboList::OnDestroyEnumValue(IEnumValue* enumeration, long id) {
    if (m_parts->Shows(enumeration))
        m_parts->model.EntryRemoved(id);
}

void CComboList::OnRenameEnumValue(IEnumValue* enumeration, long id, const CVariantValue&) {
    if (m_parts->Shows(enumeration)) {
        ComboNames(m_parts->model).EntryRenamed(id);
        RedrawWindow();
    }
}

IEnumSink& CComboList::GetEnumSink() {
    return m_parts->enumSink;
}

void CComboList::OnEventFormatChanged() {
    ComboNames(m_parts->model).RefreshLabels();
    RedrawWindow();
}

IDateFormatChanged& CComboList::GetDateSink() {
    return m_parts->dateSink;
}

IAngleFormatChanged& CComboList::GetAngleSink() {
    return m_parts->angleSink;
}

INumberFormatChanged& CComboList::GetNumberSink() {
    return m_parts->numberSink;
}

void CComboList::AddSink(EDataTyps type) {
    m_parts->sinkTypes.insert(type);
}

void CComboList::RemoveSink(EDataTyps type) {
    m_parts->sinkTypes.erase(type);
}

void CComboList::RemoveSinks() {
    m_parts->sinkTypes.clear();
}

const std::set<EDataTyps>& CComboList::GetSinkTypes() const {
    return m_parts->sinkTypes;
}

CRect CComboList::GetRectTreeBox(int row) const {
    return PartOf(m_parts->view, row, &ComboRowGeometry::TreeBox);
}

CRect CComboList::GetRectCheckBox(int row) const {
    return PartOf(m_parts->view, row, &ComboRowGeometry::CheckBox);
}

CRect CComboList::GetIconRect(int row) const {
    return PartOf(m_parts->view, row, &ComboRowGeometry::Icon);
}

CRect CComboList::GetRectLabel(int row) const {
    return PartOf(m_parts->view, row, &ComboRowGeometry::Label);
}

CRect CComboList::GetRectTreeBox(const CTreeItem& item) const {
    return GetRectTreeBox(RowOf(item));
}

CRect CComboList::GetRectCheckBox(const CTreeItem& item) const {
    return GetRectCheckBox(RowOf(item));
}

CRect CComboList::GetIconRect(const CTreeItem& item) const {
    return GetIconRect(RowOf(item));
}

CRect CComboList::GetRectLabel(const CTreeItem& item) const {
    return GetRectLabel(RowOf(item));
}

bool CComboList::HasCheckBoxes() const {
    return m_parts->model.Binding().HasFlag(ENF_CheckBoxes);
}

bool CComboList::HasTree() const {
    return m_parts->view.Columns().HasTree();
}

bool CComboList::IsTreePreview() const {
    return m_parts->model.Binding().HasPaths();
}

std::string CComboList::GetImagePath(int row) const {
    return m_parts->model.ImagePath(row);
}

bool CComboList::IsPreviewShown() const {
    return m_parts->input.IsPreviewShown();
}

CString CComboList::GetColumnText(const CTreeItem& item, int column) const {
    return m_parts->view.Columns().TextOf(item, column);
}

void CComboList::DrawItem(DRAWITEMSTRUCT* item) {
    const ComboTree::KeepItems keep(m_parts->model.Tree());
    internal::ComboRowPainter painter(m_parts->view, GetCurrentRow(), *item->hDC);
    painter.Draw(static_cast<int>(item->itemID), item->itemState);
}

LRESULT CComboList::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const ComboTree::KeepItems keep(m_parts->model.Tree()); // for handlers, whatever the host does meanwhile
    if (message == WM_KEYDOWN && m_parts->commands.RunByKey(static_cast<UINT>(wParam))) {
        m_parts->input.DismissPreview();
        return 0;
    }
    const auto result = m_parts->input.Handle(message, wParam, lParam);
    if (result)
        return *result;
    switch (message) {
    case WM_RBUTTONDOWN:
        m_parts->input.DismissPreview();
        if (GetMode() != eDropDown)
            m_parts->commands.TrackMenu(PointOf(lParam));
        return 0;
    case WM_RBUTTONUP:
        return 0; // the menu has been there already
    case WM_GETDLGCODE:
        return CListCtrl::WindowProc(message, wParam, lParam) | DLGC_WANTALLKEYS;
    case WM_MOUSEACTIVATE:
        if (GetMode() == eDropDown)
            return MA_NOACTIVATE;
        break;
    case WM_SIZE: {
        const LRESULT sized = CListCtrl::WindowProc(message, wParam, lParam);
        m_parts->view.LayColumns();
        return sized;
    }
    case WM_COMMAND:
        if (lParam == 0 && m_parts->commands.Run(LOWORD(wParam)))
            return 1;
        break;
    case LVM_KORVEL_READLIST:
    case LVM_KORVEL_READCELL: {
        const LRESULT isRead = CListCtrl::WindowProc(message, wParam, lParam);
        if (isRead)
            m_parts->Complete(message, lParam);
        return isRead;
    }
    case LVM_KORVEL_CHOOSECELL:
        return lParam && m_parts->input.Choose(reinterpret_cast<const view::CellPlace*>(lParam)->row);
    case WM_DESTROY: {
        internal::FirstFailure failure;
        failure.Try([&] { UnIntialize(); });
        LRESULT ended = 0;
        failure.Try([&] { ended = CListCtrl::WindowProc(message, wParam, lParam); });
        failure.Rethrow();
        return ended;
    }
    default:
        break;
    }
    return CListCtrl::WindowProc(message, wParam, lParam);
}

bool CComboList::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        const auto& edit = *reinterpret_cast<const NMLVDISPINFO*>(lParam);
        if (header.code == LVN_BEGINLABELEDIT) {
            *result = m_parts->commands.OnBeginLabelEdit(edit.iItem);
            return true;
        }
        if (header.code == LVN_ENDLABELEDIT) {
            *result = m_parts->commands.OnEndLabelEdit(edit.iItem, edit.pszText);
            return true;
        }
    }
    return CListCtrl::OnChildNotify(message, wParam, lParam, result);
}

} // namespace korvel
