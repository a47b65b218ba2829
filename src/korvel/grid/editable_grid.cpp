#include "korvel/grid/editable_grid.h"

#include "korvel/grid/member_reads.h"
#include "korvel/window/app/app.h"

#include <utility>

namespace korvel {

namespace {

// Raises a flag for its lifetime.
class Rebinding {
public:
    explicit Rebinding(bool& flag) : m_flag(flag) { m_flag = true; }
    ~Rebinding() { m_flag = false; }
    Rebinding(const Rebinding&) = delete;
    Rebinding& operator=(const Rebinding&) = delete;

private:
    bool& m_flag;
};

} // namespace

CEditableGrid::CEditableGrid(IObserverGrid* observer, IEnumContainer* enumerations)
    : m_pObserver(observer), m_pEnumContainer(enumerations) {}

CEditableGrid::~CEditableGrid() {
    DestroyWindow();
    // A grid without a window may show an object as well.
    ReadOr(false, [&] { return Clear(), true; });
}

LRESULT CEditableGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY)
        Clear();
    return CSuperGridCtrl::WindowProc(message, wParam, lParam);
}

bool CEditableGrid::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == LVN_BEGINLABELEDIT) {
        *result = 1; // names are the objects' own
        return true;
    }
    return CSuperGridCtrl::OnChildNotify(message, wParam, lParam, result);
}

void CEditableGrid::Initialize(IMemberDispatch* disp, const std::string& nameTitle,
                               const std::string& valueTitle, const unsigned long& extendedStyle) {
    const ModuleStateGuard guard;
    if (m_bInitialized || m_isRebinding)
        return;
    const Rebinding rebinding(m_isRebinding);
    iconWidth = iconHeight = 16;
    SetExtendedStyle(static_cast<UINT>(extendedStyle));
    ModifyStyle(0, LVS_OWNERDRAWFIXED);
    ModifyStyleEx(0, WS_EX_CLIENTEDGE);
    InsertColumns(nameTitle, valueTitle);
    m_Items.Clear();
    m_Groups.clear();
    m_pRootDisp = disp;
    if (disp) {
        const RedrawPause pause(*this);
        InsertItems(*disp, nullptr, -1);
    }
    if (m_pObserver)
        m_pObserver->AddSink(m_pRootDisp, &m_RootSink);
    SetColumnWidths();
    // Kept: nested objects hear of their sink a second time.
    std::vector<IMemberDispatch*> shown;
    for (const auto& [sub, group] : m_Groups)
        shown.push_back(sub);
    for (IMemberDispatch* sub : shown)
        if (const auto group = m_Groups.find(sub); group != m_Groups.end() && m_pObserver)
            m_pObserver->AddSink(sub, &group->second.sink);
    m_bInitialized = 1;
}

void CEditableGrid::InsertColumns(const std::string& nameTitle, const std::string& valueTitle) {
    if (m_Layout == eMultiColumn) {
        for (const auto& [column, name] : m_ColumnNames)
            InsertColumn(column, name, 0);
    } else {
        InsertColumn(0, nameTitle, 0);
        InsertColumn(1, valueTitle, 0);
    }
}

void CEditableGrid::SetColumnWidths() {
    if (m_Layout == eMultiColumn) {
        const int known = static_cast<int>(m_ColumnInfo.size());
        for (const auto& [column, name] : m_ColumnNames)
            SetColumnWidth(column, column < known ? m_ColumnInfo[static_cast<std::size_t>(column)].width
                                                  : LVSCW_AUTOSIZE_USEHEADER);
    } else if (m_ColumnInfo.size() == 2) {
        SetColumnWidth(0, m_ColumnInfo[0].width);
        SetColumnWidth(1, m_ColumnInfo[1].width);
    } else {
        const int width = GetClientRect().Width();
        const int names = width * 3 / 5;
        SetColumnWidth(0, names);
        SetColumnWidth(1, width - names);
    }
}

void CEditableGrid::Clear() {
    const ModuleStateGuard guard;
    if (!m_bInitialized || m_isRebinding)
        return;
    const Rebinding rebinding(m_isRebinding);
    CtrlClear();
    // The sinks must live until the observer has let go of them; nothing that it tells meanwhile adds rows.
    auto groups = std::exchange(m_Groups, {});
    IMemberDispatch* root = std::exchange(m_pRootDisp, nullptr);
    if (m_pObserver) {
        for (auto& [sub, group] : groups)
            m_pObserver->RemoveSink(sub, &group.sink);
        m_pObserver->RemoveSink(root, &m_RootSink);
    }
    m_Items.Clear();
    m_Groups.clear();
    UpdateSubscriptions();
    m_ColumnNames.clear();
    m_ColumnIndices.clear();
    m_bInitialized = 0;
    DeleteAllNodes();
    Invalidate();
    SaveAndDeleteColumns();
}

void CEditableGrid::SaveAndDeleteColumns() {
    const int columns = GetColumnCount();
    if (m_ColumnInfo.size() < static_cast<std::size_t>(columns))
        m_ColumnInfo.resize(static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column) {
        m_ColumnInfo[static_cast<std::size_t>(column)] = {column, GetColumnWidth(0)};
        DeleteColumn(0);
    }
}

void CEditableGrid::SetLayoutMultiColumn(const std::list<std::string>& columns) {
    const ModuleStateGuard guard;
    m_ColumnNames.clear();
    m_ColumnIndices.clear();
    int index = 0;
    for (const std::string& name : columns) {
        m_ColumnNames[index] = name;
        m_ColumnIndices[name] = index++;
    }
    SetGridLayout(eMultiColumn);
}

void CEditableGrid::SetLayoutSingleAttrColumn() {
    const ModuleStateGuard guard;
    m_ColumnNames.clear();
    m_ColumnIndices.clear();
    SetGridLayout(eSingleAttrColumn);
}

void CEditableGrid::SetGridLayout(EGridLayout layout) {
    IMemberDispatch* root = m_pRootDisp;
    Clear();
    m_Layout = layout;
    if (root)
        Initialize(root, "Attribut", "Wert", 0); // kept: these titles in every language
}

int CEditableGrid::GetSubItem(const std::string& name) const {
    const auto found = m_ColumnIndices.find(name);
    return found == m_ColumnIndices.end() ? 1 : found->second;
}

std::string CEditableGrid::GetColumn(const int& column) const {
    const auto found = m_ColumnNames.find(column);
    return found == m_ColumnNames.end() ? std::string() : found->second;
}

IMemberDispatch* CEditableGrid::GetDispInterface(int row) const {
    return GetDispInterface(NodeAtRow(row));
}

IMemberDispatch* CEditableGrid::GetDispInterface(const CTreeItem* node) const {
    if (!node)
        return nullptr;
    if (m_Layout == eMultiColumn)
        return node->info ? node->info->disp : nullptr;
    return node->parent() ? node->parent()->info->disp : m_pRootDisp;
}

CEditableGrid::CTreeItem* CEditableGrid::LookupTreeItem(IMemberDispatch* disp) const {
    const auto group = m_Groups.find(disp);
    return group == m_Groups.end() ? nullptr : group->second.node;
}

CEditableGrid::CTreeItem* CEditableGrid::LookupTreeItem(IMemberDispatch* disp,
                                                        const std::string& name) const {
    return m_Items.Find(disp, name).node;
}

CEditableGrid::ShownObject CEditableGrid::FindShown(IMemberDispatch* disp) const {
    if (disp && disp == m_pRootDisp)
        return {true, nullptr};
    CTreeItem* row = disp ? LookupTreeItem(disp) : nullptr;
    return {row != nullptr, row};
}

std::string CEditableGrid::GetAttrName(const CItemInfo* info) const {
    if (!info)
        return {};
    if (m_Layout != eMultiColumn)
        return info->text;
    LVHITTESTINFO hit;
    hit.pt = ScreenToClient(m_hWnd, GetCursorPos());
    SubItemHitTest(&hit);
    return GetColumn(hit.iSubItem);
}

std::string CEditableGrid::MemberOfCell(const CTreeItem& node, int column) const {
    return m_Layout == eMultiColumn ? GetColumn(column) : node.info->text;
}

void CEditableGrid::ModifyImageStyle(std::uint32_t add, std::uint32_t remove) {
    m_ImageStyle = (m_ImageStyle & ~remove) | add;
}

int CEditableGrid::GetIcon(const CTreeItem* node) {
    return node->info->image;
}

UINT CEditableGrid::GetCheckState(const CTreeItem* node, int column) {
    IMemberDispatch* disp = GetDispInterface(node);
    if (!disp)
        return 0;
    const std::string name = MemberOfCell(*node, column);
    UINT state = DFCS_BUTTONCHECK;
    if (!node->info->IsCellEnabled(column - 1))
        state |= DFCS_INACTIVE;
    CVariantValue value;
    ReadMember(*disp, name, value); // the node may be gone then
    if ((value.Type == DT_Bool && value.Value.Bool) || OnGetCheckState(disp, name, value))
        state |= DFCS_CHECKED;
    return state;
}

bool CEditableGrid::OnGetCheckState(IMemberDispatch*, const std::string&, const CVariantValue&) {
    return false;
}

void CEditableGrid::OnControlLButtonDown(UINT, CPoint point, LVHITTESTINFO& hit) {
    const CTreeItem* node = NodeAtRow(hit.iItem);
    if (!m_AllowEdit || !node || !node->info)
        return;
    if (IMemberDispatch* disp = GetDispInterface(node))
        OnEdit(node->info, hit.iItem, hit.iSubItem, point, disp, MemberOfCell(*node, hit.iSubItem));
}

void CEditableGrid::OnEdit(CItemInfo*, int, int, CPoint, IMemberDispatch*, const CString&) {}

void CEditableGrid::CtrlClear() {}

BOOL CEditableGrid::OnRowDeleting(CTreeItem*, int) {
    return 0;
}

std::unique_ptr<CImageList> CEditableGrid::CreateRowDragImage(int) {
    return nullptr;
}

BOOL CEditableGrid::OnVkReturn() {
    return 1;
}

} // namespace korvel
