#pragma once

#include "korvel/window/core/cwnd.h"

#include <functional>
#include <string>
#include <vector>

namespace korvel::test {

using Log = std::vector<std::string>;

/// Logs the messages that the user or the end of the window causes, and none that depend on a screen
/// (painting, activation, size).
class Recorder : public CWnd {
public:
    Recorder(Log& log, std::string name) : m_log(log), m_name(std::move(name)) {}

    /// Called before a message is handled; true drops it.
    std::function<bool(UINT message, WPARAM wParam, LPARAM lParam)> onMessage;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    Log& m_log;
    std::string m_name;
};

} // namespace korvel::test
