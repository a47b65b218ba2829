#include "../platform/scratch.h"
#include "options.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace korvel::inspector {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

TEST(Options, AreRead) {
    const Options options =
        ReadOptions({"--size=640x480", "road.xml", "--screenshot", "a=b.png", "--expand", "A/B", "--expand=C",
                     "--angle-unit", "gon", "--station-kind", "railway", "--language=English", "--locale",
                     "de-CH", "--expand-all"});
    EXPECT_EQ(options.file, "road.xml");
    EXPECT_EQ(options.screenshot, "a=b.png");
    EXPECT_EQ(options.size.width, 640);
    EXPECT_EQ(options.size.height, 480);
    EXPECT_THAT(options.expand, ElementsAre("A/B", "C"));
    EXPECT_TRUE(options.expandAll);
    EXPECT_EQ(options.angleUnit, 'g');
    EXPECT_EQ(options.stations, StationKind::Railway);
    EXPECT_EQ(options.language, "English");
    EXPECT_EQ(options.locale, "de-CH");
    EXPECT_FALSE(options.list);
    EXPECT_EQ(ReadOptions({"--", "--list"}).file, "--list");
    EXPECT_EQ(ReadOptions({}).file, "") << "a window can open without a file";
}

TEST(Options, AreRefusedWithAReason) {
    struct Case {
        std::vector<std::string> arguments;
        const char* reason;
    };
    const Case cases[] = {
        {{"--lst"}, "there is no option '--lst'"},
        {{"-h"}, "there is no option '-h'"},
        {{"a.xml", "b.xml"}, "'b.xml' is too many"},
        {{""}, "empty"},
        {{"--list"}, "no file is named"},
        {{"--screenshot", "a.png"}, "no file is named"},
        {{"--list=yes", "a.xml"}, "--list takes no value"},
        {{"a.xml", "--locale"}, "--locale needs a value"},
        {{"--locale=", "a.xml"}, "--locale needs a value"},
        {{"--size", "640"}, "not '640'"},
        {{"--size", "640x"}, "not '640x'"},
        {{"--size", "640x480x2"}, "not '640x480x2'"},
        {{"--size", "0x480"}, "not '0x480'"},
        {{"--size", "99999999999x1"}, "not '99999999999x1'"},
        {{"--angle-unit", "grad"}, "takes one of deg, rad, gon, not 'grad'"},
        {{"--language", "Hungarian"}, "takes one of English, German"},
        {{"--station-kind", "canal"}, "takes one of auto, road, railway"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        try {
            ReadOptions(c.arguments);
            ADD_FAILURE() << "was accepted";
        } catch (const UsageError& error) {
            EXPECT_THAT(error.what(), HasSubstr(c.reason));
        }
    }
}

struct Outcome {
    int status = -1;
    std::string output; // both streams
};

Outcome RunInspector(const std::string& arguments) {
    Outcome outcome;
    FILE* pipe = popen((KORVEL_INSPECTOR " " + arguments + " 2>&1").c_str(), "r");
    std::array<char, 4096> buffer;
    while (const std::size_t count = fread(buffer.data(), 1, buffer.size(), pipe))
        outcome.output.append(buffer.data(), count);
    outcome.status = WEXITSTATUS(pclose(pipe));
    return outcome;
}

TEST(InspectorProgram, AnswersWithItsStatus) {
    const platform::ScratchFolder folder;
    const platform::ScratchVariable settings("XDG_CONFIG_HOME", folder.Path().c_str());
    const std::string good = folder.Path() / "good.xml";
    std::ofstream(good) << "<LandXML><Line length='1.5' note='\xC3\xBC'/></LandXML>";
    const std::string bad = folder.Path() / "bad.xml";
    std::ofstream(bad) << "<LandXML>\n<Line length='1.5' note=x/></LandXML>";
    struct Case {
        std::string arguments;
        int status;
        std::string output;
    };
    const Case cases[] = {
        {"--list --locale de-DE --language German " + good, 0,
         "Line\tLine\n  length\t1,50\n  note\t\xC3\xBC\n"},
        {"--list " + bad, 2,
         "inspector: " + bad + ": line 2, position 25: the value of the attribute 'note' is not in quotes\n"},
        {"--list " + folder.Path().string(), 2, "inspector: " + folder.Path().string() + ": is a folder\n"},
        {"--list --locale Klingon " + good, 2,
         "inspector: the locale 'Klingon' is not known; --help tells what there is\n"},
        {"--list", 2, "inspector: no file is named; --help tells what there is\n"},
        {"--version", 0, "inspector " KORVEL_VERSION "\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments);
        const Outcome outcome = RunInspector(c.arguments);
        EXPECT_EQ(outcome.status, c.status);
        EXPECT_EQ(outcome.output, c.output);
    }
    EXPECT_THAT(RunInspector("--help").output, StartsWith("Usage: inspector"));
}

TEST(InspectorProgram, FailsWhenItsOutputIsFull) {
    const platform::ScratchFolder folder;
    const platform::ScratchVariable settings("XDG_CONFIG_HOME", folder.Path().c_str());
    EXPECT_EQ(RunInspector("--list " KORVEL_TEST_DATA "/railway.xml >/dev/full").status, 1);
}

} // namespace
} // namespace korvel::inspector
