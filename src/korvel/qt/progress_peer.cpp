#include "korvel/qt/progress_peer.h"

#include "korvel/window/base/control_messages.h"
#include "korvel/window/display/window_view.h"

#include <QProgressBar>

namespace korvel::internal {

namespace {

// Qt adds to the position in 32 bits; a bar has far fewer pixels than these steps.
constexpr int Steps = 1 << 20;

int StepOf(const view::RangeView& range) {
    const double span = double{1} * range.upper - range.lower;
    return span > 0 ? static_cast<int>((double{1} * range.position - range.lower) / span * Steps) : 0;
}

} // namespace

ProgressPeer::ProgressPeer(PeerContext& context, HWND window, QWidget* parent)
    : ProgressPeer(context, window, *new QProgressBar(parent)) {}

ProgressPeer::ProgressPeer(PeerContext& context, HWND window, QProgressBar& bar)
    : Peer(context, window, bar, bar), m_bar(bar) {
    m_bar.setTextVisible(false);
}

void ProgressPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    if (aspects & (Aspect::State | Aspect::Style))
        FollowPaced();
}

// Qt's bar repaints the whole window at once when its position changes.
void ProgressPeer::Follow() {
    const view::RangeView range = view::Range(Window());
    m_bar.setOrientation(view::Style(Window()) & PBS_VERTICAL ? Qt::Vertical : Qt::Horizontal);
    m_bar.setRange(0, range.isMarquee ? 0 : Steps); // an empty range moves by itself
    m_bar.setValue(StepOf(range));
}

} // namespace korvel::internal
