#include "korvel/layout/dlg_state_record.h"

#include "korvel/layout/binary_memory_stream.h"

namespace korvel::internal {

std::string PackRect(const CRect& rect) {
    CBinaryMemoryStream stream;
    for (const int edge : {rect.left, rect.top, rect.right, rect.bottom})
        stream.Write(edge);
    return std::string(stream.Bytes());
}

std::optional<CRect> UnpackRect(std::string_view record) {
    CBinaryMemoryStream stream(record);
    CRect rect;
    for (int* edge : {&rect.left, &rect.top, &rect.right, &rect.bottom})
        if (!stream.Read(*edge))
            return std::nullopt;
    return rect;
}

} // namespace korvel::internal
