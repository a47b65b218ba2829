#include "korvel/grid/write_frame.h"

#include "korvel/platform/first_failure.h"
#include "korvel/platform/raised_flag.h"
#include "korvel/values/text_table.h"
#include "korvel/window/core/cwnd.h"

namespace korvel::internal {

namespace {

constexpr const char* Caption = "Korvel";
constexpr int UnknownFailureText = 46;

std::string MessageOf(const std::exception_ptr& failure, const WriteFrame::Explain& explain) {
    std::string text;
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& exception) {
        text = exception.what();
    } catch (...) {
        text = Text(UnknownFailureText);
    }
    if (explain)
        text = explain(text);
    return text.empty() ? Text(UnknownFailureText) : text;
}

} // namespace

bool WriteFrame::Run(int title, const Write& write, const Explain& explain) {
    if (m_isRunning) {
        HistoryStep ofTheOuterFrame(nullptr);
        return write(ofTheOuterFrame);
    }
    FirstFailure failure;
    bool isWritten = false;
    {
        const RaisedFlag running(m_isRunning);
        HistoryStep step(GetParent(m_grid.m_hWnd));
        failure.Try([&] {
            step.Open(Text(title));
            isWritten = write(step);
        });
        failure.Try([&] { step.Close(); });
        if (isWritten && !failure)
            return true;
        failure.Try([&] { step.RollBack(); });
    }
    if (failure)
        Tell(failure.Exception(), explain);
    return false;
}

bool WriteFrame::RunOutside(const std::function<void()>& action) {
    if (m_isRunning)
        return action(), true;
    FirstFailure failure;
    failure.Try(action);
    if (failure)
        Tell(failure.Exception(), {});
    return !failure;
}

void WriteFrame::Tell(const std::string& message) const {
    const bool hasBox = !m_reporter || !m_options.Has(EGridOption::InlineErrors);
    FirstFailure failure;
    if (m_reporter)
        failure.Try([&] { m_reporter->Report(Caption, message); });
    if (hasBox && m_grid.m_hWnd)
        failure.Try([&] { MessageBoxA(m_grid.m_hWnd, message, Caption, MB_OK | MB_ICONERROR); });
    failure.Rethrow();
}

void WriteFrame::Tell(const std::exception_ptr& failure, const Explain& explain) const {
    Tell(MessageOf(failure, explain));
}

} // namespace korvel::internal
