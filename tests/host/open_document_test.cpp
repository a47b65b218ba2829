#include "editing/document_file_chooser.h"
#include "korvel/values/language.h"
#include "korvel/window/display/headless_display.h"
#include "support/scratch.h"
#include "support/table.h"

#include <fstream>
#include <gtest/gtest.h>

namespace korvel::inspector {
namespace {

class ChoosingDisplay final : public HeadlessDisplay {
public:
    std::optional<CString> ChooseFile(HWND, const FileQuery& query) override {
        begin = query.path;
        return answer;
    }
    CString begin;
    std::optional<CString> answer;
};

TEST(DocumentFileChooser, BeginsAtTheFileAndKeepsPathsBelowTheDocumentRelative) {
    struct Row {
        const char* name;
        const char* old;
        const char* begin;
        std::optional<CString> answer;
        const char* chosen;
    };
    const Row rows[] = {
        {"beside the document", "p.pdf", "/r/a/p.pdf", "/r/a/q.pdf", "q.pdf"},
        {"below it", "x/p.pdf", "/r/a/x/p.pdf", "/r/a/y/q.pdf", "y/q.pdf"},
        {"above it", "p.pdf", "/r/a/p.pdf", "/r/q.pdf", "/r/q.pdf"},
        {"a folder that begins like it", "p.pdf", "/r/a/p.pdf", "/r/ab/q.pdf", "/r/ab/q.pdf"},
        {"absolute", "/o/p.pdf", "/o/p.pdf", "/r/a/q.pdf", "/r/a/q.pdf"},
        {"none yet", "", "/r/a/", "/r/a/q.pdf", "/r/a/q.pdf"},
        {"given up", "../p.pdf", "/r/a/../p.pdf", std::nullopt, "../p.pdf"},
    };
    SetLanguageForThisRun("German"); // the dialog has texts; all tests that choose one choose this
    ChoosingDisplay display;
    SetDisplay(&display);
    DocumentFileChooser chooser("/r/b/old.xml");
    chooser.SetDocument("/r/a/road.xml");
    for (const Row& row : rows) {
        display.answer = row.answer;
        EXPECT_STREQ(chooser.Choose(row.old, nullptr), row.chosen) << row.name;
        EXPECT_EQ(display.begin, row.begin) << row.name;
    }
}

TEST(DocumentFileChooser, KnowsAddressesOfFiles) {
    const platform::ScratchFolder folder;
    for (const char* name : {"a b.pdf", "c%20d.pdf"})
        std::ofstream(folder.Path() / name) << "x";
    const std::string below = folder.Path().string() + "/";
    const DocumentFileChooser chooser(below + "road.xml");
    for (const auto& [border, path, absolute] :
         Table<std::string, std::string>{{"an address", "file:///p%20q/%C3%A4.pdf", "/p q/\xE4.pdf"},
                                         {"with a machine", "file://localhost/p.pdf", "/p.pdf"},
                                         {"no bytes", "file:///p%2%zz%00%", "/p%2%zz%00%"},
                                         {"relative", "a%20b.pdf", below + "a b.pdf"},
                                         {"a file of that very name", "c%20d.pdf", below + "c%20d.pdf"},
                                         {"no file", "e%20f.pdf", below + "e%20f.pdf"},
                                         {"of the internet", "http://a/b%20c", "http://a/b%20c"}})
        EXPECT_EQ(chooser.Absolute(path), absolute) << border;
}

} // namespace
} // namespace korvel::inspector
