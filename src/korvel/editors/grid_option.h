#pragma once

#include <cstdint>

namespace korvel {

/// What a host may switch on in a grid and in the editors of its cells; all is off at first.
enum class EGridOption : std::uint32_t {
    /// Cells of angles say their unit, as TextForm::WithAngleUnit writes it. An edit starts without it, and
    /// cells of lists stay as their drop-down list shows them.
    AngleUnit = 0x1,

    /// A text field opens with the shortest text that reads back to the same bits, not with six decimals:
    /// "0.1", "1e-09"; an infinity is "1/0". A spin button writes such a text, too. An angle that no text
    /// reads back to opens with the nearest one.
    ExactEditText = 0x2,

    /// Escape leaves a text field, date or drop-down list without writing. Off, it ends the edit as Return
    /// does.
    EscapeCancels = 0x4,

    /// A red frame marks the cell of a grid until the edit of a refused text ends, and the grid's error
    /// reporter stands for the box. Off, the reporter hears as well and a box is shown; so it is without a
    /// reporter. Item windows mark nothing.
    InlineErrors = 0x8,

    /// "12+345,60" typed for a road station is kilometre 12 and 345.60 metres, "12,3+45,60" the same for a
    /// railway station. Off, each is a sum.
    StationInput = 0x10,

    /// With the focus in the grid: F2 or Return opens the value cell of the row, Alt+Down drops its list,
    /// Space toggles a flag; Right and Left and the main row's + - * open and close groups as those of the
    /// keypad do, and Return on a group toggles it.
    KeyboardEditing = 0x20,

    /// A whole number that 32 bits do not hold is read as it is typed. Off, it stops at their bounds:
    /// "3000000000" reads as 2147483647.
    WideIntegers = 0x40,

    /// A grid says that it has copied by WM_COMMAND with the code GridCopied to its parent, which may show it
    /// in its status bar. Off, a box says it.
    QuietCopy = 0x80,
};

/// The options that are on.
///
///     GridOptions options;
///     options.Set(EGridOption::ExactEditText, true);
///     options.Has(EGridOption::EscapeCancels);   // false
class GridOptions {
public:
    bool Has(EGridOption option) const { return (m_bits & static_cast<std::uint32_t>(option)) != 0; }
    void Set(EGridOption option, bool on) {
        const auto bit = static_cast<std::uint32_t>(option);
        m_bits = on ? m_bits | bit : m_bits & ~bit;
    }
    bool operator==(const GridOptions&) const = default;

private:
    std::uint32_t m_bits = 0;
};

} // namespace korvel
