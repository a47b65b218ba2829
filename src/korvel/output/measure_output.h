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

} // namespace korvel::internal
