#include "texts/program_texts.h"

#include "korvel/platform/code_page.h"
#include "texts/messages.h"

namespace korvel::inspector {

const char* ProgramText::Utf8() const {
    return SpeaksGerman() ? german : english;
}

std::string InCodePage(const ProgramText& text) {
    return platform::FromUtf8(text.Utf8()).text;
}

} // namespace korvel::inspector
