#pragma once

#include "korvel/values/enum_value.h"

#include <cstdint>
#include <string>

namespace korvel::inspector {

/// An enumeration whose entries are words and are numbered from 0, perhaps with gaps. The host owns it: no
/// value destroys it. Which words there are, and what selects one, is for the derived class to say.
///
///     for (long id = list.EntryFrom(0); id != -1; id = list.EntryFrom(id + 1))
///         Show(*list.WordOf(id));
class WordList : public IEnumValue {
public:
    /// Null for no such entry; valid until the words change.
    virtual const std::string* WordOf(long id) const = 0;
    /// The first entry of this number or above; -1: none.
    virtual long EntryFrom(long id) const = 0;

    bool IsAutoDestroy() const final { return false; }
    void Destroy() final {}
    const EDataTyps& GetDataType() const final { return m_entryType; }
    const std::uint32_t& GetEnumFlags() const final { return m_flags; }
    bool GetName(long id, CVariantValue& name) final;
    EnumPosition GetFirstPosition() final;
    long GetNext(EnumPosition& position) final;
    const CVariantValue* GetTemplate() const final { return nullptr; }

protected:
    /// `flags`: any of EnumFlags.
    explicit WordList(std::uint32_t flags) : m_flags(flags) {}
    void SetFlags(std::uint32_t flags) { m_flags = flags; }

private:
    EDataTyps m_entryType = DT_String;
    std::uint32_t m_flags;
};

} // namespace korvel::inspector
