#include "korvel/editors/dice.h"

#include <ctime>
#include <random>

namespace korvel::internal {

std::uint32_t RollDice(std::uint32_t seed) {
    constexpr std::uint64_t Faces = 99;
    // 2 to the 32nd is no multiple of the faces: so many draws, the lowest ones of a face, would make some
    // faces likelier than others.
    constexpr std::uint32_t Surplus = (std::uint64_t{1} << 32) % Faces;
    std::mt19937 twister(seed);
    for (;;) {
        const std::uint64_t product = std::uint64_t{twister()} * Faces;
        if (static_cast<std::uint32_t>(product) >= Surplus)
            return static_cast<std::uint32_t>(product >> 32) + 1;
    }
}

std::optional<CVariantValue> Roll(const CVariantValue& value) {
    CVariantValue rolled = value;
    rolled.Type = DT_RandomUInt; // kept: also for a value that was signed
    rolled.Value.UInt = RollDice(static_cast<std::uint32_t>(std::time(nullptr)));
    return rolled.Value.UInt == value.Value.UInt ? std::nullopt : std::optional(rolled);
}

} // namespace korvel::internal
