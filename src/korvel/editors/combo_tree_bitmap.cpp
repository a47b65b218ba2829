#include "korvel/editors/combo_tree_bitmap.h"

#include <array>
#include <string_view>

namespace korvel::internal {

namespace {

constexpr int Side = 16;
using Pixmap = std::array<std::string_view, Side>;

// The drawings themselves: a letter a pixel.
constexpr Pixmap ClosedGroup = {
    "................", //
    "................", //
    "................", //
    "..ooooo.........", //
    ".oyyyyyo........", //
    ".oyyyyyyoooooo..", //
    ".ollllllllllllo.", //
    ".olyyyyyyyyyyyo.", //
    ".olyyyyyyyyyyyo.", //
    ".olyyyyyyyyyyyo.", //
    ".olyyyyyyyyyyyo.", //
    ".olyyyyyyyyyyyo.", //
    ".olyyyyyyyyyyyo.", //
    ".oooooooooooooo.", //
    "................", //
    "................",
};

constexpr Pixmap OpenGroup = {
    "................", //
    "................", //
    "................", //
    "..ooooo.........", //
    ".oyyyyyo........", //
    ".oyyyyyyoooooo..", //
    ".oyyyyyyyyyyyo..", //
    ".oyyoooooooooooo", //
    ".oyyollllllllllo", //
    ".oyollyyyyyyyyo.", //
    ".oyolyyyyyyyyyo.", //
    ".oollyyyyyyyyo..", //
    ".oolyyyyyyyyyo..", //
    ".ooooooooooooo..", //
    "................", //
    "................",
};

constexpr Pixmap Entry = {
    "................", //
    "................", //
    "...gggggggg.....", //
    "...gwwwwwwgg....", //
    "...gwwwwwwgwg...", //
    "...gwbbbbwgggg..", //
    "...gwwwwwwwwwg..", //
    "...gwbbbbbbbwg..", //
    "...gwwwwwwwwwg..", //
    "...gwbbbbbbbwg..", //
    "...gwwwwwwwwwg..", //
    "...gwbbbbbwwwg..", //
    "...gwwwwwwwwwg..", //
    "...ggggggggggg..", //
    "................", //
    "................",
};

std::uint32_t ColorOf(char letter) {
    switch (letter) {
    case 'o':
        return 0xFFA87A1E; // outline of a folder
    case 'y':
        return 0xFFF4CF6B;
    case 'l':
        return 0xFFFBE7A9; // its light edge
    case 'g':
        return 0xFF6E7B88; // outline of a sheet
    case 'w':
        return 0xFFFFFFFF;
    case 'b':
        return 0xFF4F86C6; // its writing
    default:
        return 0; // nothing is drawn
    }
}

Image Drawn(const Pixmap& pixmap) {
    Image image{Side, Side, {}};
    for (const std::string_view line : pixmap)
        for (const char letter : line)
            image.pixels.push_back(ColorOf(letter));
    return image;
}

} // namespace

const Image& ComboTreeBitmap(ComboTreeCell cell) {
    static const Image cells[] = {Drawn(ClosedGroup), Drawn(OpenGroup), Drawn(Entry)};
    return cells[static_cast<std::size_t>(cell)];
}

} // namespace korvel::internal
