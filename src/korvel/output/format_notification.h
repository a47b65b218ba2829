#pragma once

#include <vector>

namespace korvel {

/// The services that write values as text. Lengths, areas, volumes, percentages and amounts share the formats
/// of the numbers.
enum class EFormatService { None, Number, Angle, Date, Station, ManDays };

/// Told of changed formats; the texts that a service made before are out of date then.
class IFormatSink {
public:
    virtual void OnFormatChanged(EFormatService service) = 0;

protected:
    ~IFormatSink() = default;
};

/// The listeners of one service. The exported subscription functions do nothing; this is how parts of the
/// library listen.
///
///     NotificationOf(EFormatService::Angle).AddSink(this);
///     SetAngleFormatDouble(format);   // calls this->OnFormatChanged(EFormatService::Angle)
///
/// Sinks are called in the order in which they came, on the thread of the windows. A sink may be added or
/// removed while others are called: a removed one is not called any more, an added one from the next change
/// on.
class CFormatNotification {
public:
    explicit CFormatNotification(EFormatService service) : m_service(service) {}
    CFormatNotification(const CFormatNotification&) = delete;
    CFormatNotification& operator=(const CFormatNotification&) = delete;

    /// Null and a sink that is there already change nothing.
    void AddSink(IFormatSink* sink);
    void RemoveSink(IFormatSink* sink);

    /// Calls every sink. What a sink throws passes through, and the sinks behind it are not called.
    /// \throws Error with an empty text from within a call of this same notification: a change of format must
    /// not cause another
    void Fire();

private:
    bool Holds(const IFormatSink* sink) const;

    const EFormatService m_service;
    std::vector<IFormatSink*> m_sinks;
    bool m_isFiring = false;
};

/// The listeners of a service, which comes to life if need be. Not for `EFormatService::None`.
CFormatNotification& NotificationOf(EFormatService service);

} // namespace korvel
