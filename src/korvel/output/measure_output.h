#pragma once

#include "korvel/output/format_records.h"
#include "korvel/output/number_output.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Numbers with a unit sign behind them.
///
///     LengthToString(1234.5);    // "1.234,50 m" under German regional settings
///     PercentToString(12.5);     // "12,50 %": the number as it stands
///     ManDaysToString(3.0);      // "3,00 MT"
///
/// The unit is fixed; nothing is converted, and an amount is always in euro. The number is written as
/// `NumberToString` does, in the format for its precision; only man-days have formats of their own. The signs
/// are bytes of code page 1252.
KORVEL_API std::string LengthToString(double value);
KORVEL_API std::string LengthToString(float value);
KORVEL_API std::string AreaToString(double value);
KORVEL_API std::string AreaToString(float value);
KORVEL_API std::string VolumeToString(double value);
KORVEL_API std::string VolumeToString(float value);
KORVEL_API std::string PercentToString(double value);
KORVEL_API std::string PercentToString(float value);
KORVEL_API std::string CurrencyToString(double value);
KORVEL_API std::string CurrencyToString(float value);

/// Rounded on the value's decimal text of 6 places, for both precisions.
KORVEL_API std::string ManDaysToString(double value);
KORVEL_API std::string ManDaysToString(float value);

/// Base of a service without formats of its own: who listens to it listens to the one whose formats it uses.
template <typename Service>
class TFormatObserverDelegator {
public:
    TFormatObserverDelegator() : m_service(&Service::Instance()) {}
    virtual ~TFormatObserverDelegator() = default;
    TFormatObserverDelegator(const TFormatObserverDelegator&) = delete;
    TFormatObserverDelegator& operator=(const TFormatObserverDelegator&) = delete;

    void AddSink(FormatSink* sink) { m_service->Notification().AddSink(sink); }
    void RemoveSink(FormatSink* sink) { m_service->Notification().RemoveSink(sink); }

protected:
    Service* m_service;
};

/// A number of `CNumberOutput` with a suffix.
class MeasureOutput : public TFormatObserverDelegator<CNumberOutput> {
public:
    void Append(std::string& out, double value) const;
    void Append(std::string& out, float value) const;

protected:
    explicit MeasureOutput(const char* suffix) : m_suffix(suffix) {}

private:
    const char* m_suffix;
};

class CLengthOutput final : public MeasureOutput {
public:
    static CLengthOutput& Instance();

private:
    CLengthOutput() : MeasureOutput(" m") {}
};

class CAreaOutput final : public MeasureOutput {
public:
    static CAreaOutput& Instance();

private:
    CAreaOutput() : MeasureOutput(" m\xB2") {}
};

class CVolumeOutput final : public MeasureOutput {
public:
    static CVolumeOutput& Instance();

private:
    CVolumeOutput() : MeasureOutput(" m\xB3") {}
};

class CPercentOutput final : public MeasureOutput {
public:
    static CPercentOutput& Instance();

private:
    CPercentOutput() : MeasureOutput(" %") {}
};

class CCurrencyOutput final : public MeasureOutput {
public:
    static CCurrencyOutput& Instance();

private:
    CCurrencyOutput() : MeasureOutput(" \x80") {}
};

class CManDaysOutput final : public ISystemChangedObserverImp<CManDaysOutput> {
public:
    static CManDaysOutput& Instance();

    void Append(std::string& out, double value) const;
    void Append(std::string& out, float value) const;

    FormatNotification& Notification() { return m_records.Notification(); }
    bool FollowSystem();

private:
    CManDaysOutput();

    FormatRecords m_records; // the first is for double, the second for float
};

} // namespace korvel
