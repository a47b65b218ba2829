#pragma once

#include "korvel/output/format_records.h"
#include "korvel/output/system_change.h"

#include <cstdint>
#include <string>

namespace korvel::internal {

/// The formats of angles, by the texts that are written with them.
enum class AngleRecord { Double, Float };

/// The service of angles; `angles.h` says what it writes. On the thread of the windows.
class CAngleOutput final : public ISystemChangedObserverImp<CAngleOutput> {
public:
    static constexpr std::uint32_t Degrees = 0;
    static constexpr std::uint32_t Radians = 1;
    static constexpr std::uint32_t Gon = 2;

    static CAngleOutput& Instance();

    /// Append as `AngleToString` writes. False: in radians, because the format cannot write it.
    bool Append(std::string& out, double radians) const;
    bool Append(std::string& out, float radians) const;

    /// Append the same, and the sign of the unit that its digits are in: "100,00 gon", "57,30\xB0", "nan
    /// rad".
    void AppendWithUnit(std::string& out, double radians) const;
    void AppendWithUnit(std::string& out, float radians) const;

    /// Between the unit and radians.
    double ToRadians(double angle) const;
    float ToRadians(float angle) const;
    double FromRadians(double radians) const;
    float FromRadians(float radians) const;

    /// A unit read from a file may be any number: any other than the three converts nothing.
    std::uint32_t Unit() const { return m_unit; }
    void SetUnit(std::uint32_t unit) { m_unit = unit; }

    const NumberFormat& Format(AngleRecord record) const { return m_records[Index(record)]; }
    void SetFormat(AngleRecord record, const _numberfmtA& format) { m_records.Set(Index(record), format); }

    /// For saved formats: stores a record as it is and calls no listener; `Notification().Fire()` calls them
    /// once for all records.
    void ReplaceFormat(AngleRecord record, const NumberFormat& format) {
        m_records.Replace(Index(record), format);
    }
    FormatNotification& Notification() { return m_records.Notification(); }

    bool FollowSystem();

private:
    CAngleOutput();
    static std::size_t Index(AngleRecord record) { return static_cast<std::size_t>(record); }

    std::uint32_t m_unit = Radians;
    FormatRecords m_records;
};

} // namespace korvel::internal
