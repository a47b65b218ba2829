#pragma once

#include "korvel/values/enum_value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::inspector {

/// A closed list of words of LandXML, of which a value selects one. The words never change, so nothing can be
/// added, removed or renamed.
class Enumeration : public IEnumValue {
public:
    /// `words` are separated by '|'. Blanks at their ends are part of what is written into a file, but do not
    /// count when a file is read.
    explicit Enumeration(std::string_view words);

    /// True when `text` is one of the words.
    bool Holds(std::string_view text) const;

    /// The value that selects what a file says.
    CVariantValue Selected(std::string text);

    bool IsAutoDestroy() const override { return false; }
    void Destroy() override {}
    const EDataTyps& GetDataType() const override { return m_entryType; }
    const std::uint32_t& GetEnumFlags() const override { return m_flags; }
    long AddValue(const std::string& name, const std::string& group) override;
    void RemoveValue(long id) override;
    bool GetName(long id, CVariantValue& name) override;
    bool SetName(long id, const CVariantValue& name) override;
    EnumPosition GetFirstPosition() override;
    long GetNext(EnumPosition& position) override;
    const CVariantValue* GetTemplate() const override { return nullptr; }
    bool IsValue(long id, const CVariantValue& value) override;
    void Select(long id, CVariantValue& value) override;
    void Deselect(long id, CVariantValue& value) override;
    const char* GetSeparator(bool alternate) const override;

private:
    bool IsEntry(long id) const { return id >= 0 && static_cast<std::size_t>(id) < m_words.size(); }

    std::vector<std::string> m_words;
    EDataTyps m_entryType = DT_String;
    std::uint32_t m_flags = 0;
};

/// One enumeration of LandXML and where it is used: words of the form "Element@attribute", "attribute" for an
/// attribute of any element, or "Element@" for its text.
struct EnumerationUse {
    Enumeration* enumeration;
    std::vector<std::string_view> places;
};

/// All of them, made at first use and kept.
const std::vector<EnumerationUse>& EnumerationUses();

} // namespace korvel::inspector
