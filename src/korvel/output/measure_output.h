#pragma once

#include "korvel/output/number_output.h"

#include <string>

namespace korvel::internal {

/// Base of a service without formats of its own: its listeners are added to the service whose formats it
/// uses.
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

/// The one service of a measure.
template <typename Measure>
class TMeasureOutput : public MeasureOutput {
public:
    static Measure& Instance() {
        static Measure output;
        return output;
    }

protected:
    using MeasureOutput::MeasureOutput;
};

class CLengthOutput final : public TMeasureOutput<CLengthOutput> {
    friend TMeasureOutput;
    CLengthOutput() : TMeasureOutput(" m") {}
};

class CAreaOutput final : public TMeasureOutput<CAreaOutput> {
    friend TMeasureOutput;
    CAreaOutput() : TMeasureOutput(" m\xB2") {}
};

class CVolumeOutput final : public TMeasureOutput<CVolumeOutput> {
    friend TMeasureOutput;
    CVolumeOutput() : TMeasureOutput(" m\xB3") {}
};

class CPercentOutput final : public TMeasureOutput<CPercentOutput> {
    friend TMeasureOutput;
    CPercentOutput() : TMeasureOutput(" %") {}
};

class CCurrencyOutput final : public TMeasureOutput<CCurrencyOutput> {
    friend TMeasureOutput;
    CCurrencyOutput() : TMeasureOutput(" \x80") {}
};

} // namespace korvel::internal
