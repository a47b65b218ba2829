#ifdef KORVEL_INSPECTOR // a build without the window has no such program

#include "support/run_program.h"
#include "support/scratch.h"

#include <array>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace korvel::inspector {
namespace {

using ::testing::StartsWith;

Outcome RunInspector(const std::string& arguments) {
    return RunProgram(KORVEL_INSPECTOR " " + arguments);
}

TEST(InspectorProgram, ReturnsItsStatus) {
    const platform::ScratchFolder folder;
    const platform::ScratchVariable settings("XDG_CONFIG_HOME", folder.Path().c_str());
    const std::string good = folder.Path() / "good.xml";
    std::ofstream(good) << "<LandXML><Line length='1.5' note='\xC3\xBC'/></LandXML>";
    const std::string bad = folder.Path() / "bad.xml";
    std::ofstream(bad) << "<LandXML>\n<Line length='1.5' note=x/></LandXML>";
    const std::string wrong = folder.Path() / "wrong.xml";
    std::ofstream(wrong) << "<LandXML note='\xA3\xF3\x64\xBC'/>";
    const std::tuple<std::string, int, std::string> cases[] = {
        {"--list " + good + " >/dev/full", 1, ""},
        {"--list --locale de-DE --language German " + good, 0,
         "Line\tLine\n  length\t1,50\n  note\t\xC3\xBC\n"},
        {"--list --locale de-DE --digits 3 " + good, 0, "Line\tLine\n  length\t1,500\n  note\t\xC3\xBC\n"},
        {"--list --locale en-US " + good, 0, "Line\tLine\n  length\t1.50\n  note\t\xC3\xBC\n"},
        {"--list --locale de-DE --digits 3 --keep " + good, 0,
         "Line\tLine\n  length\t1,500\n  note\t\xC3\xBC\n"},
        {"--list --locale en-US " + good, 0, "Line\tLine\n  length\t1.500\n  note\t\xC3\xBC\n"},
        {"--list --expand Line/length " + good, 0, "Line\tLine\n  length\t1.500\n  note\t\xC3\xBC\n"},
        {"--list --expand Line/width --language English " + good, 2,
         "inspector: --expand: there is no 'Line/width'; see --help\n"},
        {"--list --language German " + folder.Path().string(), 2,
         "inspector: " + folder.Path().string() + ": ist ein Ordner\n"},
        {"--language German --bogus", 2, "inspector: die Option '--bogus' gibt es nicht; siehe --help\n"},
        {"--digits 99 --language=German", 2,
         "inspector: --digits ist eine Zahl von 0 bis 15, nicht '99'; siehe --help\n"},
        {"--list --language German --locale Klingon " + good, 2,
         "inspector: das Gebietsschema 'Klingon' ist nicht bekannt; siehe --help\n"},
        {"--list " + bad, 2,
         "inspector: " + bad + ": line 2, position 25: the value of the attribute 'note' is not in quotes\n"},
        {"--list " + wrong, 0,
         "inspector: " + wrong +
             ": line 1, position 16: the bytes are not UTF-8, and no other encoding is declared; "
             "--encoding NAME reads the file in another encoding; shown, but read-only\n"
             "note\t\xEF\xBF\xBD\xEF\xBF\xBD\x64\xEF\xBF\xBD\n"},
        {"--list --encoding iso-8859-2 " + wrong, 0, "note\t\xC5\x81\xC3\xB3\x64\xC5\xBA\n"},
        {"--version", 0, "inspector " KORVEL_VERSION "\n"},
    };
    for (const auto& [arguments, status, output] : cases) {
        const Outcome outcome = RunInspector(arguments);
        EXPECT_EQ(outcome.status, status) << arguments;
        EXPECT_EQ(outcome.output, output) << arguments;
    }
    EXPECT_THAT(RunInspector("--help --language English").output, StartsWith("Usage: inspector"));
    EXPECT_THAT(RunInspector("--language=German --help").output, StartsWith("Aufruf: inspector"));
}

// Width and height of a PNG file, from its header; 0x0 when there is none.
std::string SizeOfPicture(const std::filesystem::path& path) {
    std::array<unsigned char, 24> header{};
    std::ifstream(path, std::ios::binary).read(reinterpret_cast<char*>(header.data()), header.size());
    return std::to_string(header[18] * 256 + header[19]) + "x" +
           std::to_string(header[22] * 256 + header[23]);
}

TEST(InspectorProgram, WritesPicturesWithoutScreen) {
    const platform::ScratchFolder folder;
    const platform::ScratchVariable settings("XDG_CONFIG_HOME", folder.Path().c_str());
    const platform::ScratchVariable noDisplay("DISPLAY", nullptr);
    const platform::ScratchVariable noWayland("WAYLAND_DISPLAY", nullptr);
    const platform::ScratchVariable noPlatform("QT_QPA_PLATFORM", nullptr); // it would count as a screen
    const std::string railway = KORVEL_TEST_DATA "/railway.xml";
    const std::string picture = folder.Path() / "picture.png";
    EXPECT_EQ(RunInspector(railway + " --size 640x480 --screenshot " + picture).output, "");
    EXPECT_EQ(SizeOfPicture(picture), "640x480");
    const platform::ScratchVariable scale("QT_SCALE_FACTOR", "1.5");
    EXPECT_EQ(RunInspector(railway + " --size 641x481 --screenshot " + picture).output, "");
    EXPECT_EQ(SizeOfPicture(picture), "641x481") << "on a desktop that scales";

    const std::string sessions[] = {"", "DISPLAY=:4711 ",
                                    "WAYLAND_DISPLAY=nope "}; // ones that do not respond
    for (const std::string& session : sessions) {
        std::filesystem::remove(folder.Path() / "railway.png");
        const Outcome beside = RunInspector("--version >/dev/null; cd " + folder.Path().string() + " && " +
                                            session + KORVEL_INSPECTOR " " + railway);
        EXPECT_EQ(beside.status, 0);
        EXPECT_EQ(SizeOfPicture(folder.Path() / "railway.png"), "1000x700");
        EXPECT_THAT(beside.output, testing::HasSubstr((folder.Path() / "railway.png").string()));
    }

    std::ofstream(picture) << "another's";
    EXPECT_EQ(RunInspector(railway + " --screenshot " + picture + " --language English").output,
              "another file has that name; the picture is " + (folder.Path() / "picture-2.png").string() +
                  "\n");
    const Outcome again = RunInspector(railway + " --screenshot " + picture);
    EXPECT_EQ(again.status, 0) << again.output;
    EXPECT_EQ(platform::ContentOf(picture), "another's");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "picture-3.png"))
        << "a picture of its own is replaced";
    const std::string jpeg = folder.Path() / "picture.jpg";
    EXPECT_EQ(RunInspector(railway + " --screenshot " + jpeg).status, 0);
    EXPECT_THAT(platform::ContentOf(jpeg), StartsWith("\xFF\xD8"));
    EXPECT_EQ(RunInspector(railway + " --screenshot " + picture + ".doc").status, 1);

    EXPECT_EQ(RunInspector("").status, 2) << "nothing to make a picture of";
    EXPECT_EQ(RunInspector(railway + " --expand Nowhere --screenshot " + picture).status, 2);
    EXPECT_EQ(RunInspector(railway + " --screenshot /dev/null/picture.png").status, 1);
}

TEST(InspectorProgram, SetsValuesAsIfTyped) {
    const platform::ScratchFolder folder;
    const platform::ScratchVariable settings("XDG_CONFIG_HOME", folder.Path().c_str());
    const std::string path = folder.Path() / "a.xml";
    const std::string copy = folder.Path() / "b.xml";
    const auto document = [](const char* length, const char* side, const char* date, const char* isClosed) {
        return std::string("<LandXML date='") + date + "'>\r\n<Units><Metric linearUnit=\"meter\"/></Units>" +
               "<Zones side='" + side + "' desc='a=b'/><Material color='1,2,3'/><Chain  length = \"" +
               length + "\" closedArea='" + isClosed + "'/></LandXML>\n";
    };
    const std::string before = document("1.50", "left", "2020-03-05", "false");
    struct Case {
        const char* name;
        std::vector<std::string> set;
        std::string after;
    };
    const Case cases[] = {
        {"a sum", {"Chain/length=2*(3+4)"}, document("14", "left", "2020-03-05", "false")},
        {"a comma", {"Chain/length=2,25"}, document("2.25", "left", "2020-03-05", "false")},
        {"an equal value", {"Chain/length=1,5"}, before},
        {"an entry", {"Zones/side=right"}, document("1.50", "right", "2020-03-05", "false")},
        {"a date", {"date=2021-12-31"}, document("1.50", "left", "2021-12-31", "false")},
        {"no date any more", {"date="}, ""},
        {"a flag", {"Chain/closedArea=true"}, document("1.50", "left", "2020-03-05", "true")},
        {"several", {"Chain/length=3", "Zones/side=both"}, document("3", "both", "2020-03-05", "false")},
        {"no sum", {"Chain/length=3", "Chain/length=3+"}, ""},
        {"no entry", {"Chain/length=3", "Zones/side=middle"}, ""},
        {"no date", {"date=today"}, ""},
        {"an equal color", {"Material/color=1,2,3"}, before},
        {"no color", {"Material/color=red"}, ""},
        {"no flag", {"Chain/closedArea=perhaps"}, ""},
        {"a zone", {"date=2021-01-02Z"}, ""},
        {"a key", {"Zones/desc=a\bb"}, ""},
        {"no member", {"Chain/width=3"}, ""},
        {"a namespace", {"Units=1"}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::ofstream(path, std::ios::binary) << before;
        std::string arguments = "--locale de-DE --language English --save " + copy + " " + path;
        for (const std::string& assignment : c.set)
            arguments += " --set '" + assignment + "'";
        const Outcome outcome = RunInspector(arguments);
        EXPECT_EQ(outcome.status, c.after.empty() ? 2 : 0) << outcome.output;
        EXPECT_EQ(platform::ContentOf(path), before);
        EXPECT_EQ(platform::ContentOf(copy), c.after);
        if (c.after.empty())
            EXPECT_THAT(outcome.output, StartsWith("inspector: --set"));
        std::filesystem::remove(copy);
    }
    std::string expected = document("9", "left", "2020-03-05", "false");
    expected.replace(expected.find("1,2,3"), 5, "75,75,0");
    EXPECT_EQ(RunInspector("--set 'Chain/length=9' --set Material/color=75,75,0 --save " + path).status, 0);
    EXPECT_EQ(platform::ContentOf(path), expected) << "in its own file";
}

TEST(InspectorProgram, SetsADamagedSettingsStoreAside) {
    for (const char* root : {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"}) {
        SCOPED_TRACE(root);
        const platform::ScratchFolder folder;
        const platform::ScratchFolder home;
        const platform::ScratchVariable settings("XDG_CONFIG_HOME", home.Path().c_str());
        const platform::ScratchVariable damagedOne(root, folder.Path().c_str());
        std::filesystem::create_directory(folder.Path() / "korvel");
        const std::string store = folder.Path() / "korvel" / "settings.sqlite";
        std::ofstream(store) << std::string(5000, 'x');
        const std::string list = "--list " KORVEL_TEST_DATA "/railway.xml";
        const Outcome first = RunInspector(list);
        EXPECT_EQ(first.status, 0);
        EXPECT_THAT(first.output, testing::HasSubstr("the settings cannot be read: " + store +
                                                     " is damaged; the file is now " + store + ".damaged\n"));
        EXPECT_EQ(platform::ContentOf(store + ".damaged"), std::string(5000, 'x'));
        EXPECT_THAT(RunInspector(list).output, StartsWith("xmlns"));
    }
}

} // namespace
} // namespace korvel::inspector

#endif
