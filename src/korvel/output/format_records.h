#pragma once

#include "korvel/output/format_notification.h"
#include "korvel/output/number_format.h"
#include "korvel/output/system_formats.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace korvel::internal {

/// The number formats of one service, each beginning as a copy of a system format, and the service's
/// listeners.
class FormatRecords {
public:
    FormatRecords(FormatService service, std::initializer_list<SystemFormat> systemFormats);

    const NumberFormat& operator[](std::size_t record) const { return m_records[record].format; }

    /// Stores a format and calls the listeners, unless nothing differs. It follows the regional settings from
    /// now on exactly when it equals them. \throws std::invalid_argument when a separator is null or longer
    /// than three bytes; nothing changes then
    void Set(std::size_t record, const _numberfmtA& format);

    /// Gives several records the same number of digits, as Set does, but calls the listeners only when all
    /// have it: once for each that differed.
    void SetDigits(std::initializer_list<std::size_t> records, std::uint32_t digits);

    /// Stores a format as it is, its `System` included, and calls no listener.
    void Replace(std::size_t record, const NumberFormat& format) { m_records[record].format = format; }

    /// Takes the system format for every record that follows it, then calls the listeners once for each of
    /// them. True when there was one. The first exception of a listener goes to the caller after the last
    /// call.
    bool FollowSystem();

    FormatNotification& Notification() { return m_notification; }

private:
    struct Record {
        NumberFormat format;
        SystemFormat systemFormat;
    };

    bool Store(std::size_t record, const _numberfmtA& format);

    FormatNotification m_notification;
    std::vector<Record> m_records;
};

} // namespace korvel::internal
