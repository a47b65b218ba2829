#include "editors/combo_list.h"
#include "editors/grid_ctrl_combo_box_input_states.h"
#include "platform/error.h"

#include <utility>

namespace korvel {

namespace {

void Require(const IEnumValue* enumeration) {
    if (!enumeration) {
        throw Error("A value without an enumeration has no entries to choose from.");
    }
}

} // namespace

void CComboList::Initialize(IMemberDispatch* disp, const std::string& name) {
    m_pDisp = disp;
    m_strMemberName = name;
    CVariantValue value;
    if (disp && disp->GetMember(name, value)) {
        Bind(disp, name, name, value);
    }
}

void CComboList::Initialize(const std::string& name, const CVariantValue& value) {
    Bind(nullptr, {}, name, value);
}

/// By value: name and value may be the list's own, which UnIntialize forgets.
void CComboList::Bind(IMemberDispatch* disp, std::string memberName, std::string valueName,
                      CVariantValue value) {
    Require(value.EnumValue);
    UnIntialize();
    m_pDisp = disp;
    m_strMemberName = std::move(memberName);
    m_strValueName = std::move(valueName);
    m_Model.SetValue(value);
    Initialize();
}

void CComboList::Initialize() {
    if (IsInitialized()) {
        return;
    }
    Require(GetEnumValue());
    m_Model.Begin();
    const unsigned binding = m_Model.Binding();
    try {
        Build();
    } catch (...) {
        // The host may have begun another binding before it threw.
        if (binding == m_Model.Binding()) {
            Reset();
        }
        throw;
    }
}

/// The host may end the binding, and begin another, whenever it is asked.
void CComboList::Build() {
    const ComboTree::Keep keep(m_Model.Tree());
    const unsigned binding = m_Model.Binding();
    const bool hasTree = m_Model.HasFlag(ENF_Tree);
    const Columns columns = AskColumns();
    if (binding != m_Model.Binding()) {
        return;
    }
    m_ImageColumn = hasTree ? 0 : -1;
    CreateColumns(columns);
    const CTreeItem* const selected = m_Model.InsertEntries();
    if (binding != m_Model.Binding()) {
        return;
    }
    OnRowsCame({0, m_Model.Tree().RowCount()});
    if (selected && selected->HasRow()) {
        SetItemState(selected->GetRow(), LVIS_SELECTED, LVIS_SELECTED);
        EnsureVisible(selected->GetRow(), true);
    }
    if (binding == m_Model.Binding()) {
        CreateInputState();
    }
}

CComboList::Columns CComboList::AskColumns() const {
    Columns columns;
    columns.isTable = m_Model.IsTable();
    if (!columns.isTable) {
        columns.types.insert(GetEnumValue()->GetDataType());
        return columns;
    }
    const CVariantValue* const pattern = GetEnumValue()->GetTemplate();
    IMemberDispatch* const object = pattern && pattern->Type == DT_Group ? pattern->Value.Dispatch : nullptr;
    if (!object) {
        return columns;
    }
    object->GetMemberNames(columns.names);
    for (const std::string& name : columns.names) {
        EDataTyps type = DT_Void;
        if (object->GetMemberType(name, type)) {
            columns.types.insert(type);
        }
    }
    return columns;
}

/// Titles are German in every language: kept, saved layouts name columns by them.
void CComboList::CreateColumns(const Columns& columns) {
    InsertColumn(0, "Bezeichnung", 0);
    for (const std::string& name : columns.names) {
        const int column = GetColumnCount();
        InsertColumn(column, name, 0);
        m_Columns[column] = name;
    }
    ModifyStyle(columns.isTable ? LVS_NOCOLUMNHEADER : 0, columns.isTable ? 0 : LVS_NOCOLUMNHEADER);
    for (const EDataTyps type : columns.types) {
        AddSink(type);
    }
    LayColumns();
}

void CComboList::LayColumns() {
    const int count = GetColumnCount();
    for (int column = 0; column < count; ++column) {
        SetColumnWidth(column, GetClientRect().Width() / count);
    }
}

void CComboList::UnIntialize() {
    if (IsInitialized()) {
        Reset();
    }
}

void CComboList::Reset() {
    m_Preview.Close();
    m_bDirty = false;
    // What the list control tells while its rows go finds a list without them; their data lives on so long.
    const ComboTree::Keep keep(m_Model.Tree());
    if (const auto state = std::exchange(m_pInputState, nullptr)) {
        state->Detach();
    }
    m_Model.Close();
    DeleteAllItems();
    while (GetColumnCount() > 0) {
        DeleteColumn(0);
    }
    m_TypeAhead = {};
    m_strValueName.clear();
    m_pDisp = nullptr;
    m_strMemberName.clear();
    SetImageList(nullptr);
    m_ImageColumn = -1;
    m_Columns.clear();
    RemoveSinks();
}

void CComboList::UpdateDisp(IObserverGrid* observer) {
    if (!m_pDisp || IsRunningUpdateDisp()) {
        return;
    }
    m_Flags |= FlagUpdating;
    try {
        WriteBack(*m_pDisp, m_strMemberName, observer);
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

/// By value: the host may end the binding meanwhile.
void CComboList::WriteBack(IMemberDispatch& disp, std::string name, IObserverGrid* observer) {
    const unsigned binding = m_Model.Binding();
    const CVariantValue written = GetValue();
    disp.SetMember(name, written);
    if (observer) {
        observer->OnChange(&disp, nullptr, name, written);
    }
    CVariantValue now = written;
    disp.GetMember(name, now);
    if (binding == m_Model.Binding()) {
        m_Model.Value() = now;
    }
    if (observer && now != written) {
        observer->OnChange(&disp, nullptr, name, now);
    }
}

void CComboList::EndUpdate() {
    const bool hidesPreview = (m_Flags & FlagHidePreview) != 0;
    m_Flags = 0;
    if (hidesPreview) {
        m_Preview.Dismiss();
        RedrawWindow();
    }
}

const bool& CComboList::IsDirty() {
    m_bDirty = false;
    CVariantValue now;
    if (m_pDisp && !IsRunningUpdateDisp() && m_pDisp->GetMember(m_strMemberName, now)) {
        m_bDirty = now != GetValue();
    }
    return m_bDirty;
}

} // namespace korvel
