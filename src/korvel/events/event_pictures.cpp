#include "korvel/events/event_picture_id.h"
#include "korvel/window/app/built_in_resources.h"
#include "korvel/window/base/outline.h"

#include <array>
#include <cstdint>

// The strip of the icons of events: a ground with a white sign on it each, with rows from the top. Each ground
// has a shape of its own, so that types are told apart without colors too, and a color that can be seen on a
// light and on a dark row.
namespace korvel::internal {
namespace {

constexpr int Side = 16;
constexpr int Samples = 4; // along a pixel: their mean is its color and opacity

using Shape = std::span<const Corner>;

// A sign of two outlines; the second may be empty.
struct Icon {
    Shape ground; // empty: a disc
    std::uint32_t color;
    Shape sign;
    Shape dot;
};

constexpr Corner Triangle[] = {{7.2, 1}, {8.8, 1}, {15.8, 14}, {15, 15.4}, {1, 15.4}, {0.2, 14}};
constexpr Corner Octagon[] = {{5, 0.5},   {11, 0.5}, {15.5, 5}, {15.5, 11},
                              {11, 15.5}, {5, 15.5}, {0.5, 11}, {0.5, 5}};
constexpr Corner Cross[] = {{5.3, 3.9},   {8, 6.6}, {10.7, 3.9}, {12.1, 5.3}, {9.4, 8}, {12.1, 10.7},
                            {10.7, 12.1}, {8, 9.4}, {5.3, 12.1}, {3.9, 10.7}, {6.6, 8}, {3.9, 5.3}};
constexpr Corner Stroke[] = {{7, 5}, {9, 5}, {8.8, 10.6}, {7.2, 10.6}};
constexpr Corner StrokeDot[] = {{7, 11.6}, {9, 11.6}, {9, 13.6}, {7, 13.6}};
constexpr Corner Stem[] = {{6, 6.6},    {9, 6.6},    {9, 11.2}, {10.2, 11.2}, {10.2, 12.8},
                           {5.8, 12.8}, {5.8, 11.2}, {7, 11.2}, {7, 8.2},     {6, 8.2}};
constexpr Corner StemDot[] = {{6.9, 3.2}, {9.1, 3.2}, {9.1, 5.4}, {6.9, 5.4}};
constexpr Corner Flash[] = {{9.6, 2.2}, {4.4, 8.8}, {7.4, 8.8}, {6.2, 13.8}, {11.6, 6.8}, {8.5, 6.8}};
constexpr Corner Hook[] = {{4.8, 6.6}, {4.8, 5.2}, {6.3, 3.3}, {9.7, 3.3}, {11.3, 5},  {11.3, 6.9},
                           {9, 8.9},   {9, 10.3},  {7, 10.3},  {7, 8.1},   {9.2, 6.2}, {9.2, 5.6},
                           {8.8, 5.1}, {7.3, 5.1}, {6.9, 5.6}, {6.9, 6.6}};
constexpr Corner HookDot[] = {{6.9, 11.3}, {9.1, 11.3}, {9.1, 13.3}, {6.9, 13.3}};

constexpr Icon Unknown{{}, 0x6F7780, Hook, HookDot};
constexpr Icon Error{{}, 0xD23B30, Cross, {}};
constexpr Icon Warning{Triangle, 0xB87400, Stroke, StrokeDot};
constexpr Icon Information{{}, 0x2878CF, Stem, StemDot};
constexpr Icon Exception{Octagon, 0x9B3FB5, Flash, {}};

using Cell = std::array<std::uint32_t, std::size_t{Side} * Side>;

constexpr bool IsIn(Shape shape, double x, double y) {
    return !shape.empty() && IsInside(shape, x, y);
}

constexpr bool IsInDisc(double radius, double x, double y) {
    constexpr double Center = Side / 2.0;
    return (x - Center) * (x - Center) + (y - Center) * (y - Center) < radius * radius;
}

constexpr bool IsOnGround(const Icon& icon, double x, double y) {
    return icon.ground.empty() ? IsInDisc(7.7, x, y) : IsIn(icon.ground, x, y);
}

// A disc has a white rim, as a selected row may have its color.
constexpr bool IsWhite(const Icon& icon, double x, double y) {
    return (icon.ground.empty() && !IsInDisc(7, x, y)) || IsIn(icon.sign, x, y) || IsIn(icon.dot, x, y);
}

// Of the ground's color and white, as much as the samples say.
constexpr std::uint32_t Blend(std::uint32_t color, std::uint32_t white, std::uint32_t all) {
    std::uint32_t blended = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t channel = color >> shift & 0xFF;
        blended |= (channel * (all - white) + 0xFF * white) / all << shift;
    }
    return blended;
}

constexpr std::uint32_t PixelAt(const Icon& icon, int column, int row) {
    constexpr std::uint32_t Count = Samples * Samples;
    std::uint32_t hits = 0;
    std::uint32_t white = 0;
    for (int i = 0; i < static_cast<int>(Count); ++i) {
        const int down = i / Samples;
        const double x = column + (i % Samples + 0.5) / Samples;
        const double y = row + (down + 0.5) / Samples;
        if (!IsOnGround(icon, x, y))
            continue;
        ++hits;
        white += IsWhite(icon, x, y);
    }
    return hits == 0 ? 0 : hits * 0xFF / Count << 24 | Blend(icon.color, white, hits);
}

constexpr Cell Draw(const Icon& icon) {
    Cell cell{};
    for (int i = 0; i < Side * Side; ++i)
        cell[static_cast<std::size_t>(i)] = PixelAt(icon, i % Side, i / Side);
    return cell;
}

// In the order of the cells; each is one evaluation, which compilers limit.
constexpr Cell UnknownCell = Draw(Unknown);
constexpr Cell ErrorCell = Draw(Error);
constexpr Cell WarningCell = Draw(Warning);
constexpr Cell InformationCell = Draw(Information);
constexpr Cell ExceptionCell = Draw(Exception);
constexpr std::array<const Cell*, 5> Cells = {&UnknownCell, &ErrorCell, &WarningCell, &InformationCell,
                                              &ExceptionCell};
constexpr int Width = Side * static_cast<int>(Cells.size());

constexpr auto StripPixels = [] {
    std::array<std::uint32_t, std::size_t{Width} * Side> pixels{};
    for (std::size_t row = 0; row < Side; ++row)
        for (std::size_t column = 0; column < Width; ++column)
            pixels[row * Width + column] = (*Cells[column / Side])[row * Side + column % Side];
    return pixels;
}();
constexpr PictureResource Strip{EventStripPicture, Width, Side, StripPixels.data()};

[[maybe_unused]] const bool Registered = AddBuiltIn(Strip);

} // namespace
} // namespace korvel::internal
