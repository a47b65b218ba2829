// The input is a file of saved formats.

#include "fuzz_target.h"
#include "korvel/output/angles.h"
#include "korvel/output/dates.h"
#include "korvel/output/format_persistence.h"
#include "korvel/output/numbers.h"
#include "korvel/platform/error.h"

#include <sstream>
#include <stdexcept>

namespace {

using namespace korvel;

bool Load(const std::string& path) {
    try {
        LoadFormatStates(path.c_str());
        return true;
    } catch (const Error& error) {
        fuzz::Require(error.what()[0] != '\0', "the failure of a file has a text");
        return false;
    }
}

std::string Saved(const std::string& path) {
    SaveFormatStates(path.c_str());
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

void UseTheFormats() {
    NumberToString(-1234567.891);
    NumberToString(0.5f);
    AngleToString(-3.0);
    AngleToString(3.0f);
    DatetoString(44000.75);
    TimetoString(1000000000);
    try {
        NumberToString(-1234567);
        NumberToString(-1234567L);
    } catch (const std::invalid_argument&) {
        // A format from a file may be one that writes no negative number.
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::GermanMachine machine;
    ResetFormatStates();
    const std::string path = machine.Folder().File(fuzz::Input(data, size).Rest());
    const bool loaded = Load(path);
    UseTheFormats();
    if (!loaded)
        return 0;
    const std::string saved = Saved(path);
    fuzz::Require(Load(path), "what was saved can be loaded");
    const bool hasLineEnds = saved.find("&#x") != std::string::npos;
    fuzz::Require(hasLineEnds || Saved(path) == saved, "what was loaded is saved again");
    return 0;
}
