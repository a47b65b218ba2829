#pragma once

#include <utility>

namespace korvel::internal {

/// Sets a flag for its lifetime: what is under way must not begin again from within.
class RaisedFlag {
public:
    explicit RaisedFlag(bool& flag) : m_flag(flag), m_former(std::exchange(flag, true)) {}
    ~RaisedFlag() { m_flag = m_former; }
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;

private:
    bool& m_flag;
    const bool m_former;
};

} // namespace korvel::internal
