#include "korvel/events/event_icons.h"

#include "korvel/events/event_picture_id.h"
#include "korvel/window/app/find_resource.h"

namespace korvel::internal {

void EventIcons::Load() {
    m_cells = CImageList(Side, Side);
    const PictureResource* strip = FindPicture(EventStripPicture);
    if (!strip || strip->height < Side)
        return;
    for (int left = 0; left + Side <= strip->width; left += Side) {
        Image cell{Side, Side, {}};
        for (int y = 0; y < Side; ++y) {
            const auto* row = strip->pixels + std::ptrdiff_t{y} * strip->width + left;
            cell.pixels.insert(cell.pixels.end(), row, row + Side);
        }
        m_cells.Add(std::move(cell));
    }
}

} // namespace korvel::internal
