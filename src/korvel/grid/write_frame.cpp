#include "korvel/grid/write_frame.h"

#include "korvel/platform/first_failure.h"
#include "korvel/platform/raised_flag.h"
#include "korvel/values/text_table.h"
#include "korvel/window/core/cwnd.h"

namespace korvel::internal {

namespace {

constexpr const char* Caption = "Korvel";
constexpr int UnknownFailureText = 46;

std::string MessageOf(const FirstFailure& failure, const WriteFrame::Explain& explain) {
    std::string text;
    try {
        failure.Rethrow();
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
        Tell(MessageOf(failure, explain));
    return false;
}

bool WriteFrame::RunOutside(const std::function<void()>& action) {
    if (m_isRunning)
        return action(), true;
    FirstFailure failure;
    failure.Try(action);
    if (failure)
        Tell(MessageOf(failure, {}));
    return !failure;
}

void WriteFrame::Tell(const std::string& message) const {
    if (m_reporter)
        m_reporter->Report(Caption, message);
    else if (m_grid.m_hWnd)
        MessageBoxA(m_grid.m_hWnd, message, Caption, MB_OK | MB_ICONERROR);
}

} // namespace korvel::internal
