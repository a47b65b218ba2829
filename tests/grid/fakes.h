#pragma once

#include "values/enum_value.h"
#include "values/group_presentation.h"
#include "values/member_dispatch_imp.h"
#include "values/observer_grid.h"

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel {

inline CVariantValue Number(EDataTyps type, double number) {
    CVariantValue value;
    value.Type = type;
    value.Value.Double = number;
    return value;
}

inline CVariantValue Whole(EDataTyps type, std::int32_t number) {
    CVariantValue value;
    value.Type = type;
    value.Value.Int = number;
    return value;
}

inline CVariantValue Word(EDataTyps type, std::uint32_t word) {
    CVariantValue value;
    value.Type = type;
    value.Value.UInt = word;
    return value;
}

inline CVariantValue Flag(bool on) {
    CVariantValue value;
    value.Type = DT_Bool;
    value.Value.Bool = on;
    return value;
}

inline CVariantValue Words(EDataTyps type, std::string text) {
    CVariantValue value;
    value.Type = type;
    value.Text = std::move(text);
    return value;
}

inline CVariantValue Group(IMemberDispatch* object) {
    CVariantValue value;
    value.Type = DT_Group;
    value.Value.Dispatch = object;
    return value;
}

/// An object of the host. Counts the writes that reach it, and misbehaves when told.
class HostObject : public TMemberDispatchImp<HostObject> {
    using Base = TMemberDispatchImp<HostObject>;

public:
    explicit HostObject(std::string ident = "object") : Base(std::move(ident)) { m_Options = DO_KeepOrder; }

    HostObject& With(const std::string& name, const CVariantValue& value) {
        AddMember(name, true, value);
        return *this;
    }

    /// Removes all members.
    void LetGo() {
        std::list<std::string> names;
        Base::GetMemberNames(names);
        for (const std::string& name : names)
            RemoveMember(name);
    }

    void GetMemberNames(std::list<std::string>& names) override {
        if (throwsOn == "*")
            throw std::runtime_error("no names");
        Base::GetMemberNames(names);
    }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        if (name == throwsOn)
            throw std::runtime_error("no value");
        if (onRead)
            onRead(name);
        return Base::GetMember(name, value);
    }
    bool SetMember(const std::string& name, const CVariantValue& value) override {
        ++writes;
        if (onWrite)
            onWrite(name, value);
        return Base::SetMember(name, value);
    }

    int writes = 0;
    std::string throwsOn; // a member's name; "*": the names
    std::function<void(const std::string&)> onRead;
    std::function<void(const std::string&, const CVariantValue&)> onWrite; // before the value is kept
};

/// The host's observer: writes down what it hears, objects by their names, and keeps the sinks.
class RecordingObserver : public IObserverGrid {
public:
    virtual ~RecordingObserver() = default;
    void AddSink(IMemberDispatch* disp, IObserverGridSink* sink) override {
        log.push_back("+" + NameOf(disp) + (sink ? "" : " without sink"));
        sinks[disp] = sink;
    }
    void RemoveSink(IMemberDispatch* disp, IObserverGridSink*) override {
        log.push_back("-" + NameOf(disp));
        sinks.erase(disp);
    }
    void OnChange(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnRemove(IMemberDispatch*, void*, const std::string&) override {}
    void OnRename(IMemberDispatch*, void*, const std::string&, const std::string&) override {}
    void OnAdd(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnChangeEditFlag(IMemberDispatch*, void*, const std::string&, const bool&) override {}
    void OnChangeType(IMemberDispatch*, void*, const std::string&, EDataTyps, const CVariantValue&) override {
    }

    std::vector<std::string> Take() { return std::exchange(log, {}); }

    std::vector<std::string> log;
    std::map<IMemberDispatch*, IObserverGridSink*> sinks;

private:
    static std::string NameOf(IMemberDispatch* disp) { return disp ? disp->GetIdent() : "null"; }
};

/// An enumeration with entries "entry 0" and so on, of which the value's Text names the selected one. It may
/// be the presentation of a group at the same time.
class HostEnumeration : public IEnumValue, public IGroupPresentation {
public:
    bool IsAutoDestroy() const override { return false; }
    void Destroy() override {}
    const EDataTyps& GetDataType() const override { return type; }
    const std::uint32_t& GetEnumFlags() const override { return flags; }
    long AddValue(const std::string&, const std::string&) override { return -1; }
    void RemoveValue(long) override {}
    bool GetName(long id, CVariantValue& name) override {
        name = entries[static_cast<std::size_t>(id)];
        return true;
    }
    bool SetName(long, const CVariantValue&) override { return false; }
    EnumPosition GetFirstPosition() override { return entries.empty() ? nullptr : entries.data(); }
    long GetNext(EnumPosition& position) override {
        const auto* entry = static_cast<const CVariantValue*>(position);
        const long id = entry - entries.data();
        position = id + 1 < static_cast<long>(entries.size()) ? entries.data() + id + 1 : nullptr;
        return id;
    }
    const CVariantValue* GetTemplate() const override { return nullptr; }
    bool IsValue(long id, const CVariantValue&) override { return id == selected; }
    void Select(long, CVariantValue&) override {}
    void Deselect(long, CVariantValue&) override {}
    const char* GetSeparator(bool) const override { return "/"; }

    std::string GetPresentationText(const char* column) override {
        return column ? std::string("in ") + column : "as text";
    }
    unsigned char GetPresentationKind() override { return kind; }
    void OnPresentationClick() override {}

    CVariantValue ListValue(EDataTyps listType) {
        CVariantValue value;
        value.Type = listType;
        value.EnumValue = this;
        return value;
    }

    EDataTyps type = DT_String;
    std::uint32_t flags = 0;
    unsigned char kind = 1;
    std::vector<CVariantValue> entries;
    long selected = 0;
};

} // namespace korvel
