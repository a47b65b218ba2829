#pragma once

#include "korvel/output/format_records.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/export.h"
#include "korvel/values/data_types.h"

#include <cstdint>
#include <string>

namespace korvel {

/// Plain numbers as text, under four formats: one each for the types int (signed or not), long, float and
/// double.
///
///     NumberToString(1234567.891);   // "1.234.567,89" under German regional settings
///     NumberToString(-1);            // "-1"
///     NumberToStringEx(0.00001);     // "1e-05", where NumberToString gives "0,00"
///
/// The formats begin as the regional settings say, without decimals for the two integer ones, and follow them
/// until another is set. All of it belongs to the thread of the windows.

/// \throws std::invalid_argument when the format cannot write the number, as a negative order above 4 for -1
KORVEL_API std::string NumberToString(int value);

/// Written as the signed number of the same bits: 4294967295 is "-1". Kept; the int and unsigned types share
/// cells.
KORVEL_API std::string NumberToString(unsigned int value);

/// \throws std::invalid_argument as for int
KORVEL_API std::string NumberToString(long value);

/// Rounded half away from zero on the value's decimal text of 8 (float) or 15 (double) places. What cannot be
/// written so (infinities, not-a-number, texts over 1024 bytes) takes the form of a default stream.
KORVEL_API std::string NumberToString(float value);
KORVEL_API std::string NumberToString(double value);

/// The same, but a number smaller than the last place of the format takes the form of a default stream: it
/// keeps its magnitude, and zero is "0".
KORVEL_API std::string NumberToStringEx(float value);
KORVEL_API std::string NumberToStringEx(double value);

KORVEL_API const _numberfmtA& GetFormatInt();
KORVEL_API const _numberfmtA& GetFormatLong();
KORVEL_API const _numberfmtA& GetFormatFloat();
KORVEL_API const _numberfmtA& GetFormatDouble();

/// Store a format; nothing happens when nothing differs, otherwise the listeners are told. A format that
/// equals the regional settings follows them from now on. \throws std::invalid_argument when a separator is
/// null or longer than three bytes; nothing changes then
KORVEL_API void SetFormatInt(const _numberfmtA& format);
KORVEL_API void SetFormatLong(const _numberfmtA& format);
KORVEL_API void SetFormatFloat(const _numberfmtA& format);
KORVEL_API void SetFormatDouble(const _numberfmtA& format);

enum class NumberRecord { Integer, Long, Float, Double };

/// The service behind these functions.
class CNumberOutput final : public ISystemChangedObserverImp<CNumberOutput> {
public:
    static CNumberOutput& Instance();

    /// Append as `NumberToString` writes.
    void Append(std::string& out, int value) const;
    void Append(std::string& out, long value) const;
    void Append(std::string& out, float value) const;
    void Append(std::string& out, double value) const;

    const NumberFormat& Format(NumberRecord record) const { return m_records[Index(record)]; }

    /// The format by which values of a type are written and read; `Double` for types that no other one names.
    const NumberFormat& FormatFor(EDataTyps type) const;

    void SetFormat(NumberRecord record, const _numberfmtA& format) { m_records.Set(Index(record), format); }

    /// Stores for `DT_Int` and `DT_UInt`, `DT_Long`, `DT_Float`; every other type is stored as `Double`, also
    /// those whose text `FormatFor` takes from another record.
    void SetFormatFor(EDataTyps type, const _numberfmtA& format);

    /// For saved formats: stores a record as it stands, telling nobody; `Notification().Fire()` tells of all
    /// at once.
    void ReplaceFormat(NumberRecord record, const NumberFormat& format) {
        m_records.Replace(Index(record), format);
    }
    FormatNotification& Notification() { return m_records.Notification(); }

    bool FollowSystem();

private:
    CNumberOutput();
    static std::size_t Index(NumberRecord record) { return static_cast<std::size_t>(record); }

    FormatRecords m_records;
};

} // namespace korvel
