#pragma once

#include "korvel/grid/member_index.h"
#include "korvel/output/format_notification.h"

namespace korvel::internal {

/// Keeps a sink with exactly those format services on which the text of some filed member depends.
class FormatSubscriptions {
public:
    /// `sink` must outlive this.
    explicit FormatSubscriptions(FormatSink& sink) : m_sink(sink) {}
    ~FormatSubscriptions() { Update(MemberIndex()); }
    FormatSubscriptions(const FormatSubscriptions&) = delete;
    FormatSubscriptions& operator=(const FormatSubscriptions&) = delete;

    /// To be called after every change of the index.
    void Update(const MemberIndex& index);

private:
    FormatSink& m_sink;
    unsigned m_services = 0; // a bit each
};

} // namespace korvel::internal
