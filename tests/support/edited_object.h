#pragma once

#include "korvel/values/member_dispatch_imp.h"
#include "support/quiet_observer.h"

#include <functional>
#include <string>

namespace korvel {

/// An object that is edited and the observer of its changes: writes down each call ("type ", "get ", "told 14
/// ", "set 14 "), and misbehaves within it when told.
class EditedObject : public TMemberDispatchImp<EditedObject>, public QuietObserver {
    using Base = TMemberDispatchImp<EditedObject>;

public:
    EditedObject() : Base("object") {}

    bool GetMemberType(const std::string& name, EDataTyps& type) override {
        return Call("type") && Base::GetMemberType(name, type);
    }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        return Call("get") && Base::GetMember(name, value);
    }
    bool SetMember(const std::string& name, const CVariantValue& value) override {
        return Call("set", value) && Base::SetMember(name, value);
    }
    void OnChange(IMemberDispatch*, void*, const std::string&, const CVariantValue& value) override {
        Call("told", value);
    }
    CVariantValue Get(const std::string& name) {
        CVariantValue value;
        Base::GetMember(name, value);
        return value;
    }
    std::string Take() { return std::exchange(log, {}); }

    /// At the next call of this word, once; false: the call fails.
    void Misbehave(const std::string& word, std::function<bool()> act) {
        m_word = word;
        m_act = std::move(act);
    }

    std::string log;

private:
    bool Call(const std::string& word, const CVariantValue& value = {}) {
        log += word + (value.Type == DT_Void ? "" : " " + value.ToText(TextForm::Plain)) + " ";
        if (word != m_word)
            return true;
        m_word.clear();
        return m_act();
    }

    std::string m_word;
    std::function<bool()> m_act;
};

} // namespace korvel
