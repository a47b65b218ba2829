#include "korvel/parser/antlr_token.h"

#include <new>

namespace korvel::internal {

void ANTLRCommonToken::SetText(std::string_view text) {
    try {
        m_text.assign(text);
    } catch (const std::bad_alloc&) {
        Panic("ANTLRCommonToken::setText new failed");
    }
}

} // namespace korvel::internal
