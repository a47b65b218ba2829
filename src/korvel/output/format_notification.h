#pragma once

#include <vector>

namespace korvel::internal {

/// The services that write values as text. Lengths, areas, volumes, percentages and amounts share the formats
/// of the numbers.
enum class FormatService { None, Number, Angle, Date, Station, ManDays };

/// Hears of changed formats: the texts that a service made before are out of date then.
class FormatSink {
public:
    virtual void OnFormatChanged(FormatService service) = 0;

protected:
    ~FormatSink() = default;
};

/// The listeners of one service. The exported subscription functions do nothing; this is how parts of the
/// library listen.
///
///     NotificationOf(FormatService::Angle).AddSink(this);
///     SetAngleFormatDouble(format);   // calls this->OnFormatChanged(FormatService::Angle)
///
/// Sinks are called in the order in which they were added, on the thread of the windows. A sink may be added
/// or removed while others are called: a removed one is not called any more, an added one from the next
/// change on.
class FormatNotification {
public:
    explicit FormatNotification(FormatService service) : m_service(service) {}
    FormatNotification(const FormatNotification&) = delete;
    FormatNotification& operator=(const FormatNotification&) = delete;

    /// Null and a sink that is there already change nothing.
    void AddSink(FormatSink* sink);
    void RemoveSink(FormatSink* sink);

    /// Calls every sink, as often as said. The first exception that a sink throws goes to the caller after
    /// the last call. \throws Error with an empty text from within a call of this same notification: a change
    /// of format must not cause another
    void Fire(int times = 1);

private:
    bool Holds(const FormatSink* sink) const;

    const FormatService m_service;
    std::vector<FormatSink*> m_sinks;
    bool m_isFiring = false;
};

} // namespace korvel::internal
