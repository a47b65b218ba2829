#pragma once

#include <QString>
#include <array>

namespace korvel::gallery {

/// The colors of a desktop.
enum class Ground { Light, Dark };

inline constexpr std::array AllGrounds = {Ground::Light, Ground::Dark};

/// "light"
QString NameOf(Ground ground);
/// Gives all windows of the process these colors, from now on.
void UseGround(Ground ground);

} // namespace korvel::gallery
