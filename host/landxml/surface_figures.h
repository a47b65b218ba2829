#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

namespace korvel::inspector {

/// What the points and faces of a terrain amount to, in its file's unit of lengths and its square.
struct SurfaceFigures {
    std::size_t points = 0;     ///< those with coordinates
    std::size_t faces = 0;      ///< those that can be seen, with all their points
    std::size_t broken = 0;     ///< those that name a point that is not there
    double planArea = 0;        ///< of the faces, seen from above
    std::optional<double> area; ///< on the slope; nothing where a point has no height
    std::optional<double> lowest;
    std::optional<double> highest;
};

/// Measures an element `Surface`, given as its text in UTF-8, which is well-formed. For any thread.
/// `goOn` is called now and then with the part that is done, from 0 to 1; nothing is returned once it is
/// false.
///
///     MeasureSurface("<Surface><Definition><Pnts><P id='1'>0 0 1</P>...", [](double) { return true; })
std::optional<SurfaceFigures> MeasureSurface(std::string_view surface,
                                             const std::function<bool(double done)>& goOn);

} // namespace korvel::inspector
