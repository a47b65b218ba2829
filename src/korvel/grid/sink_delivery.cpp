#include "korvel/grid/sink_delivery.h"

#include "korvel/window/core/registered_messages.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

#include <utility>

namespace korvel::internal {
namespace {

// The delivery that the thread handles now; others may be under way around it.
constinit thread_local SinkDelivery* t_innermost = nullptr;

class InnermostScope {
public:
    InnermostScope(SinkDelivery& delivery, SinkDelivery*& outer) : m_outer(outer) {
        m_outer = std::exchange(t_innermost, &delivery);
    }
    ~InnermostScope() { t_innermost = m_outer; }
    InnermostScope(const InnermostScope&) = delete;
    InnermostScope& operator=(const InnermostScope&) = delete;

private:
    SinkDelivery*& m_outer;
};

// Kept: the records of a member with its value all say 1.
WPARAM ParameterOf(const SNotifyOpenGLSink& record) {
    return static_cast<WPARAM>(record.GetKind() == SPSV::Kind ? SPSV::Kind : record.code);
}

template <class Record>
bool DeleteAs(SNotifyOpenGLSink* record) {
    if (record->GetKind() != Record::Kind)
        return false;
    delete static_cast<Record*>(record);
    return true;
}

template <class... Records>
void DeleteAsOneOf(SNotifyOpenGLSink* record) {
    static_cast<void>((DeleteAs<Records>(record) || ...));
}

} // namespace

void DeleteSinkRecord::operator()(SNotifyOpenGLSink* record) const {
    DeleteAsOneOf<SPSV, SPSS, SSS, SPSEV, SPNSV, SPS, SPSb>(record);
}

void SinkDelivery::Send(HWND window) {
    OnOwner(
        window,
        [&](WindowRecord&) {
            const InnermostScope scope(*this, m_outer);
            SendMessageA(window, WM_OPENGLSINK_NOTIFICATION, ParameterOf(*m_record),
                         reinterpret_cast<LPARAM>(m_record.get()));
        });
}

OwnedSinkRecord SinkDelivery::Take(SNotifyOpenGLSink& record) {
    for (SinkDelivery* delivery = t_innermost; delivery; delivery = delivery->m_outer)
        if (delivery->m_record.get() == &record)
            return std::move(delivery->m_record);
    return OwnedSinkRecord(&record);
}

} // namespace korvel::internal
