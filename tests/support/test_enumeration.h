#pragma once

#include "korvel/platform/error.h"
#include "korvel/values/enum_value.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace korvel {

inline CVariantValue TextValue(const std::string& text) {
    CVariantValue value;
    value.Type = DT_String;
    value.Text = text;
    return value;
}

inline CVariantValue GroupValue(IMemberDispatch& object) {
    CVariantValue value;
    value.Type = DT_Group;
    value.Value.Dispatch = &object;
    return value;
}

/// An enumeration of the host. A value selects entry 7 when its text holds ",7,".
class TestEnumeration : public IEnumValue, public EnumImages {
public:
    struct Entry {
        long id;
        CVariantValue name; // none: without a type
    };

    TestEnumeration() = default;
    explicit TestEnumeration(const std::vector<std::string>& names, std::uint32_t enumFlags = 0)
        : flags(enumFlags) {
        for (const std::string& name : names)
            entries.push_back({static_cast<long>(entries.size()) + 1, TextValue(name)});
    }

    std::vector<Entry> entries;
    std::uint32_t flags = 0;
    EDataTyps type = DT_String;
    std::string separator = "/";
    const CVariantValue* pattern = nullptr;
    std::string images; // of every entry with an odd number
    std::string commonImage;
    bool refuses = false;
    bool isAutoDestroy = false;
    int destroyed = 0;
    std::string calls; // those that change something, with commas between
    /// Called at the start of each operation, with its name and the number of the entry that it acts on.
    std::function<void(const std::string& operation, long id)> onCall;
    std::function<void(long id)> onAdded; // at the end of AddValue

    CVariantValue ValueOf(const std::string& selection) const {
        CVariantValue value = TextValue(selection);
        value.Type = DT_ListString;
        value.EnumValue = const_cast<TestEnumeration*>(this);
        return value;
    }
    static std::string Key(long id) { return "," + std::to_string(id) + ","; }
    Entry* Find(long id) {
        if (const auto index = static_cast<std::size_t>(id - 1);
            index < entries.size() && entries[index].id == id)
            return &entries[index]; // so that many entries take no longer each
        const auto found =
            std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) { return entry.id == id; });
        return found == entries.end() ? nullptr : &*found;
    }
    void Forget(long id) {
        std::erase_if(
            entries, [&](const Entry& entry) { return entry.id == id; });
    }

    bool IsAutoDestroy() const override { return isAutoDestroy; }
    void Destroy() override { ++destroyed; }
    const EDataTyps& GetDataType() const override { return Call("type"), type; }
    const std::uint32_t& GetEnumFlags() const override { return Call("flags"), flags; }
    long AddValue(const std::string& name, const std::string& group) override {
        Note("add", 0, name + "@" + group);
        if (refuses)
            return -1;
        const long id = entries.empty() ? 1 : entries.back().id + 1;
        entries.push_back({id, TextValue(group.empty() ? name : group + separator + name)});
        if (onAdded)
            onAdded(id);
        return id;
    }
    void RemoveValue(long id) override {
        Note("remove", id);
        if (!refuses)
            Forget(id);
    }
    bool GetName(long id, CVariantValue& name) override {
        Call("name", id);
        const Entry* entry = Find(id);
        if (entry)
            name = entry->name;
        return entry && entry->name.Type != DT_Void;
    }
    bool SetName(long id, const CVariantValue& name) override {
        Note("rename", id, name.Text);
        Entry* entry = refuses ? nullptr : Find(id);
        if (entry)
            entry->name = name;
        return entry != nullptr;
    }
    EnumPosition GetFirstPosition() override {
        Call("first");
        return entries.empty() ? nullptr : reinterpret_cast<EnumPosition>(1);
    }
    long GetNext(EnumPosition& position) override {
        Call("next");
        const auto index = reinterpret_cast<std::uintptr_t>(position); // one more than the entry's
        position = index < entries.size() ? reinterpret_cast<EnumPosition>(index + 1) : nullptr;
        return index <= entries.size() ? entries[index - 1].id : -1;
    }
    const CVariantValue* GetTemplate() const override { return Call("template"), pattern; }
    bool IsValue(long id, const CVariantValue& value) override {
        Call("is", id);
        return value.Text.find(Key(id)) != std::string::npos;
    }
    void Select(long id, CVariantValue& value) override {
        Note("select", id);
        if ((flags & ENF_CheckBoxes) == 0)
            value.Text.clear();
        value.Text += Key(id);
    }
    void Deselect(long id, CVariantValue& value) override {
        Note("deselect", id);
        if (const auto at = value.Text.find(Key(id)); at != std::string::npos)
            value.Text.erase(at, Key(id).size());
    }
    const char* GetSeparator(bool) const override { return Call("separator"), separator.c_str(); }
    std::string GetImagePath(long id) override {
        return Call("image", id), id % 2 == 1 ? images : std::string();
    }
    std::string GetCommonImagePath() override { return Call("image"), commonImage; }

private:
    void Call(const std::string& operation, long id = 0) const {
        if (onCall)
            onCall(operation, id);
    }
    void Note(const std::string& operation, long id, const std::string& text = {}) {
        calls += (calls.empty() ? "" : ", ") + operation + " " + (text.empty() ? std::to_string(id) : text);
        Call(operation, id);
    }
};

} // namespace korvel
