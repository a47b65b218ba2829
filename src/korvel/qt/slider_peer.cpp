#include "korvel/qt/slider_peer.h"

#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QSlider>
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>

namespace korvel::internal {

namespace {

// From one end to the other there is one interval.
int TicksAtTheEnds(const view::RangeView& range) {
    const std::int64_t span = std::int64_t{range.upper} - range.lower;
    return static_cast<int>(std::clamp<std::int64_t>(span, 1, std::numeric_limits<int>::max()));
}

struct Step {
    int action; // of Qt
    UINT code;
};

constexpr Step Steps[] = {{QSlider::SliderSingleStepSub, TB_LINEUP},
                          {QSlider::SliderSingleStepAdd, TB_LINEDOWN},
                          {QSlider::SliderPageStepSub, TB_PAGEUP},
                          {QSlider::SliderPageStepAdd, TB_PAGEDOWN}};

bool IsPressed() {
    return QGuiApplication::mouseButtons() & Qt::LeftButton;
}

QSlider::TickPosition TicksOf(UINT style) {
    if (style & TBS_NOTICKS)
        return QSlider::NoTicks;
    if (style & TBS_BOTH)
        return QSlider::TicksBothSides;
    return style & TBS_TOP ? QSlider::TicksAbove : QSlider::TicksBelow;
}

} // namespace

SliderPeer::SliderPeer(PeerContext& context, HWND window, QWidget* parent)
    : SliderPeer(context, window, *new QSlider(parent)) {}

SliderPeer::SliderPeer(PeerContext& context, HWND window, QSlider& slider)
    : Peer(context, window, slider, slider), m_slider(slider) {
    connect(
        &m_slider, &QSlider::actionTriggered, this, [this](int action) { ReportStep(action); });
    connect(&m_slider, &QSlider::valueChanged, this, [this] { ReportValue(); });
}

void SliderPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    if (!(aspects & (Aspect::State | Aspect::Style)))
        return;
    const QScopedValueRollback showing(m_isShowing, true);
    const view::RangeView range = view::Range(Window());
    const UINT style = view::Style(Window());
    m_slider.setOrientation(style & TBS_VERT ? Qt::Vertical : Qt::Horizontal);
    m_slider.setInvertedAppearance((style & TBS_VERT) != 0); // its lower end is at the top
    m_slider.setRange(range.lower, range.upper);
    m_slider.setSingleStep(range.line);
    m_slider.setPageStep(range.page);
    m_slider.setTickPosition(TicksOf(style));
    m_slider.setTickInterval(style & TBS_AUTOTICKS ? range.tick : TicksAtTheEnds(range));
    m_slider.setValue(range.position);
}

// Qt has not taken the step yet, and takes over where Apply puts the slider meanwhile.
void SliderPeer::ReportStep(int action) {
    const auto* step = std::ranges::find(Steps, action, &Step::action);
    if (step == std::end(Steps) || !Window())
        return;
    m_isPaging = IsPressed();
    const Busy busy(*this);
    input::Stepped(Window(), step->code);
}

// The signal also comes for what Apply sets, which is no news.
void SliderPeer::ReportValue() {
    if (m_isShowing || !Window())
        return;
    if (m_isPaging && IsPressed() && !m_slider.isSliderDown())
        return Apply(Aspect::State); // at last Qt puts the thumb under the pointer, which is no dragging
    const Busy busy(*this);
    input::Value(Window(), m_slider.value());
}

// A wheel over a slider without the focus is meant for what scrolls around it.
bool SliderPeer::OnEvent(QWidget& widget, QEvent& event) {
    return Peer::OnEvent(widget, event) || (event.type() == QEvent::Wheel && GetFocus() != Window());
}

} // namespace korvel::internal
