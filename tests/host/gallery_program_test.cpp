#ifdef KORVEL_GALLERY // a build without the window has no such program

#include "support/run_program.h"
#include "support/scratch.h"
#include "support/table.h"

#include <fstream>
#include <gmock/gmock.h>

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr const char* Document = " " KORVEL_TEST_DATA "/railway.xml";

Outcome TakeGallery(const std::string& folder, const char* rest) {
    return RunProgram(KORVEL_GALLERY " " + folder + rest);
}

TEST(GalleryProgram, NothingIsCutOffAndNothingReplaced) {
    const platform::ScratchFolder scratch;
    const fs::path folder = scratch.Path() / "new" / "shots";
    fs::create_directories(folder);
    std::ofstream(folder / "text-german-dark-200.png") << "another's";
    const platform::ScratchVariable scale("QT_SCALE_FACTOR", "2");
    const Outcome outcome = TakeGallery(folder, (std::string(" German") + Document).c_str());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "gallery: another file has that name; the picture is " +
                                  (folder / "text-german-dark-200-2.png").string() + "\n");
    EXPECT_EQ(platform::ContentOf(folder / "text-german-dark-200.png"), "another's");
    for (const char* name :
         {"code-list", "code-list-to-pick", "code-pair", "text", "progress", "progress-marquee", "folder",
          "controls", "controls-choice", "controls-calendar", "inspector", "lists"}) {
        const std::string light = platform::ContentOf(folder / (std::string(name) + "-german-light-200.png"));
        EXPECT_THAT(light, testing::StartsWith("\x89PNG")) << name;
        EXPECT_NE(light, platform::ContentOf(folder / (std::string(name) + "-german-dark-200.png"))) << name;
    }
}

TEST(GalleryProgram, SaysWhatItCannotDo) {
    const platform::ScratchFolder scratch;
    for (const auto& [border, folder, rest, status, output] :
         Table<std::string, std::string, int, std::string>{
             {"a file in the way", "/dev/null/shots", std::string(" English") + Document, 1,
              "gallery: the folder cannot be made: /dev/null/shots\n"},
             {"a folder in which nothing can be made", "/proc/self", std::string(" English") + Document, 1,
              "gallery: the picture '/proc/self/code-list-english-light-100.png' cannot be written\n"},
             {"a document that is not there", scratch.Path() / "a", " English /none.xml", 1,
              "gallery: /none.xml: no such file\n"},
             {"an unknown language", scratch.Path(), std::string(" Klingon") + Document, 2,
              "usage: gallery FOLDER German|English DOCUMENT\n"},
             {"no document", scratch.Path(), " German", 2,
              "usage: gallery FOLDER German|English DOCUMENT\n"}}) {
        const Outcome outcome = TakeGallery(folder, rest.c_str());
        EXPECT_EQ(outcome.status, status) << border;
        EXPECT_EQ(outcome.output, output) << border;
    }
}

} // namespace
} // namespace korvel

#endif
