#include "program/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvel::inspector {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(Options, AreRead) {
    const Options options = ReadOptions(
        {"--size=640x480", "road.xml",     "--screenshot", "a=b.png",        "--expand", "A/B",
         "--expand=C",     "--angle-unit", "gon",          "--station-kind", "railway",  "--language=English",
         "--locale",       "de-CH",        "--expand-all", "--digits",       "15",       "--grouping=3,2",
         "--keep",         "--encoding",   "KOI8-R"});
    EXPECT_EQ(options.file, "road.xml");
    EXPECT_EQ(options.screenshot, "a=b.png");
    EXPECT_EQ(options.size.width, 640);
    EXPECT_EQ(options.size.height, 480);
    EXPECT_THAT(options.expand, ElementsAre("A/B", "C"));
    EXPECT_TRUE(options.expandAll);
    EXPECT_EQ(options.formats.angleUnit, 'g');
    EXPECT_EQ(options.formats.digits, 15U);
    EXPECT_EQ(options.formats.grouping, 32U);
    EXPECT_EQ(options.stations, StationKind::Railway);
    EXPECT_EQ(options.language, "English");
    EXPECT_EQ(options.locale, "de-CH");
    EXPECT_EQ(options.encoding, "KOI8-R");
    EXPECT_TRUE(options.keep);
    EXPECT_FALSE(options.list);
    EXPECT_EQ(ReadOptions({"--", "--list"}).file, "--list");
    const std::tuple<std::vector<std::string>, const char*, const char*> saves[] = {
        {{"a.xml", "--save"}, "a.xml", ""},           {{"a.xml", "--save", "b.xml"}, "a.xml", "b.xml"},
        {{"--save", "a.xml"}, "a.xml", ""},           {{"--save", "b.xml", "a.xml"}, "a.xml", "b.xml"},
        {{"--save", "--list", "a.xml"}, "a.xml", ""}, {{"--save=b.xml", "a.xml"}, "a.xml", "b.xml"},
        {{"--save", "--", "a.xml"}, "a.xml", ""},
    };
    for (const auto& [arguments, file, saveAs] : saves) {
        const Options read = ReadOptions(arguments);
        EXPECT_EQ(read.file, file);
        EXPECT_EQ(read.saveAs, saveAs);
        EXPECT_TRUE(read.save);
    }
    EXPECT_THAT(ReadOptions({"--set", "A/b=1=2", "--set=c=", "a.xml", "--list"}).set,
                ElementsAre("A/b=1=2", "c="));
    EXPECT_EQ(ReadOptions({}).file, "") << "a window can open without a file";
}

TEST(Options, AreRefusedWithAReason) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"--lst"}, "there is no option '--lst'"},
        {{"-h"}, "there is no option '-h'"},
        {{"a.xml", "b.xml"}, "'b.xml' is too many"},
        {{""}, "empty"},
        {{"--list"}, "no file is named"},
        {{"--screenshot", "a.png"}, "no file is named"},
        {{"--expand", "A"}, "no file is named"},
        {{"--expand-all"}, "no file is named"},
        {{"--list", "--screenshot", "a.png", "a.xml"}, "--list and --screenshot exclude each other"},
        {{"--save"}, "no file is named"},
        {{"--save=b.xml"}, "no file is named"},
        {{"--save", "--save", "a.xml"}, "--save is there twice"},
        {{"--set", "A", "a.xml"}, "not 'A'"},
        {{"--set", "=A", "a.xml"}, "not '=A'"},
        {{"--set", "A=1", "a.xml"}, "--set needs --save or --list"},
        {{"--save", "--screenshot", "a.png", "a.xml"}, "exclude each other"},
        {{"--list=yes", "a.xml"}, "--list takes no value"},
        {{"a.xml", "--locale"}, "--locale needs a value"},
        {{"--locale=", "a.xml"}, "--locale needs a value"},
        {{"--size", "640"}, "not '640'"},
        {{"--size", "640x"}, "not '640x'"},
        {{"--size", "640x480x2"}, "not '640x480x2'"},
        {{"--size", "0x480"}, "not '0x480'"},
        {{"--size", "99999999999x1"}, "not '99999999999x1'"},
        {{"--angle-unit", "grad"}, "takes one of file, deg, rad, gon, not 'grad'"},
        {{"--digits", "16"}, "takes a number from 0 to 15, not '16'"},
        {{"--digits", "-1"}, "not '-1'"},
        {{"--digits", "3x"}, "not '3x'"},
        {{"--grouping", "2"}, "takes one of none, 3, 3,2, not '2'"},
        {{"--language", "Hungarian"}, "takes one of English, German"},
        {{"--station-kind", "canal"}, "takes one of auto, road, railway"},
    };
    for (const auto& [arguments, reason] : cases) {
        SCOPED_TRACE(reason);
        try {
            ReadOptions(arguments);
            ADD_FAILURE() << "was accepted";
        } catch (const UsageError& error) {
            EXPECT_THAT(error.what(), HasSubstr(reason));
        }
    }
}

} // namespace
} // namespace korvel::inspector
