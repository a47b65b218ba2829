#pragma once

#include <exception>
#include <utility>

namespace korvel::internal {

/// Keeps the first exception of several steps that must all be done.
///
///     FirstFailure failure;
///     for (FormatSink* sink : sinks)
///         failure.Try([&] { sink->OnFormatChanged(service); });
///     failure.Rethrow();   // nothing when all returned
class FirstFailure {
public:
    template <class Step>
    void Try(Step&& step) {
        try {
            std::forward<Step>(step)();
        } catch (...) {
            if (!m_exception)
                m_exception = std::current_exception();
        }
    }
    /// Whether a step has failed.
    explicit operator bool() const { return m_exception != nullptr; }
    /// Null when none has.
    const std::exception_ptr& Exception() const { return m_exception; }
    void Rethrow() const {
        if (m_exception)
            std::rethrow_exception(m_exception);
    }

private:
    std::exception_ptr m_exception;
};

} // namespace korvel::internal
