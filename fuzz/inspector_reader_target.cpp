// The input is a LandXML file; the inspector reads it and lists all of its members.

#include "fuzz_target.h"
#include "landxml/landxml_document.h"
#include "program/list_writer.h"
#include "source/document_error.h"

#include <sstream>

namespace {

using namespace korvel;

void List(const std::string& path) {
    inspector::LandXmlDocument document(path, {});
    std::ostringstream list;
    inspector::WriteList(document.Root(), list);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::GermanMachine machine;
    try {
        List(machine.FileOf(fuzz::Input(data, size).Rest()));
    } catch (const inspector::DocumentError& error) {
        fuzz::Require(error.what()[0] != '\0', "the failure of a document has a text");
    }
    return 0;
}
