#include "korvel/editors/combo_list.h"
#include "korvel/editors/grid_ctrl_combo_box_input_states.h"
#include "korvel/platform/error.h"

#include <utility>

namespace korvel {

namespace {

void Require(const IEnumValue* enumeration) {
    if (!enumeration)
        throw Error("A value without an enumeration has no entries to choose from.");
}

} // namespace

void CComboList::Initialize(IMemberDispatch* disp, const std::string& name) {
    m_pDisp = disp;
    m_strMemberName = name;
    CVariantValue value;
    if (disp && disp->GetMember(name, value))
        Bind(disp, name, name, value);
}

void CComboList::Initialize(const std::string& name, const CVariantValue& value) {
    Bind(nullptr, {}, name, value);
}

// By value: name and value may be the list's own, which UnIntialize forgets.
void CComboList::Bind(IMemberDispatch* disp, std::string memberName, std::string valueName,
                      CVariantValue value) {
    Require(value.EnumValue);
    UnIntialize();
    m_pDisp = disp;
    m_strMemberName = std::move(memberName);
    m_strValueName = std::move(valueName);
    m_model.SetValue(value);
    Initialize();
}

void CComboList::Initialize() {
    if (IsInitialized())
        return;
    Require(GetEnumValue());
    m_model.Begin();
    const unsigned binding = m_model.Binding();
    try {
        Build();
    } catch (...) {
        // The host may have begun another binding before it threw.
        if (binding == m_model.Binding())
            Reset();
        throw;
    }
}

// The host may end the binding, and begin another, whenever it is asked.
void CComboList::Build() {
    const ComboTree::Keep keep(m_model.Tree());
    const unsigned binding = m_model.Binding();
    const std::optional<Columns> columns = AskColumns();
    if (!columns)
        return;
    m_ImageColumn = columns->hasTree ? 0 : -1;
    CreateColumns(*columns);
    const CTreeItem* selected = m_model.InsertEntries();
    if (binding != m_model.Binding())
        return;
    OnRowsCame({0, m_model.Tree().RowCount()});
    if (selected && selected->HasRow()) {
        SetItemState(selected->GetRow(), LVIS_SELECTED, LVIS_SELECTED);
        EnsureVisible(selected->GetRow(), true);
    }
    if (binding == m_model.Binding())
        CreateInputState();
}

std::optional<CComboList::Columns> CComboList::AskColumns() const {
    const unsigned binding = m_model.Binding();
    Columns columns;
    columns.hasTree = m_model.HasFlag(ENF_Tree);
    if (binding != m_model.Binding())
        return std::nullopt;
    const EDataTyps type = GetEnumValue()->GetDataType();
    columns.isTable = type == DT_Group;
    if (!columns.isTable)
        columns.types.insert(type);
    else if (binding == m_model.Binding())
        AskMembers(columns);
    return binding == m_model.Binding() ? std::optional(columns) : std::nullopt;
}

void CComboList::AskMembers(Columns& columns) const {
    const unsigned binding = m_model.Binding();
    const CVariantValue* pattern = GetEnumValue()->GetTemplate();
    if (binding != m_model.Binding() || !pattern || pattern->Type != DT_Group || !pattern->Value.Dispatch)
        return;
    IMemberDispatch& object = *pattern->Value.Dispatch;
    object.GetMemberNames(columns.names);
    for (const std::string& name : columns.names) {
        if (binding != m_model.Binding())
            return;
        EDataTyps type = DT_Void;
        if (object.GetMemberType(name, type))
            columns.types.insert(type);
    }
}

// Titles are German in every language: kept, saved layouts name columns by them.
void CComboList::CreateColumns(const Columns& columns) {
    InsertColumn(0, "Bezeichnung", 0);
    for (const std::string& name : columns.names) {
        const int column = GetColumnCount();
        InsertColumn(column, name, 0);
        m_Columns[column] = name;
    }
    ModifyStyle(columns.isTable ? LVS_NOCOLUMNHEADER : 0, columns.isTable ? 0 : LVS_NOCOLUMNHEADER);
    for (const EDataTyps type : columns.types)
        AddSink(type);
    LayColumns();
}

void CComboList::LayColumns() {
    const int count = GetColumnCount();
    for (int column = 0; column < count; ++column)
        SetColumnWidth(column, GetClientRect().Width() / count);
}

// Who hears the end of a label edit may begin another binding.
void CComboList::UnIntialize() {
    while (IsInitialized())
        Reset();
}

void CComboList::Reset() {
    m_preview.Close();
    m_bDirty = false;
    const ComboTree::Keep keep(m_model.Tree());
    if (const auto state = std::exchange(m_pInputState, nullptr))
        state->Detach();
    m_model.Close();
    while (GetColumnCount() > 0)
        DeleteColumn(0);
    m_typeAhead = {};
    m_strValueName.clear();
    m_pDisp = nullptr;
    m_strMemberName.clear();
    SetImageList(nullptr);
    m_ImageColumn = -1;
    m_Columns.clear();
    RemoveSinks();
    DeleteRowsQuietly(0, GetItemCount()); // last: the end of a label edit is told
}

void CComboList::UpdateDisp(IObserverGrid* observer) {
    if (!m_pDisp || IsRunningUpdateDisp())
        return;
    m_Flags |= FlagUpdating;
    try {
        WriteBack(*m_pDisp, m_strMemberName, observer);
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

// By value: the host may end the binding meanwhile.
void CComboList::WriteBack(IMemberDispatch& disp, std::string name, IObserverGrid* observer) {
    const unsigned binding = m_model.Binding();
    const CVariantValue written = GetValue();
    disp.SetMember(name, written);
    if (observer)
        observer->OnChange(&disp, nullptr, name, written);
    CVariantValue now = written;
    disp.GetMember(name, now);
    if (binding == m_model.Binding())
        m_model.Value() = now;
    if (observer && now != written)
        observer->OnChange(&disp, nullptr, name, now);
}

void CComboList::EndUpdate() {
    const bool hidesPreview = (m_Flags & FlagHidePreview) != 0;
    m_Flags = 0;
    if (hidesPreview) {
        m_preview.Dismiss();
        RedrawWindow();
    }
}

const bool& CComboList::IsDirty() {
    m_bDirty = false;
    CVariantValue now;
    if (m_pDisp && !IsRunningUpdateDisp() && m_pDisp->GetMember(m_strMemberName, now))
        m_bDirty = now != GetValue();
    return m_bDirty;
}

} // namespace korvel
