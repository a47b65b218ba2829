#include "output/system_change.h"
#include "values/combo_box_parent.h"
#include "values/enum_value.h"
#include "values/file_value.h"
#include "values/observer_grid.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>

namespace korvel {
namespace {

// A pointer to a virtual operation holds one more than its distance, in bytes, from the start of the table. A
// destructor takes two entries there and one slot here.
enum class EDestructor { First, Elsewhere };

template <typename Operation>
int SlotOf(Operation operation, EDestructor destructor) {
    struct SPointer {
        std::uintptr_t place;
        std::ptrdiff_t adjustment;
    };
    const auto entry = static_cast<int>((std::bit_cast<SPointer>(operation).place - 1) / sizeof(void*));
    return destructor == EDestructor::First ? entry - 1 : entry;
}

template <typename... Operations>
void ExpectSlots(EDestructor destructor, int first, Operations... operations) {
    int wanted = first;
    for (const int slot : {SlotOf(operations, destructor)...})
        EXPECT_EQ(slot, wanted++);
}

// Hosts that were built apart call by slot: an operation that moves breaks them without a word.
TEST(InterfaceSlots, StayWhereHostsKnowThem) {
    using D = IMemberDispatch;
    ExpectSlots(EDestructor::First, 1, &D::IsAutoDestroy, &D::GetIdent, &D::GetMemberNames, &D::GetMemberType,
                &D::IsMemberEditable, &D::SetMemberEditable, &D::GetMember, &D::SetMember, &D::GetOptions,
                &D::SetOptions, &D::GetMemberFlags, &D::GetEditFlags, &D::SetEditFlags, &D::AddMember,
                &D::RemoveMember, &D::RenameMember, &D::ChangeMemberType, &D::SetIdent, &D::GetMemberLabel,
                &D::OnAddMember, &D::OnRenameMember, &D::OnRemoveMember, &D::OnCommand, &D::OnMemberCommand,
                &D::GetCommands, &D::GetMemberCommands, &D::GetExtraCommands, &D::GetMemberExtraCommands);
    using S = IMemberCommandSink;
    ExpectSlots(EDestructor::First, 1, &S::GetMemberFlags, &S::OnMemberCommand, &S::GetMemberCommands,
                &S::GetMemberExtraCommands);
    using E = IEnumValue;
    ExpectSlots(EDestructor::First, 1, &E::IsAutoDestroy, &E::Destroy, &E::GetDataType, &E::GetEnumFlags,
                &E::Reserved5, &E::Reserved6, &E::AddValue, &E::RemoveValue, &E::GetName, &E::SetName,
                &E::GetFirstPosition, &E::GetNext, &E::Reserved13, &E::GetTemplate, &E::Reserved15,
                &E::IsValue, &E::Select, &E::Deselect, &E::Reserved19, &E::Reserved20, &E::GetSeparator);
    ExpectSlots(EDestructor::First, 1, &IEnumSink::OnAddEnumValue, &IEnumSink::OnDestroyEnumValue,
                &IEnumSink::OnRenameEnumValue, &IEnumSink::OnEditEnumValue);
    ExpectSlots(EDestructor::First, 1, &IEnumContainer::GetEnumValue);
    ExpectSlots(EDestructor::First, 13, &IEnumContainer::GetBegin, &IEnumContainer::GetEnd,
                &IEnumContainer::GetNext);
    ExpectSlots(EDestructor::First, 1, &IFileValue::IsAutoDestroy, &IFileValue::Choose,
                &IFileValue::GetFileType, &IFileValue::SetFileType);
    ExpectSlots(EDestructor::First, 1, &IFileContainer::GetFileKind, &IFileContainer::GetFileValue);
    using B = IComboBoxParent;
    ExpectSlots(EDestructor::First, 1, &B::GetDroppedState, &B::SetDroppedState, &B::OnArrowKey, &B::OnOK,
                &B::OnCancel);
    ExpectSlots(EDestructor::First, 1, &ISystemChangedObserver::OnSystemChanged,
                &ISystemChangedObserver::Update);
    using O = IObserverGrid;
    ExpectSlots(EDestructor::Elsewhere, 0, &O::AddSink, &O::RemoveSink, &O::Reserved2, &O::OnChange,
                &O::OnRemove, &O::OnRename, &O::OnAdd, &O::Reserved7, &O::OnChangeEditFlag, &O::OnChangeType);
    using G = IObserverGridSink;
    ExpectSlots(EDestructor::Elsewhere, 0, &G::Reserved0, &G::OnChangeIdent, &G::OnChange,
                &G::OnChangeEditFlag, &G::OnOperationAdd, &G::OnOperationInsert, &G::OnOperationRemove,
                &G::OnOperationRename, &G::OnOperationChangeType,
                &G::OnOperationChangeTupelPresentation); // then the destructor
}

} // namespace
} // namespace korvel
