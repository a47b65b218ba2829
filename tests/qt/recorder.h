#pragma once

#include "korvel/window/core/cwnd.h"

#include <functional>
#include <string>
#include <vector>

namespace korvel::test {

using Log = std::vector<std::string>;

/// Writes down what a window hears: what a user's doing or the end of the window sends, not what depends
/// on a screen (painting, activation, size).
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
