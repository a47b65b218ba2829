#pragma once

#include "korvel/values/observer_grid.h"
#include "korvel/window/base/types.h"

#include <atomic>

namespace korvel::internal {

/// What a host calls to tell a grid of changes to one object that it shows; each call goes as a record
/// (grid/sink_records.h) to the grid's window, which runs the operation of the same name. A grid without a
/// window hears nothing. Any thread.
class IOpenGLDispatchSinkImp : public IObserverGridSink {
public:
    /// `disp`: null for whatever object the grid is bound to. `window`: the grid's; must outlive the sink.
    IOpenGLDispatchSinkImp(IMemberDispatch* disp, const std::atomic<HWND>& window)
        : m_disp(disp), m_window(window) {}

    void OnChangeIdent(const std::string& name, const std::string& newName) override;
    void OnChange(const std::string& name, const CVariantValue& value) override;
    void OnChangeEditFlag(const std::string& name, const bool& editable) override;
    void OnOperationAdd(const std::string& name, const CVariantValue& value) override;
    void OnOperationInsert(const unsigned long& position, const std::string& name,
                           const CVariantValue& value) override;
    void OnOperationRemove(const std::string& name, const CVariantValue& value) override;
    void OnOperationRename(const std::string& name, const std::string& newName) override;
    void OnOperationChangeType(const std::string& name, EDataTyps type, const CVariantValue& value) override;
    /// `name` carries the text to show.
    void OnOperationChangeTupelPresentation(const std::string& name) override;

private:
    /// The sink may be gone when it returns.
    template <class Record, class... Fields>
    void Send(const Fields&... fields) const;

    IMemberDispatch* const m_disp;
    const std::atomic<HWND>& m_window;
};

} // namespace korvel::internal
