#pragma once

#include "korvel/values/observer_grid.h"

namespace korvel {

/// An observer that does nothing with what it is told; a test overrides what it is about.
class QuietObserver : public IObserverGrid {
public:
    virtual ~QuietObserver() = default;
    void AddSink(IMemberDispatch*, IObserverGridSink*) override {}
    void RemoveSink(IMemberDispatch*, IObserverGridSink*) override {}
    void OnChange(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnRemove(IMemberDispatch*, void*, const std::string&) override {}
    void OnRename(IMemberDispatch*, void*, const std::string&, const std::string&) override {}
    void OnAdd(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnChangeEditFlag(IMemberDispatch*, void*, const std::string&, const bool&) override {}
    void OnChangeType(IMemberDispatch*, void*, const std::string&, EDataTyps, const CVariantValue&) override {
    }
};

} // namespace korvel
