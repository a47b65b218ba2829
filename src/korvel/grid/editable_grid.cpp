#include "korvel/grid/editable_grid.h"

#include "korvel/editors/cell_conversion.h"
#include "korvel/grid/chosen_member.h"
#include "korvel/grid/editable_grid_binding.h"
#include "korvel/grid/history_step.h"
#include "korvel/grid/sink_receiver.h"
#include "korvel/platform/first_failure.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/registered_messages.h"
#include "korvel/window/core/thread_queue.h"
#include "korvel/window/list/list_mouse.h"

#include <algorithm>
#include <climits>

namespace korvel {

using namespace internal;

namespace {

int PositionOf(const unsigned long& position) {
    return position > static_cast<unsigned long>(INT_MAX) ? -1 : static_cast<int>(position);
}

} // namespace

CEditableGrid::CEditableGrid(IObserverGrid* observer, IEnumContainer* enumerations)
    : MemberCommandGrid(observer, enumerations), m_pObserver(observer),
      m_binding(std::make_unique<Binding>(*this, observer)) {
    SetUpEditing(*m_binding, m_binding->frame);
    SetUpExchange(m_binding->copies, m_binding->columnState);
    SetUpCommands(m_binding->rows, *m_binding, m_binding->frame, observer);
}

CEditableGrid::~CEditableGrid() {
    GuardedUntilRun([this] { DestroyWindow(); });
    GuardedUntilRun([this] { Clear(); }); // a grid without a window may show an object as well
}

void CEditableGrid::PreSubclassWindow() {
    m_binding->window = m_hWnd;
    MemberCommandGrid::PreSubclassWindow();
}

LRESULT CEditableGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_OPENGLSINK_NOTIFICATION)
        return ReceiveSinkRecord(*this, lParam);
    if (message != WM_DESTROY)
        return MemberCommandGrid::WindowProc(message, wParam, lParam);
    FirstFailure failure;
    failure.Try([&] { Clear(); });
    LRESULT result = 0;
    failure.Try([&] { result = MemberCommandGrid::WindowProc(message, wParam, lParam); });
    failure.Rethrow();
    return result;
}

void CEditableGrid::Initialize(IMemberDispatch* disp, const std::string& nameTitle,
                               const std::string& valueTitle, const unsigned long& extendedStyle) {
    const ModuleStateGuard guard;
    m_binding->rows.Bind(disp, [&] {
        iconWidth = iconHeight = 16;
        SetExtendedStyle(static_cast<UINT>(extendedStyle));
        ModifyStyle(0, LVS_OWNERDRAWFIXED | LVS_EDITLABELS);
        ModifyStyleEx(0, WS_EX_CLIENTEDGE);
        m_binding->columns.Insert(nameTitle, valueTitle);
    });
}

void CEditableGrid::Clear() {
    const ModuleStateGuard guard;
    m_binding->rows.Unbind();
}

void CEditableGrid::SetLayoutMultiColumn(const std::list<std::string>& columns) {
    const ModuleStateGuard guard;
    m_binding->rows.layout.SetColumns(columns);
    SetGridLayout(eMultiColumn);
}

void CEditableGrid::SetLayoutSingleAttrColumn() {
    const ModuleStateGuard guard;
    m_binding->rows.layout.ClearColumns();
    SetGridLayout(eSingleAttrColumn);
}

void CEditableGrid::SetGridLayout(EGridLayout layout) {
    IMemberDispatch* root = GetRootDisp();
    FirstFailure failure;
    failure.Try([&] { Clear(); });
    m_Layout = layout;
    if (root)
        failure.Try([&] { Initialize(root, "Attribut", "Wert", 0); }); // kept: in every language
    failure.Rethrow();
}

const EGridLayout& CEditableGrid::GetGridLayout() const {
    return m_Layout;
}

void CEditableGrid::SetGridOption(EGridOption option, bool on) {
    if (GetGridOption(option) == on)
        return;
    const ModuleStateGuard guard;
    m_options.Set(option, on);
    m_Edit.SetOptions(m_options); // of a field that is open
    m_DateTime.SetOptions(m_options);
    if (option == EGridOption::AngleUnit)
        m_binding->ShowAngles();
}

bool CEditableGrid::IsInitialized() const {
    return m_binding->rows.IsBound();
}

int CEditableGrid::GetSubItem(const std::string& name) const {
    return m_binding->rows.layout.ColumnOf(name);
}

std::string CEditableGrid::GetColumn(const int& column) const {
    return m_binding->rows.layout.NameOf(column);
}

IMemberDispatch* CEditableGrid::GetRootDisp() const {
    return m_binding->rows.GetRoot();
}

IMemberDispatch* CEditableGrid::GetDispInterface(int row) const {
    return GetDispInterface(NodeAtRow(row));
}

IMemberDispatch* CEditableGrid::GetDispInterface(const CTreeItem* node) const {
    return m_binding->rows.ObjectOf(node);
}

CEditableGrid::CTreeItem* CEditableGrid::LookupTreeItem(IMemberDispatch* disp) const {
    return m_binding->rows.Find(disp);
}

CEditableGrid::CTreeItem* CEditableGrid::LookupTreeItem(IMemberDispatch* disp,
                                                        const std::string& name) const {
    return m_binding->rows.Find(disp, name);
}

std::string CEditableGrid::GetAttrName(const CItemInfo* info) const {
    if (!info)
        return {};
    if (GetGridLayout() != eMultiColumn)
        return info->text;
    return GetColumn(ColumnUnderPointer(*this));
}

std::string CEditableGrid::MemberOfCell(const CTreeItem& node, int column) const {
    return GetGridLayout() == eMultiColumn ? GetColumn(column) : node.info->text;
}

void CEditableGrid::InsertDispMember(CTreeItem* parent, IMemberDispatch* disp, const unsigned long& position,
                                     const std::string& name, const CVariantValue& value) {
    const ModuleStateGuard guard;
    m_binding->rows.Insert(parent, disp, PositionOf(position), name, value);
}

void CEditableGrid::RemoveDispMember(CTreeItem*, IMemberDispatch* disp, const std::string& name,
                                     const CVariantValue&) {
    const ModuleStateGuard guard;
    m_binding->rows.Remove(disp, name);
    OnEditedRowsGone(); // also after a cell of a row that stays
}

void CEditableGrid::OnNodeUnlinked(CTreeItem& node, const CTreeItem* formerParent) {
    FirstFailure failure;
    failure.Try([&] { m_binding->rows.OnRowUnlinked(node, formerParent); });
    failure.Try([&] { OnEditedRowsGone(); });
    failure.Rethrow();
}

void CEditableGrid::OnChange(IMemberDispatch* disp, const std::string& name, const CVariantValue& value) {
    const ModuleStateGuard guard;
    m_binding->rows.Change(disp, name, value);
}

void CEditableGrid::OnChangeEditFlag(IMemberDispatch* disp, const std::string& name, const bool& editable) {
    const ModuleStateGuard guard;
    m_binding->rows.ChangeEditFlag(disp, name, editable);
}

void CEditableGrid::OnChangeControlType(IMemberDispatch* disp, const std::string& name, EDataTyps,
                                        const CVariantValue& value) {
    const ModuleStateGuard guard;
    m_binding->rows.ChangeControlType(disp, name, value);
}

void CEditableGrid::OnOperationAdd(IMemberDispatch* disp, const std::string& name,
                                   const CVariantValue& value) {
    const ModuleStateGuard guard;
    m_binding->rows.Add(disp, name, value);
}

void CEditableGrid::OnOperationInsert(IMemberDispatch* disp, const unsigned long& position,
                                      const std::string& name, const CVariantValue& value) {
    const ModuleStateGuard guard;
    m_binding->rows.InsertAt(PositionOf(position), disp, name, value);
}

void CEditableGrid::OnOperationRemove(IMemberDispatch* disp, const std::string& name,
                                      const CVariantValue& value) {
    const ModuleStateGuard guard;
    const CTreeItem* node = LookupTreeItem(disp, name);
    if (!node)
        return;
    const LossWatch binding = m_binding->rows.WatchBinding();
    int selected = -1;
    FirstFailure failure;
    if (GetSelectedNode() == node) {
        selected = RowOfNode(node);
        failure.Try([&] { SetItemState(selected, 0, LVIS_SELECTED | LVIS_FOCUSED); });
    }
    failure.Try([&] { RemoveDispMember(nullptr, disp, name, value); });
    const int rows = GetItemCount();
    const int row = selected < rows ? selected : std::max(selected - 1, 0);
    if (binding && selected != -1 && row < rows)
        failure.Try([&] { SelectRow(row); });
    failure.Rethrow();
}

void CEditableGrid::OnOperationRename(IMemberDispatch* disp, const std::string& name,
                                      const std::string& newName) {
    const ModuleStateGuard guard;
    m_binding->rows.Rename(disp, name, newName);
    OnEditedMemberRenamed(disp, name, newName);
}

void CEditableGrid::OnOperationChangeType(IMemberDispatch* disp, const std::string& name, EDataTyps oldType,
                                          const CVariantValue& value) {
    const ModuleStateGuard guard;
    OnEditedMemberRetyped(disp, name);
    OnChangeControlType(disp, name, oldType, value);
    OnChange(disp, name, value);
}

void CEditableGrid::OnOperationChangeTupelPresentation(IMemberDispatch* disp, const std::string& text) {
    const ModuleStateGuard guard;
    m_binding->rows.ChangePresentation(disp, text);
}

void CEditableGrid::AddSink(EDataTyps type, IMemberDispatch* disp, const std::string& name) {
    m_binding->rows.SetService(disp, name, FormatServiceOf(type));
}

bool CEditableGrid::RemoveSink(EDataTyps type, IMemberDispatch* disp, const std::string& name) {
    const FormatService registered = m_binding->rows.GetService(disp, name);
    const bool isList = type & TypeBitList;
    if (registered == FormatService::None || (!isList && registered != FormatServiceOf(type)))
        return false;
    return m_binding->rows.SetService(disp, name, FormatService::None);
}

void CEditableGrid::ConvertToOutput(IMemberDispatch*, const std::string&, const CVariantValue& value,
                                    std::string& text, CItemInfo::CONTROLTYPE& control) {
    const bool hasUnit = GetGridOption(EGridOption::AngleUnit);
    ConvertCell(value, hasUnit ? TextForm::WithAngleUnit : TextForm::UserFacing, text, control);
}

void CEditableGrid::ModifyImageStyle(std::uint32_t add, std::uint32_t remove) {
    m_ImageStyle = (m_ImageStyle & ~remove) | add;
}

int CEditableGrid::GetIcon(const CTreeItem* node) {
    return node->info->image;
}

UINT CEditableGrid::GetCheckState(const CTreeItem* node, int column) {
    IMemberDispatch* disp = GetDispInterface(node);
    if (!disp || !IsInitialized())
        return 0; // while a binding ends, its objects may be gone before their rows
    const UINT state = DFCS_BUTTONCHECK | (node->info->IsCellEnabled(column - 1) ? 0u : DFCS_INACTIVE);
    return state | (m_binding->IsChecked(disp, MemberOfCell(*node, column)) ? DFCS_CHECKED : 0u);
}

bool CEditableGrid::OnGetCheckState(IMemberDispatch*, const std::string&, const CVariantValue&) {
    return false;
}

void CEditableGrid::SendHistoryEvent(const char* text) {
    TellStepOpened(korvel::GetParent(m_hWnd), text);
}

void CEditableGrid::SendHistoryEvent() {
    TellStepClosed(korvel::GetParent(m_hWnd));
}

void CEditableGrid::SendHistoryEventRollBack() {
    TellStepRolledBack(korvel::GetParent(m_hWnd));
}

void CEditableGrid::OnControlLButtonDown(UINT, CPoint point, LVHITTESTINFO& hit) {
    if (IsEditing())
        ForgetLabelClick(m_hWnd); // the press ends that
    const CTreeItem* node = NodeAtRow(hit.iItem);
    if (!m_AllowEdit || !node || !node->info)
        return;
    if (IMemberDispatch* disp = GetDispInterface(node))
        OnEdit(node->info, hit.iItem, hit.iSubItem, point, disp, MemberOfCell(*node, hit.iSubItem));
}

BOOL CEditableGrid::OnRowDeleting(CTreeItem*, int) {
    OnDelAttribut_V1();
    return 0;
}

std::unique_ptr<CImageList> CEditableGrid::CreateRowDragImage(int) {
    return nullptr;
}

} // namespace korvel
