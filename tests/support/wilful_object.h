#pragma once

#include "korvel/values/member_dispatch_imp.h"
#include "support/quiet_observer.h"

#include <functional>
#include <string>

namespace korvel {

/// An object that makes something else of what it is given, writes a log, and is the observer of its changes.
class WilfulObject : public TMemberDispatchImp<int>, public QuietObserver {
public:
    WilfulObject() : TMemberDispatchImp("object") {}
    std::string log;
    std::string correction;
    std::function<void()> inside;

    bool SetMember(const std::string& name, const CVariantValue& value) override {
        log += "set " + value.Text + " ";
        if (inside)
            inside();
        CVariantValue taken = value;
        taken.Text += correction;
        return TMemberDispatchImp::SetMember(name, taken);
    }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        log += "get ";
        return TMemberDispatchImp::GetMember(name, value);
    }
    void OnChange(IMemberDispatch*, void*, const std::string& name, const CVariantValue& value) override {
        log += "changed " + name + " " + value.Text + " ";
    }
};

} // namespace korvel
