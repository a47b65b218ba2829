#pragma once

#include <exception>

namespace korvel::internal {

/// Calls hosts one after the other, whatever some of them throw.
///
///     FirstFailure failure;
///     for (FormatSink* sink : sinks)
///         failure.Try([&] { sink->OnFormatChanged(service); });
///     failure.Rethrow();   // nothing when all returned
class FirstFailure {
public:
    template <typename Call>
    void Try(Call call) {
        try {
            call();
        } catch (...) {
            if (!m_failure)
                m_failure = std::current_exception();
        }
    }

    void Rethrow() {
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

private:
    std::exception_ptr m_failure;
};

} // namespace korvel::internal
