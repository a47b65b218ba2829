#pragma once

#include "korvel/platform/export.h"
#include "korvel/values/variant_value.h"

#include <cstdint>
#include <list>
#include <string>

namespace korvel {

/// Base of everything that a value may own.
class KORVEL_API IDestroyValue {
public:
    virtual ~IDestroyValue() = default;

    /// True: whoever clears the value deletes this object. False: someone else owns it, and it must outlive
    /// the value.
    virtual bool IsAutoDestroy() const = 0;
};

/// One entry of a list of context-menu commands. With an empty `text` it is a separator and takes no command
/// number.
struct SCommand {
    std::string text;
    std::uint32_t id = 0;
};

/// What the user may do to a member by a grid; see `IMemberDispatch::GetMemberFlags`.
enum MemberFlags : std::uint32_t {
    MF_Delete = 2,
    MF_Rename = 4,
    MF_ChangeType = 8,
    MF_WriteProtect = 64,
    MF_Commands = 128,
    MF_Change = 256, ///< "Change"; counts while `MF_Rename` is clear
    MF_File = 512,   ///< "Open" and "Open folder"
};

/// What the context menu offers for an object; see `IMemberDispatch::GetEditFlags`.
enum EditFlags : std::uint32_t {
    EF_Add = 1,
    EF_Rename = 32,
    EF_Commands = 128,
};

/// Bits of `IMemberDispatch::GetOptions`.
enum DispatchOptions : std::uint32_t {
    DO_KeepOrder = 1, ///< members are shown in the object's own order; else sorted by name
};

/// The flags and commands of an object's members, implemented by the host; optional, set as the object's
/// `m_pCommandSink`, which it must outlive. The operations of the same names of `IMemberDispatch` forward to
/// it.
class KORVEL_API IMemberCommandSink {
public:
    virtual ~IMemberCommandSink() = default;

    /// Bits of `MemberFlags`.
    virtual std::uint32_t GetMemberFlags(const std::string& name) = 0;

    /// Runs a command; with `id` 0, a click on a member that is a push button. True when it did.
    virtual bool OnMemberCommand(const std::string& name, std::uint32_t id) = 0;

    /// Append the commands of a member, the further ones in the second list.
    virtual void GetMemberCommands(const std::string& name, std::list<SCommand>& commands) = 0;
    virtual void GetMemberExtraCommands(const std::string& name, std::list<SCommand>& commands) = 0;
};

/// An object of the host as the library sees it: named, typed members that are read, written and, where the
/// flags allow, added, removed, renamed and retyped. `TMemberDispatchImp` is a ready implementation that
/// keeps its values itself.
///
///     TMemberDispatchImp<Axis> axis("Axis 3");
///     axis.AddMember("length", true, length);
///     grid.Initialize(&axis, "Name", "Value", 0);
///
/// Names are compared exactly, byte by byte. An operation returns false when there is no such member; it then
/// changes nothing and leaves its output as it was. All operations are called on the thread of the grid's
/// window. The lists of commands are read when a context menu opens, and again when one of them was chosen.
/// The order of the operations is fixed: hosts that were built apart agree on it.
class KORVEL_API IMemberDispatch : public IDestroyValue {
public:
    bool IsAutoDestroy() const override { return m_bAutoDestroy; }

    /// The object's own name: title of columns, part of saved keys and of copied text.
    virtual const std::string& GetIdent() const = 0;

    /// Clears `names`, then appends every member name in member order.
    virtual void GetMemberNames(std::list<std::string>& names) = 0;

    /// The type of the current value.
    virtual bool GetMemberType(const std::string& name, EDataTyps& type) = 0;

    /// False, also for an absent member, is shown to the user as write protected.
    virtual bool IsMemberEditable(const std::string& name) = 0;

    /// Protects a member from the user, or allows edits.
    virtual bool SetMemberEditable(const std::string& name, const bool& editable) = 0;

    /// Copies the current value out.
    virtual bool GetMember(const std::string& name, CVariantValue& value) = 0;

    /// Stores a value. False also for a value of an incompatible type.
    virtual bool SetMember(const std::string& name, const CVariantValue& value) = 0;

    /// Bits of `DispatchOptions`.
    virtual std::uint32_t GetOptions() const { return m_Options; }
    virtual void SetOptions(std::uint32_t options) { m_Options = options; }

    /// What the user may do to the member: `MemberFlags`.
    virtual std::uint32_t GetMemberFlags(const std::string& name);

    /// What the user may do to the object: `EditFlags`.
    virtual std::uint32_t GetEditFlags() const { return m_EditFlags; }
    virtual void SetEditFlags(std::uint32_t flags) { m_EditFlags = flags; }

    /// Adds a member at the end. False, and nothing changed, when the object refuses.
    virtual bool AddMember(const std::string& name, bool editable, const CVariantValue& value) = 0;
    virtual bool RemoveMember(const std::string& name) = 0;

    /// False also when a member called `newName` exists.
    virtual bool RenameMember(const std::string& name, const std::string& newName) = 0;

    /// Converts the stored value to `type`; what the conversion throws passes through, and the value stays.
    virtual bool ChangeMemberType(const std::string& name, const EDataTyps& type) = 0;

    /// Changes the object's own name.
    virtual void SetIdent(const std::string& ident) = 0;

    /// The text to show for a member's name.
    virtual std::string GetMemberLabel(const std::string& name) const { return name; }

    /// Asked before the dialog for a new attribute opens: true when the object adds by itself, and no dialog
    /// opens.
    virtual bool OnAddMember() { return false; }

    /// Asked before a rename: true when the object did it, and `RenameMember` is not called.
    virtual bool OnRenameMember(const char* name, const char* newName);

    /// Asked before a removal: true when the object did it, and `RemoveMember` is not called.
    virtual bool OnRemoveMember(const char* name);

    /// Runs a command of `GetCommands` or `GetExtraCommands`.
    virtual bool OnCommand(std::uint32_t id);

    /// Runs a command of the member's lists; with `id` 0, a click on a member that is a push button.
    virtual bool OnMemberCommand(const std::string& name, std::uint32_t id);

    /// Appends the object's commands; asked with `EF_Commands`, as the further ones are.
    virtual void GetCommands(std::list<SCommand>& commands);

    /// Appends the member's commands; asked with `MF_Commands`, as the further ones are. A menu holds 20
    /// commands of a member and its object together; the others are left out. Kept: one with the id 0 is
    /// shown and runs nothing.
    virtual void GetMemberCommands(const std::string& name, std::list<SCommand>& commands);

    /// Appends further commands of the object, shown after the others.
    virtual void GetExtraCommands(std::list<SCommand>& commands);

    /// Appends further commands of the member, shown in a popup menu of their own.
    virtual void GetMemberExtraCommands(const std::string& name, std::list<SCommand>& commands);

    std::uint32_t m_EditFlags = 0;
    std::uint32_t m_Options = 0;

    /// The enumeration that this object is a value of, or null. Not owned. It may be a `GroupPresentation`
    /// as well; the grid then shows its text in the group's row.
    IEnumValue* m_pEnumValue = nullptr;

    IMemberCommandSink* m_pCommandSink = nullptr; ///< not owned; without it no member allows or runs anything
    bool m_bAutoDestroy = false;
};

} // namespace korvel
