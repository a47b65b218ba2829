#pragma once

#include "korvel/values/observer_grid.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvel::inspector {

/// Knows which objects grids show, and by which sinks they hear of them. What a grid says of a value is
/// passed on to every grid that shows the object; of all else the object itself has told MemberNews by then.
/// A thread that fills the rows of an object calls no sink of it any more when that sink goes.
///
/// It must outlive the grids that it is given to, and may serve one document after another.
class EditObserver final : public IObserverGrid {
public:
    bool IsShown(const IMemberDispatch* object) const { return m_sinks.contains(object); }
    std::vector<const IMemberDispatch*> ShownObjects() const;
    std::vector<IObserverGridSink*> SinksOf(const IMemberDispatch* object) const;

    /// Calls `tell` with each sink of an object. Sinks may come and go meanwhile. An exception goes on after
    /// all others have been called.
    void Tell(const IMemberDispatch* object, const std::function<void(IObserverGridSink&)>& tell);

    /// A value that a grid has said, which its object may have taken in another form.
    struct SaidValue {
        IMemberDispatch* object;
        std::string name;
        CVariantValue value;
    };
    /// What was said since the last call.
    std::vector<SaidValue> TakeSaidValues();

    void AddSink(IMemberDispatch* disp, IObserverGridSink* sink) override;
    void RemoveSink(IMemberDispatch* disp, IObserverGridSink* sink) override;
    void OnChange(IMemberDispatch* disp, void* reserved, const std::string& name,
                  const CVariantValue& value) override;
    void OnRemove(IMemberDispatch*, void*, const std::string&) override {}
    void OnRename(IMemberDispatch*, void*, const std::string&, const std::string&) override {}
    void OnAdd(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnChangeEditFlag(IMemberDispatch*, void*, const std::string&, const bool&) override {}
    void OnChangeType(IMemberDispatch*, void*, const std::string&, EDataTyps, const CVariantValue&) override {
    }

private:
    bool HasSink(const IMemberDispatch* object, const IObserverGridSink* sink) const;

    std::unordered_multimap<const IMemberDispatch*, IObserverGridSink*> m_sinks;
    std::vector<SaidValue> m_said;
};

} // namespace korvel::inspector
