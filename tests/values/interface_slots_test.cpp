#include "korvel/output/system_change.h"
#include "korvel/values/combo_box_parent.h"
#include "korvel/values/enum_value.h"
#include "korvel/values/file_value.h"
#include "korvel/values/observer_grid.h"
#include "support/interface_slots.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

// Hosts that were built apart call by slot: an operation that moves breaks them without a word.
TEST(InterfaceSlots, StayWhereHostsKnowThem) {
    using D = IMemberDispatch;
    ExpectEntries(2, &D::IsAutoDestroy, &D::GetIdent, &D::GetMemberNames, &D::GetMemberType,
                  &D::IsMemberEditable, &D::SetMemberEditable, &D::GetMember, &D::SetMember, &D::GetOptions,
                  &D::SetOptions, &D::GetMemberFlags, &D::GetEditFlags, &D::SetEditFlags, &D::AddMember,
                  &D::RemoveMember, &D::RenameMember, &D::ChangeMemberType, &D::SetIdent, &D::GetMemberLabel,
                  &D::OnAddMember, &D::OnRenameMember, &D::OnRemoveMember, &D::OnCommand, &D::OnMemberCommand,
                  &D::GetCommands, &D::GetMemberCommands, &D::GetExtraCommands, &D::GetMemberExtraCommands);
    using E = IEnumValue;
    ExpectEntries(2, &E::IsAutoDestroy, &E::Destroy, &E::GetDataType, &E::GetEnumFlags, &E::Reserved5,
                  &E::Reserved6, &E::AddValue, &E::RemoveValue, &E::GetName, &E::SetName,
                  &E::GetFirstPosition, &E::GetNext, &E::Reserved13, &E::GetTemplate, &E::Reserved15,
                  &E::IsValue, &E::Select, &E::Deselect, &E::Reserved19, &E::Reserved20, &E::GetSeparator);
    ExpectEntries(2, &IEnumContainer::GetEnumValue);
    ExpectEntries(14, &IEnumContainer::GetBegin, &IEnumContainer::GetEnd, &IEnumContainer::GetNext);
    ExpectEntries(2, &IFileValue::IsAutoDestroy, &IFileValue::Choose, &IFileValue::GetFileType,
                  &IFileValue::SetFileType);
    using B = IComboBoxParent;
    ExpectEntries(2, &B::GetDroppedState, &B::SetDroppedState, &B::OnArrowKey, &B::OnOK, &B::OnCancel);
    ExpectEntries(2, &ISystemChangedObserver::OnSystemChanged, &ISystemChangedObserver::Update);
    using O = IObserverGrid;
    ExpectEntries(0, &O::AddSink, &O::RemoveSink, &O::Reserved2, &O::OnChange, &O::OnRemove, &O::OnRename,
                  &O::OnAdd, &O::Reserved7, &O::OnChangeEditFlag, &O::OnChangeType);
    using G = IObserverGridSink;
    ExpectEntries(0, &G::Reserved0, &G::OnChangeIdent, &G::OnChange, &G::OnChangeEditFlag, &G::OnOperationAdd,
                  &G::OnOperationInsert, &G::OnOperationRemove, &G::OnOperationRename,
                  &G::OnOperationChangeType, &G::OnOperationChangeTupelPresentation);
}

} // namespace
} // namespace korvel
