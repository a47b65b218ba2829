#include "korvel/grid/row_icons.h"

namespace korvel::internal {

namespace {

constexpr int IconSize = 16;
using IconRows = const char* [IconSize];

// One letter a pixel: '.' clear, the others by ColorOf.
constexpr IconRows PlainRows = {
    "................", "................", "................", "................",
    "................", ".....ssssss.....", "....ssllllss....", "....sllllllss...",
    "....sllllllss...", "....sllllllss...", "....ssllllss....", ".....ssssss.....",
    "................", "................", "................", "................",
};

// A stack of three layers, as terrain and alignments are layered.
constexpr IconRows GroupRows = {
    "................", ".......oo.......", ".....ooyyoo.....", "...ooyyyyyyoo...",
    "..oyyyyyyyyyyo..", "...ooyyyyyyoo...", "..g..ooyyoo..g..", "..ggg..oo..ggg..",
    "...gggg..gggg...", "..b..gggggg..b..", "..bbb..gg..bbb..", "...bbbb..bbbb...",
    ".....bbbbbb.....", ".......bb.......", "................", "................",
};

// A tag: something with a name on it.
constexpr IconRows MemberRows = {
    "................", "................", "................", "..bbbbbbbbb.....",
    "..blllllllbb....", "..bllllllllbb...", "..blbblllllllb..", "..bllllllllllbb.",
    "..blbbbblllllbb.", "..bllllllllllb..", "..blbbblllllbb..", "..blllllllbb....",
    "..bbbbbbbbb.....", "................", "................", "................",
};

std::uint32_t ColorOf(char letter) {
    switch (letter) {
    case 'o':
        return 0xFFB8741A;
    case 'y':
        return 0xFFF0B440;
    case 'g':
        return 0xFF4E9A54;
    case 'b':
        return 0xFF4A7FB5;
    case 'l':
        return 0xFFD6E4F0;
    case 's':
        return 0xFF8A939C;
    default:
        return 0;
    }
}

Image Draw(const IconRows& rows) {
    Image image{IconSize, IconSize, {}};
    image.pixels.reserve(std::size_t{IconSize} * IconSize);
    for (const char* row : rows)
        for (int x = 0; x < IconSize; ++x)
            image.pixels.push_back(ColorOf(row[x]));
    return image;
}

CImageList MakeIcons() {
    CImageList icons(IconSize, IconSize);
    for (const auto* rows : {&PlainRows, &GroupRows, &MemberRows})
        icons.Add(Draw(*rows));
    return icons;
}

} // namespace

const CImageList& RowIcons() {
    static const CImageList icons = MakeIcons();
    return icons;
}

} // namespace korvel::internal
