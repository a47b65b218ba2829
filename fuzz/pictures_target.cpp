// Three lines: a picture, a second one, a format in strftime notation; then a date and a time.

#include "fuzz_target.h"
#include "korvel/output/date_output.h"
#include "korvel/output/date_picture.h"
#include "korvel/output/dates.h"

namespace {

using namespace korvel;
using namespace korvel::internal;

std::string_view TakeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

void RequireThatPartsAreReadApart(std::string_view first, std::string_view second) {
    const std::string whole = std::string(first).append(".").append(second);
    fuzz::Require(DatePictureToFormat(whole) ==
                      DatePictureToFormat(first) + "." + DatePictureToFormat(second),
                  "a point parts a date picture");
    if (first.find('\'') == std::string_view::npos)
        fuzz::Require(TimePictureToFormat(whole) ==
                          TimePictureToFormat(first) + "." + TimePictureToFormat(second),
                      "a point outside quotes parts a time picture");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::GermanMachine machine;
    fuzz::Input input(data, size);
    const auto date = input.Take<double>();
    const auto time = input.Take<std::int64_t>();
    std::string_view rest = input.Rest();
    const std::string_view first = TakeLine(rest);
    const std::string_view second = TakeLine(rest);
    RequireThatPartsAreReadApart(first, second);

    CDateOutput& output = CDateOutput::Instance();
    output.Formats().defaultTime = TimePictureToFormat(first);
    output.SetCurrentPicture(DateFormatKind::Long, std::string(second));
    DatetoString(date);
    TimetoString(time);
    TimetoString(static_cast<std::int32_t>(time));
    output.Formats().defaultTime = rest;
    SetDateCurrentFormatString(false, std::string(rest));
    DatetoString(date);
    DatetoString(static_cast<double>(static_cast<std::int32_t>(time)) / 1000);
    TimetoString(time);
    return 0;
}
