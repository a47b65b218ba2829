#include "korvel/window/base/access_mark.h"

#include "korvel/platform/code_page.h"

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

CString AccessKeyOf(const CString& text) {
    for (std::size_t at = text.find('&'); at != CString::npos && at + 1 < text.size();
         at = text.find('&', at + 2))
        if (text[at + 1] != '&')
            return platform::FoldCase(text.substr(at + 1, platform::NextCharacter(text, at + 1) - at - 1));
    return {};
}

} // namespace korvel::internal
