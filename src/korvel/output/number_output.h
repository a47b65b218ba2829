#pragma once

#include "korvel/output/format_records.h"
#include "korvel/output/system_change.h"
#include "korvel/values/data_types.h"

#include <string>

namespace korvel::internal {

/// The service of plain numbers; `numbers.h` says what it writes. On the thread of the windows.
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

    /// For saved formats: stores a record as it is and calls no listener; `Notification().Fire()` calls them
    /// once for all records.
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

} // namespace korvel::internal
