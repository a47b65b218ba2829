#include "korvel/parser/panic_source.h"

#include <cstdio>
#include <cstdlib>

namespace korvel::internal {

void PanicSource::Panic(const char* text) const {
    if (m_handler == nullptr) {
        std::fprintf(stderr, "%s panic: %s\n", m_kind, text);
        std::exit(1);
    }
    m_handler(text);
    throw ParseEnded();
}

} // namespace korvel::internal
