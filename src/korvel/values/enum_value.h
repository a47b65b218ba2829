#pragma once

#include "korvel/platform/export.h"
#include "korvel/values/member_dispatch.h"

#include <cstdint>
#include <string>

namespace korvel {

/// Place in a walk over an enumeration: whatever the enumeration wants, null after the last entry.
using EnumPosition = void*;

/// How an enumeration wants to be shown, and what of it the user may change.
enum EnumFlags : std::uint32_t {
    ENF_CheckBoxes = 0x00000001, ///< several entries can be selected
    ENF_Tree = 0x00000200,       ///< entry names are paths
    ENF_Add = 0x08000000,        ///< the user may add entries
    ENF_Delete = 0x10000000,     ///< the user may delete entries
    ENF_Rename = 0x20000000,     ///< the user may rename entries
};

/// One enumeration, implemented by the host: a list of numbered entries, possibly a tree through names that
/// are paths. It must outlive the values and windows that use it.
///
///     for (EnumPosition position = list.GetFirstPosition(); position;) {
///         const long id = list.GetNext(position);
///         if (CVariantValue name; list.IsValue(id, value) && list.GetName(id, name))
///             Show(name.ToText());   // each entry that `value` selects
///     }
///
/// Entry numbers are signed 32-bit; -1 is none. An operation that gets a number without an entry does
/// nothing. The library calls it on the thread of the windows. An operation may change the enumeration, end
/// what shows it, or throw; what it throws reaches whoever caused the call. The reserved operations are never
/// called; they keep the order of the others.
class KORVEL_API IEnumValue : public IDestroyValue {
public:
    /// Called instead of delete when a value that owns this, see `IsAutoDestroy`, is cleared.
    virtual void Destroy() = 0;

    /// The type of the entries, without `TypeBitList`. `DT_Group`: entries are objects, described by the
    /// template.
    virtual const EDataTyps& GetDataType() const = 0;

    /// Bits of `EnumFlags`; others are ignored.
    virtual const std::uint32_t& GetEnumFlags() const = 0;

    virtual void Reserved5() {}
    virtual void Reserved6() {}

    /// The user adds an entry, below the path `group` in a tree. Returns its number, or -1 when it refuses.
    virtual long AddValue(const std::string& name, const std::string& group) = 0;

    /// The user removes an entry, whose row goes in any case. An entry that stays is shown again when the
    /// list hears of it (IEnumSink::OnAddEnumValue), or at the next binding.
    virtual void RemoveValue(long id) = 0;

    /// The name of an entry, as a value. False, and `name` untouched, when there is no such entry.
    virtual bool GetName(long id, CVariantValue& name) = 0;

    /// The user renames an entry. False, and nothing changed, when it refuses.
    virtual bool SetName(long id, const CVariantValue& name) = 0;

    /// Start of a walk; null when there are no entries.
    virtual EnumPosition GetFirstPosition() = 0;

    /// Returns the number at `position`, which is not null, and moves on; `position` becomes null after the
    /// last.
    virtual long GetNext(EnumPosition& position) = 0;

    virtual void Reserved13() {}

    /// For entries of type `DT_Group`: a value whose object lists the columns; its member names are their
    /// titles. Null: one column. It belongs to the enumeration.
    virtual const CVariantValue* GetTemplate() const = 0;

    virtual void Reserved15() {}

    /// True when the entry is what `value` selects, or one of what it selects.
    virtual bool IsValue(long id, const CVariantValue& value) = 0;

    /// Makes `value` select the entry; with check boxes it is added to what `value` selects.
    virtual void Select(long id, CVariantValue& value) = 0;

    /// Takes the entry out of what `value` selects.
    virtual void Deselect(long id, CVariantValue& value) = 0;

    virtual void Reserved19() {}
    virtual void Reserved20() {}

    /// The first byte separates the parts of a path in entry names; null or empty: names have no parts.
    /// `alternate` is true for `ENF_Tree`. The characters belong to the enumeration.
    virtual const char* GetSeparator(bool alternate) const = 0;
};

/// Optional, found by `dynamic_cast` on an enumeration: pictures for its entries, as paths of image files.
class KORVEL_API EnumImages {
public:
    virtual ~EnumImages() = default;

    /// The picture of an entry; empty when it has none.
    virtual std::string GetImagePath(long id) = 0;

    /// The picture for entries that have none; empty when there is none.
    virtual std::string GetCommonImagePath() = 0;
};

/// Hears of the changes of an enumeration: the host calls it after each change that the library did not make,
/// on the thread of the windows. What shows the enumeration implements it.
class KORVEL_API IEnumSink {
public:
    virtual ~IEnumSink() = default;

    /// The entry is there now.
    virtual void OnAddEnumValue(IEnumValue* enumeration, long id) = 0;

    /// The entry is gone.
    virtual void OnDestroyEnumValue(IEnumValue* enumeration, long id) = 0;

    /// The entry has another name than `oldName` now.
    virtual void OnRenameEnumValue(IEnumValue* enumeration, long id, const CVariantValue& oldName) = 0;

    /// The entry has `value` now, under the same name.
    virtual void OnEditEnumValue(IEnumValue* enumeration, long id, const CVariantValue& value) = 0;
};

/// Forwards to the operations of the same names of its owner, which must outlive it.
template <typename T>
class IEnumSinkImp : public IEnumSink {
public:
    explicit IEnumSinkImp(T* owner) : m_pOwner(owner) {}

    void OnAddEnumValue(IEnumValue* enumeration, long id) override {
        m_pOwner->OnAddEnumValue(enumeration, id);
    }
    void OnDestroyEnumValue(IEnumValue* enumeration, long id) override {
        m_pOwner->OnDestroyEnumValue(enumeration, id);
    }
    void OnRenameEnumValue(IEnumValue* enumeration, long id, const CVariantValue& oldName) override {
        m_pOwner->OnRenameEnumValue(enumeration, id, oldName);
    }
    void OnEditEnumValue(IEnumValue* enumeration, long id, const CVariantValue& value) override {
        m_pOwner->OnEditEnumValue(enumeration, id, value);
    }

private:
    T* m_pOwner;
};

/// Place in a walk over an `IEnumContainer`.
struct SEnumPosition {
    std::string name;
    bool end = false;

    /// The end markers count first, then the names.
    bool operator==(const SEnumPosition& other) const { return end == other.end && name == other.name; }
};

/// The enumerations of the application, implemented by the host; it must outlive the grid that it is given
/// to. The dialog for a new attribute walks it, on the thread of the windows. The reserved operations are
/// never called; they keep the order of the others.
///
///     SEnumPosition position, end;
///     container.GetBegin(position);
///     for (container.GetEnd(end); position != end; container.GetNext(position))
///         Offer(container.GetEnumValue(position));
class KORVEL_API IEnumContainer {
public:
    virtual ~IEnumContainer() = default;

    /// The enumeration at `position`, which is not the end. It belongs to the host.
    virtual IEnumValue* GetEnumValue(const SEnumPosition& position) = 0;
    virtual void Reserved2() {}
    virtual void Reserved3() {}
    virtual void Reserved4() {}
    virtual void Reserved5() {}
    virtual void Reserved6() {}
    virtual void Reserved7() {}
    virtual void Reserved8() {}
    virtual void Reserved9() {}
    virtual void Reserved10() {}
    virtual void Reserved11() {}
    virtual void Reserved12() {}

    /// Sets `position` to the first enumeration, or to the end when there is none.
    virtual void GetBegin(SEnumPosition& position) = 0;

    /// Sets `position` to the end, after the last enumeration, and returns it.
    virtual const SEnumPosition& GetEnd(SEnumPosition& position) = 0;

    /// Moves `position`, which is not the end, to the next enumeration, or to the end.
    virtual void GetNext(SEnumPosition& position) = 0;
};

} // namespace korvel
