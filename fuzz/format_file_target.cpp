// The input is a file of saved formats.

#include "fuzz_target.h"
#include "korvel/output/angle_output.h"
#include "korvel/output/angles.h"
#include "korvel/output/date_output.h"
#include "korvel/output/dates.h"
#include "korvel/output/format_persistence.h"
#include "korvel/output/number_output.h"
#include "korvel/output/numbers.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/platform/utf8.h"

#include <pugixml.hpp>

namespace {

using namespace korvel;
using namespace korvel::internal;

std::string Saved(const std::string& path) {
    SaveFormatStates(path.c_str());
    return platform::ContentOf(path);
}

bool Load(const std::string& path) {
    const std::string before = Saved(path + ".before");
    try {
        LoadFormatStates(path.c_str());
        return true;
    } catch (const Error& error) {
        const std::string_view text = error.what();
        fuzz::Require(!text.empty(), "the failure of a file has a text");
        if (text.starts_with(path + "(line "))
            fuzz::Require(Saved(path + ".after") == before, "a file that is refused changes nothing");
        return false;
    }
}

// The text of an element as another parser reads it, in the bytes of the library.
std::string TextOf(const pugi::xml_node& parent, const char* name) {
    std::string utf8;
    for (const pugi::xml_node& part : parent.child(name))
        if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata)
            utf8 += part.value();
    if (utf8 == "\n") // of an empty element
        return {};
    std::string bytes;
    for (std::string_view rest = utf8; !rest.empty();) {
        const std::string_view all = rest;
        const char32_t character = platform::TakeUtf8(rest).value_or(U'?');
        const std::string_view taken = all.substr(0, all.size() - rest.size());
        bytes +=
            character < 0x100 ? std::string(1, static_cast<char>(character)) : platform::FromUtf8(taken).text;
    }
    return bytes;
}

std::string WordOf(const pugi::xml_node& parent, const char* name) {
    const std::string text = TextOf(parent, name);
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

void RequireField(const pugi::xml_node& parent, const char* name, std::uint32_t value) {
    fuzz::Require(std::strtoul(WordOf(parent, name).c_str(), nullptr, 10) == value, name);
}

void RequireFormat(const pugi::xml_node& element, const NumberFormat& format) {
    const std::string system = WordOf(element, "System");
    const bool follows = !system.empty() && system != "0" && system != "false";
    fuzz::Require(format.System == follows, "System");
    if (follows)
        return;
    RequireField(element, "NumDigits", format.NumDigits);
    RequireField(element, "LeadingZero", format.LeadingZero);
    RequireField(element, "Grouping", format.Grouping);
    RequireField(element, "NegativeOrder", format.NegativeOrder);
    fuzz::Require(TextOf(element, "DecimalSep") == format.DecimalSep, "DecimalSep");
    fuzz::Require(TextOf(element, "ThousandSep") == format.ThousandSep, "ThousandSep");
}

// What is in force is what another parser finds in the file, which reads UTF-8.
void RequireWhatTheFileHolds(const std::string& content) {
    if (content.find("encoding") != std::string::npos || content.find('\0') != std::string::npos)
        return;
    pugi::xml_document document;
    fuzz::Require(document.load_buffer(content.data(), content.size(),
                                       pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8),
                  "what is accepted is well-formed");
    const pugi::xml_node root = document.child("FORMATS");
    const pugi::xml_node numbers = root.child("NumberFormat");
    const CNumberOutput& output = CNumberOutput::Instance();
    RequireFormat(numbers.child("Integer"), output.Format(NumberRecord::Integer));
    RequireFormat(numbers.child("Long"), output.Format(NumberRecord::Long));
    RequireFormat(numbers.child("Float"), output.Format(NumberRecord::Float));
    RequireFormat(numbers.child("Double"), output.Format(NumberRecord::Double));
    const pugi::xml_node angles = root.child("AngleFormat");
    RequireField(angles, "Angle", CAngleOutput::Instance().Unit());
    RequireFormat(angles.child("Float"), CAngleOutput::Instance().Format(AngleRecord::Float));
    RequireFormat(angles.child("Double"), CAngleOutput::Instance().Format(AngleRecord::Double));
    const pugi::xml_node dates = root.child("DateFormat");
    const DateFormatRecord& formats = CDateOutput::Instance().Formats();
    fuzz::Require(TextOf(dates, "CurrentFormat") == formats.currentFormat, "CurrentFormat");
    fuzz::Require(TextOf(dates, "DefaultTime") == formats.defaultTime, "DefaultTime");
    fuzz::Require(TextOf(dates, "DateFormatLong") == formats.dateFormatLong, "DateFormatLong");
    fuzz::Require(TextOf(dates, "DateFormatShort") == formats.dateFormatShort, "DateFormatShort");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::GermanMachine machine;
    ResetFormatStates();
    const std::string content(fuzz::Input(data, size).Rest());
    const std::string path = machine.FileOf(content);
    const bool loaded = Load(path);
    if (!loaded)
        return 0;
    RequireWhatTheFileHolds(content);
    const std::string saved = Saved(path);
    fuzz::Require(Load(path), "what was saved can be loaded");
    const bool hasLineEnds = saved.find("&#x") != std::string::npos;
    fuzz::Require(hasLineEnds || Saved(path) == saved, "what was loaded is saved again");
    return 0;
}
