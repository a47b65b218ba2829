#pragma once

#include "korvel/output/format_records.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/export.h"

#include <cstdint>
#include <string>

namespace korvel {

/// Angles, which the library stores in radians, in the user's unit: degrees, radians (at start) or gon.
///
///     SetAngleUnit('g');
///     RadToAngle(3.141592653589793);      // 200
///     AngleToRad(200.0);                  // 3.141592653589793
///     AngleToString(3.141592653589793);   // "200,00" under German regional settings: no sign follows
///
/// All of it belongs to the thread of the windows.

/// From radians to text in the user's unit. What the format cannot write (infinities, not-a-number) takes the
/// form of a default stream, in radians.
KORVEL_API std::string AngleToString(double radians);
KORVEL_API std::string AngleToString(float radians);

/// Between the user's unit and radians, each in the precision of its argument.
KORVEL_API double AngleToRad(double angle);
KORVEL_API float AngleToRad(float angle);
KORVEL_API double RadToAngle(double radians);
KORVEL_API float RadToAngle(float radians);

/// The setters match the texts of their precision. The getters are crossed over: `GetAngleFormatDouble`
/// answers the format of float texts, `GetAngleFormatFloat` that of double texts. Kept; hosts have learnt to
/// read them so.
KORVEL_API const _numberfmtA& GetAngleFormatDouble();
KORVEL_API const _numberfmtA& GetAngleFormatFloat();

/// As the setters of number formats do.
KORVEL_API void SetAngleFormatDouble(const _numberfmtA& format);
KORVEL_API void SetAngleFormatFloat(const _numberfmtA& format);

/// 'r' radians, 'g' gon, anything else degrees, for which the answer is the degree sign of code page 1252
/// ('\xB0'). Setting tells no listener: values that are shown stay until they are refreshed.
KORVEL_API char GetAngleUnit();
KORVEL_API void SetAngleUnit(char unit);

enum class AngleRecord { Double, Float }; // by the texts that are written with it

/// The service behind these functions.
class CAngleOutput final : public ISystemChangedObserverImp<CAngleOutput> {
public:
    static constexpr std::uint32_t Degrees = 0;
    static constexpr std::uint32_t Radians = 1;
    static constexpr std::uint32_t Gon = 2;

    static CAngleOutput& Instance();

    /// Append as `AngleToString` writes.
    void Append(std::string& out, double radians) const;
    void Append(std::string& out, float radians) const;

    /// A unit read from a file may be any number: one that is none of the three converts nothing, and
    /// `GetAngleUnit` answers the degree sign for it.
    std::uint32_t Unit() const { return m_unit; }
    void SetUnit(std::uint32_t unit) { m_unit = unit; }

    const NumberFormat& Format(AngleRecord record) const { return m_records[Index(record)]; }
    void SetFormat(AngleRecord record, const _numberfmtA& format) { m_records.Set(Index(record), format); }

    /// For saved formats: stores a record as it stands, telling nobody; `Notification().Fire()` tells of all
    /// at once.
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

} // namespace korvel
