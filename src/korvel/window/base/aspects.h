#pragma once

namespace korvel {

/// What of a window changed; the display reads the new state from the window (window/display/window_view.h).
enum class Aspect : unsigned {
    Rectangle = 1,
    Visible = 2,
    Enabled = 4,
    Text = 8,
    State = 16,  // the state of its control: checks, items, limits, selection
    Scroll = 32, // scroll position or extent
    Style = 64,
    Order = 128,   // among the siblings; of a top-level window: it comes to the front
    Entries = 256, // of a combo box or tab control
    Rows = 512, // of a list with bars: more rows came. Often in bursts, so the bars may follow a little later
};

/// A set of them.
///
///     const Aspects changed = Aspect::Text | Aspect::State;
///     if (changed & Aspect::Text) ...   // true
class Aspects {
public:
    constexpr Aspects() = default;
    constexpr Aspects(Aspect aspect) : m_bits(static_cast<unsigned>(aspect)) {}

    constexpr explicit operator bool() const { return m_bits != 0; }
    constexpr bool operator==(const Aspects&) const = default;
    friend constexpr Aspects operator|(Aspects a, Aspects b) { return Aspects(a.m_bits | b.m_bits); }
    friend constexpr Aspects operator&(Aspects a, Aspects b) { return Aspects(a.m_bits & b.m_bits); }
    constexpr Aspects& operator|=(Aspects other) { return *this = *this | other; }

private:
    constexpr explicit Aspects(unsigned bits) : m_bits(bits) {}

    unsigned m_bits = 0;
};
constexpr Aspects operator|(Aspect a, Aspect b) {
    return Aspects(a) | Aspects(b);
}

} // namespace korvel
