#include "landxml/surface_figures.h"
#include "support/table.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sstream>

namespace korvel::inspector {
namespace {

// "points faces broken plan slope lowest highest"; '-' for what is not known.
std::string FiguresOf(const std::string& surface) {
    const auto figures = MeasureSurface(surface, [](double) { return true; });
    if (!figures)
        return "stopped";
    std::ostringstream text;
    const auto add = [&](std::optional<double> number) {
        text << ' ';
        number ? text << *number : text << '-';
    };
    text << figures->points << ' ' << figures->faces << ' ' << figures->broken;
    for (const auto& number :
         {std::optional(figures->planArea), figures->area, figures->lowest, figures->highest})
        add(number);
    return text.str();
}

TEST(SurfaceFigures, AreOfWhatTheFacesShow) {
    const std::string square = "<Pnts><P id='1'>0 0 1</P><P id=' 2 '>0 3 1</P><P id='3'>4 3 4</P>"
                               "<P id='4'>4 0 4</P></Pnts>"; // 3 in 4 upwards
    const auto with = [&](const std::string& faces) {
        return "<s:Surface><Definition>" + square + "<Faces>" + faces + "</Faces></Definition></s:Surface>";
    };
    for (const auto& [border, surface, expected] : Table<std::string, std::string>{
             {"two triangles", with("<F>1 2 3</F><F>1 3 4</F>"), "4 2 0 12 15 1 4"},
             {"the other way round", with("<F>3 2 1</F><F>1 3 4</F>"), "4 2 0 12 15 1 4"},
             {"a face of four points", with("<F>1 2 3 4</F>"), "4 1 0 12 15 1 4"},
             {"one that is not to be seen", with("<F>1 2 3</F><F i='1'>1 3 4</F>"), "4 1 0 6 7.5 1 4"},
             {"points that are not there", with("<F>1 2 9</F><F>1 2</F><F/>"), "4 0 2 0 - 1 4"},
             {"comments, sections and references",
              with("<!-- <F>1 2 3</F> --><F><![CDATA[1 2]]> <!-- 9 -->&#51;</F>"), "4 1 0 6 7.5 1 4"},
             {"no heights",
              "<Surface><P id='1'>0 0</P><P id='2'>0 1</P><P id='3'>1 0</P><F>1 2 3</F></Surface>",
              "3 1 0 0.5 - - -"},
             {"points of another definition",
              "<Surface><Definition>" + square +
                  "</Definition><Definition><F>1 2 3</F></Definition></Surface>",
              "4 0 1 0 - 1 4"},
             {"words that are no numbers",
              "<Surface><P id='1'>a b c</P><P id='2'>1</P><P>1 2 -INF</P></Surface>", "1 0 0 0 - - -"},
             {"nothing", "<Surface/>", "0 0 0 0 - - -"}})
        EXPECT_EQ(FiguresOf(surface), expected) << border;
}

TEST(SurfaceFigures, EndWhenNobodyWantsThem) {
    std::string surface = "<Surface>";
    for (int i = 0; i < 10'000; ++i)
        surface += "<P id='" + std::to_string(i) + "'>0 0 0</P>";
    std::vector<double> parts;
    const auto goOn = [&](double part) {
        parts.push_back(part);
        return part < 0.5;
    };
    EXPECT_FALSE(MeasureSurface(surface + "</Surface>", goOn));
    EXPECT_GT(parts.size(), 2u);
    EXPECT_LT(parts.back(), 1);
}

} // namespace
} // namespace korvel::inspector
