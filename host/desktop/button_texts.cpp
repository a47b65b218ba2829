#include "desktop/button_texts.h"

#include "desktop/program_texts.h"

#include <string_view>

namespace korvel::inspector {

namespace {

struct Row {
    std::string_view source;
    const char* ProgramTexts::*text;
};

constexpr Row rows[] = {
    {"OK", &ProgramTexts::ok},           {"Cancel", &ProgramTexts::cancel},
    {"&Cancel", &ProgramTexts::cancel},  {"&Yes", &ProgramTexts::yes},
    {"&No", &ProgramTexts::no},          {"Close", &ProgramTexts::close},
    {"Open", &ProgramTexts::openButton}, {"&Open", &ProgramTexts::openButton},
};

} // namespace

QString ButtonTexts::translate(const char* context, const char* source, const char*, int) const {
    const std::string_view where = context;
    if (where != "QPlatformTheme" && where != "QFileDialog")
        return {};
    for (const Row& row : rows) {
        if (row.source == source)
            return QString::fromUtf8(TheProgramTexts().*row.text);
    }
    return {};
}

} // namespace korvel::inspector
