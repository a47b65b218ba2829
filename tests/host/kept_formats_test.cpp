#include "korvel/output/stations.h"
#include "program/kept_formats.h"
#include "support/german_machine.h"

#include <fstream>
#include <gmock/gmock.h>

namespace korvel::inspector {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class KeptFormats : public GermanMachine {
protected:
    std::string NextRun(const FormatChoice& choice = {}, Keeping keeping = Keeping::LaterRuns) {
        ResetFormatStates();
        const TakenFormats taken = TakeFormats(folder.Path(), choice, keeping);
        hasUnitOfFile = taken.hasUnitOfFile;
        return taken.notice;
    }
    // What a user sees of the formats.
    std::string Shown() const {
        return NumberToString(1234567.8912) + " " + AngleToString(3.141592653589793) + " " +
               NumberToString(12345) + " " + RoadStationToString(12345.6789) + (hasUnitOfFile ? " file" : "");
    }

    platform::ScratchFolder folder;
    const std::filesystem::path file = folder.Path() / "inspector-formats.xml";
    bool hasUnitOfFile = false;
};

TEST_F(KeptFormats, LastUntilTheyAreChangedAgain) {
    struct Run {
        const char* name;
        FormatChoice choice;
        const char* shown;
        Keeping keeping = Keeping::LaterRuns;
    };
    const Run runs[] = {
        {"first run", {}, "1.234.567,89 180,00 12.345 12+345,68 file"},
        {"digits for one run", {{}, 1, {}}, "1.234.567,9 180,0 12.345 12+345,7 file", Keeping::ThisRunOnly},
        {"digits", {{}, 3, {}}, "1.234.567,891 180,000 12.345 12+345,679 file"},
        {"kept", {}, "1.234.567,891 180,000 12.345 12+345,679 file"},
        {"grouping beside them", {{}, {}, 0}, "1234567,891 180,000 12345 12+345,679 file"},
        {"unit beside them", {'g', {}, {}}, "1234567,891 200,000 12345 12+345,679"},
        {"all kept", {}, "1234567,891 200,000 12345 12+345,679"},
        {"degrees that were chosen", {'\xB0', {}, {}}, "1234567,891 180,000 12345 12+345,679"},
        {"kept, though the file has them too", {}, "1234567,891 180,000 12345 12+345,679"},
        {"the file's own again", {'f', {}, {}}, "1234567,891 180,000 12345 12+345,679 file"},
        {"kept too", {}, "1234567,891 180,000 12345 12+345,679 file"},
    };
    for (const Run& run : runs) {
        EXPECT_THAT(NextRun(run.choice, run.keeping), IsEmpty()) << run.name;
        EXPECT_EQ(Shown(), run.shown) << run.name;
    }
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "inspector-formats.xml.damaged"));
}

TEST_F(KeptFormats, SetADamagedFileAsideAndStartWithTheRegionalOnes) {
    for (const char* aside : {"inspector-formats.xml.damaged", "inspector-formats.xml.2.damaged"}) {
        NextRun({'g', 5, 0});
        // What is before the cut is in force before the failure shows.
        std::ifstream whole(file);
        const std::string text{std::istreambuf_iterator<char>(whole), {}};
        const std::string damaged =
            text.substr(0, text.find("<DateFormatShort>")) + "</DateFormat></FORMATS>";
        std::ofstream(file) << damaged;

        EXPECT_THAT(NextRun(), HasSubstr(aside));
        EXPECT_EQ(Shown(), "1.234.567,89 180,00 12.345 12+345,68 file") << "as in a first run";
        EXPECT_EQ(DatetoString(44000.0), "Donnerstag, 18. Juni 2020");
        EXPECT_FALSE(std::filesystem::exists(file));
        EXPECT_EQ(std::filesystem::file_size(folder.Path() / aside), damaged.size());
    }
}

TEST_F(KeptFormats, SayWhatIsWrongWithAFile) {
    const std::pair<const char*, const char*> cases[] = {
        {"<FORMATS>\n<x", "inspector-formats.xml: line 2, position "},
        {"<FORMATS/>", "inspector-formats.xml: the element 'NumberFormat' is missing in 'FORMATS'"},
    };
    for (const auto& [content, reason] : cases) {
        std::ofstream(file) << content;
        EXPECT_THAT(NextRun(), HasSubstr(reason));
    }
}

TEST_F(KeptFormats, FollowALinkAndLeaveNothingBeside) {
    const std::filesystem::path unit = folder.Path() / "inspector-angle-unit.txt";
    std::filesystem::create_directory(folder.Path() / "elsewhere");
    std::filesystem::create_symlink("elsewhere/unit.txt", unit);
    EXPECT_THAT(NextRun({'g', {}, {}}), IsEmpty());
    EXPECT_TRUE(std::filesystem::is_symlink(unit));
    EXPECT_EQ(platform::ContentOf(folder.Path() / "elsewhere" / "unit.txt"), "chosen\n");

    std::filesystem::remove(unit);
    std::filesystem::create_directory(unit);
    EXPECT_THAT(NextRun({'g', {}, {}}), HasSubstr(unit.string() + ": is a folder"));
    const std::filesystem::directory_iterator files(folder.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 3) << "the formats, the unit and the other folder";
}

TEST_F(KeptFormats, ThatCannotBeReadStayWhereTheyAre) {
    NextRun({'g', {}, {}});
    std::filesystem::rename(file, folder.Path() / "kept");
    std::filesystem::create_directory(file); // as little a file as one of a broken disk
    EXPECT_THAT(NextRun(), HasSubstr(file.string() + ": is a folder"));
    EXPECT_TRUE(std::filesystem::is_directory(file));

    std::filesystem::remove(file);
    std::filesystem::rename(folder.Path() / "kept", file);
    const std::string before = platform::ContentOf(file);
    // The settings, too, can be reached: else a language would be chosen here for all tests.
    const std::filesystem::path store = platform::StorePath(platform::SettingsRoot::Machine);
    for (const std::filesystem::path& reached : {folder.Path(), store.parent_path()})
        std::filesystem::permissions(reached, std::filesystem::perms::all);
    std::filesystem::permissions(file, std::filesystem::perms::none);
    {
        const platform::OrdinaryUser user;
        EXPECT_THAT(NextRun({'r', 2, {}}), HasSubstr("the formats of this run are not kept"));
    }
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    EXPECT_EQ(platform::ContentOf(file), before);
    NextRun();
    EXPECT_EQ(Shown(), "1.234.567,89 200,00 12.345 12+345,68");
}

TEST_F(KeptFormats, ThatCannotBeKeptServeThisRun) {
    std::ofstream(folder.Path() / "file") << "no folder";
    const std::filesystem::path endless = folder.Path() / "Br\xC3\xBCgg";
    std::filesystem::create_symlink(endless, endless);
    const std::pair<std::filesystem::path, std::string> cases[] = {
        {folder.Path() / "file" / "below",
         "the formats cannot be kept: " + (folder.Path() / "file" / "below: no such file").string()},
        {endless, "the kept formats cannot be read and the regional ones are used: " +
                      (endless / "inspector-formats.xml: a link leads back to itself").string() +
                      "; the formats of this run are not kept"},
        {"", ""}, // a user without a home
    };
    for (const auto& [place, notice] : cases) {
        EXPECT_EQ(TakeFormats(place, {'g', {}, {}}, Keeping::LaterRuns).notice, notice);
        EXPECT_EQ(AngleToString(3.141592653589793), "200,00") << notice;
    }
}

} // namespace
} // namespace korvel::inspector
