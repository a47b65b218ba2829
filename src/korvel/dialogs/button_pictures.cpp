#include "korvel/dialogs/dialog_ids.h"
#include "korvel/window/app/built_in_resources.h"
#include "korvel/window/base/outline.h"

#include <array>
#include <cstdint>

// The pictures on the buttons of the dialogs: one shape each, on a grid of 16 by 16 with rows from the top,
// in colors that can be seen on a light and on a dark ground. Two pixels a step leave them sharp on screens
// of twice the scale; a display makes them smaller elsewhere.
namespace korvel::internal {
namespace {

constexpr int Scale = 2; // pixels along a step of the grid
constexpr int Side = 16 * Scale;
constexpr int Samples = 4; // along a pixel: its share of the shape is its opacity

using Pixels = std::array<std::uint32_t, std::size_t{Side} * Side>;

constexpr std::uint32_t Green = 0x2E9E4F;
constexpr std::uint32_t Red = 0xD9493B;
constexpr std::uint32_t Amber = 0xC98A1B;
constexpr std::uint32_t Blue = 0x2F7FD6;

constexpr Corner Plus[] = {{6, 2},   {10, 2}, {10, 6}, {14, 6}, {14, 10}, {10, 10},
                           {10, 14}, {6, 14}, {6, 10}, {2, 10}, {2, 6},   {6, 6}};
constexpr Corner Minus[] = {{2, 6}, {14, 6}, {14, 10}, {2, 10}};
constexpr Corner Pen[] = {{2, 14}, {3.5, 9.5}, {10.5, 2.5}, {13.5, 5.5}, {6.5, 12.5}};
constexpr Corner ArrowUp[] = {{8, 2}, {14, 8}, {10, 8}, {10, 14}, {6, 14}, {6, 8}, {2, 8}};
constexpr Corner ArrowDown[] = {{8, 14}, {14, 8}, {10, 8}, {10, 2}, {6, 2}, {6, 8}, {2, 8}};

template <std::size_t Count>
constexpr std::uint32_t OpacityAt(const Corner (&shape)[Count], int column, int row) {
    constexpr double Step = 1.0 / (Scale * Samples);
    std::uint32_t hits = 0;
    for (int y = 0; y < Samples; ++y)
        for (int x = 0; x < Samples; ++x)
            hits += IsInside(shape, (column * Samples + x + 0.5) * Step, (row * Samples + y + 0.5) * Step);
    return hits * 0xFF / (Samples * Samples);
}

template <std::size_t Count>
constexpr Pixels Draw(const Corner (&shape)[Count], std::uint32_t color) {
    Pixels pixels{};
    for (int i = 0; i < Side * Side; ++i)
        pixels[static_cast<std::size_t>(i)] = OpacityAt(shape, i % Side, i / Side) << 24 | color;
    return pixels;
}

// Constants for GCC; Clang gives up after as many steps, and draws them when the library is loaded.
const Pixels PlusPixels = Draw(Plus, Green);
const Pixels MinusPixels = Draw(Minus, Red);
const Pixels PenPixels = Draw(Pen, Amber);
const Pixels ArrowUpPixels = Draw(ArrowUp, Blue);
const Pixels ArrowDownPixels = Draw(ArrowDown, Blue);

const PictureResource Pictures[] = {
    {AddPicture, Side, Side, PlusPixels.data()},           {EditPicture, Side, Side, PenPixels.data()},
    {RemovePicture, Side, Side, MinusPixels.data()},       {MoveUpPicture, Side, Side, ArrowUpPixels.data()},
    {MoveDownPicture, Side, Side, ArrowDownPixels.data()},
};

[[maybe_unused]] const bool Registered = [] {
    for (const PictureResource& picture : Pictures)
        AddBuiltIn(picture);
    return true;
}();

} // namespace
} // namespace korvel::internal
