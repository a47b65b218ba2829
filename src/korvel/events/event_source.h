#pragma once

#include "korvel/events/owner_offset.h"
#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Through this others report. `source` says who reports, `event` what happened; the texts may be of any length
/// and hold line ends.
class KORVEL_API IEventSource {
public:
    virtual ~IEventSource() = default;
    virtual void AddErrorMsg(const std::string& source, const std::string& event) = 0;
    virtual void AddWarningMsg(const std::string& source, const std::string& event) = 0;
    virtual void AddInfoMsg(const std::string& source, const std::string& event) = 0;
};

/// Forwards to the operations of the same names of its owner, of which it is a part. An owner that derives
/// from it overrides them.
template <typename T>
class IEventSourceImp : public IEventSource {
public:
    explicit IEventSourceImp(T* owner) : m_owner(this, owner) {}

    void AddErrorMsg(const std::string& source, const std::string& event) override {
        m_owner.From(this).AddErrorMsg(source, event);
    }
    void AddWarningMsg(const std::string& source, const std::string& event) override {
        m_owner.From(this).AddWarningMsg(source, event);
    }
    void AddInfoMsg(const std::string& source, const std::string& event) override {
        m_owner.From(this).AddInfoMsg(source, event);
    }

private:
    OwnerOffset<T> m_owner;
};

} // namespace korvel
