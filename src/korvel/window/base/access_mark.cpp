#include "korvel/window/base/access_mark.h"

namespace korvel::internal {

CString WithoutMarks(const CString& text) {
    CString shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '&' && ++at == text.size())
            break;
        shown += text[at];
    }
    return shown;
}

} // namespace korvel::internal
