#include "editing/row_icon_pictures.h"

#include "editing/icon_drawing.h"
#include "landxml/row_icon.h"

#include <cmath>
#include <map>
#include <numbers>

namespace korvel::inspector {
namespace {

constexpr int Size = 16;

// Each can be told from white; a light one is for areas with an edge.
constexpr std::uint32_t Blue = 0x2F6FB5;
constexpr std::uint32_t LightBlue = 0xC4DCF3;
constexpr std::uint32_t Green = 0x2E8540;
constexpr std::uint32_t LightGreen = 0xBFE3C4;
constexpr std::uint32_t Red = 0xC8372D;
constexpr std::uint32_t Amber = 0xB8740A;
constexpr std::uint32_t LightAmber = 0xFBDF98;
constexpr std::uint32_t Violet = 0x7A4FB0;
constexpr std::uint32_t LightViolet = 0xDDCEF2;
constexpr std::uint32_t Teal = 0x14808A;
constexpr std::uint32_t LightTeal = 0xB5E2E5;
constexpr std::uint32_t Gray = 0x66707C;
constexpr std::uint32_t LightGray = 0xDCE2E8;
constexpr std::uint32_t White = 0xFFFFFF;

using Places = std::vector<IconPlace>;
using Shapes = std::vector<IconShape>;

IconShape Area(std::uint32_t color, Places corners) {
    return IconShape::Area(color, std::move(corners));
}
IconShape Line(std::uint32_t color, Places places, double width = 1.5) {
    return IconShape::Line(color, std::move(places), width);
}
IconShape Disc(std::uint32_t color, IconPlace center, double radius) {
    return IconShape::Disc(color, center, radius);
}

// Angles in degrees, clockwise from the right.
Places Arc(IconPlace center, double radius, double from, double to) {
    constexpr int Steps = 12;
    Places places;
    for (int i = 0; i <= Steps; ++i) {
        const double angle = (from + (to - from) * i / Steps) * std::numbers::pi / 180;
        places.push_back({center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)});
    }
    return places;
}

// A curve whose bend grows with its length, as that of a transition does.
Places Transition() {
    constexpr int Steps = 24;
    constexpr double Turn = 3.6; // radians at its end
    Places places = {{2, 13.5}};
    for (int i = 1; i <= Steps; ++i) {
        const double part = static_cast<double>(i) / Steps;
        const double heading = Turn * part * part;
        const IconPlace last = places.back();
        places.push_back({last.x + 0.83 * std::cos(heading), last.y - 0.83 * std::sin(heading)});
    }
    return places;
}

Places Box(double left, double top, double right, double bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

// An area with an edge.
Shapes Edged(std::uint32_t edge, std::uint32_t fill, Places corners, double width = 1) {
    Places outline = corners;
    outline.push_back(corners.front());
    return {Area(fill, std::move(corners)), Line(edge, std::move(outline), width)};
}

Shapes operator+(Shapes shapes, const Shapes& others) {
    shapes.insert(shapes.end(), others.begin(), others.end());
    return shapes;
}

Shapes Ring(std::uint32_t edge, std::uint32_t fill, IconPlace center, double radius, double width = 1) {
    return {Disc(edge, center, radius), Disc(fill, center, radius - width)};
}

Shapes Sheet() {
    return Edged(Gray, White, {{3.5, 1.5}, {9.5, 1.5}, {12.5, 4.5}, {12.5, 14.5}, {3.5, 14.5}}) +
           Shapes{Line(Gray, {{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}, 1)};
}

Shapes Triangle(std::uint32_t edge, std::uint32_t fill) {
    return Edged(edge, fill, {{2, 13}, {7, 2.5}, {14, 11}}, 1.25);
}

using Pictures = std::map<RowIcon, Shapes>;

Pictures DocumentPictures() {
    return {
        {RowIcon::Element,
         {Line(Gray, {{5.5, 3.5}, {1.5, 8}, {5.5, 12.5}}), Line(Gray, {{10.5, 3.5}, {14.5, 8}, {10.5, 12.5}}),
          Line(Gray, {{9, 3}, {7, 13}}, 1.25)}},
        {RowIcon::Foreign,
         {Line(Violet, {{5.5, 3.5}, {1.5, 8}, {5.5, 12.5}}),
          Line(Violet, {{10.5, 3.5}, {14.5, 8}, {10.5, 12.5}}), Disc(Violet, {8, 8}, 1.75)}},
        {RowIcon::Statistics,
         {Area(Blue, Box(2, 9, 5, 14)), Area(Green, Box(6, 5, 9, 14)), Area(Amber, Box(10, 2, 13, 14))}},
        {RowIcon::Project, Edged(Amber, LightAmber,
                                 {{1.5, 3.5}, {6, 3.5}, {7.5, 5.5}, {14.5, 5.5}, {14.5, 13.5}, {1.5, 13.5}}) +
                               Shapes{Line(Amber, {{1.5, 7.5}, {14.5, 7.5}}, 1)}},
        {RowIcon::Application, Edged(Gray, White, Box(1.5, 2.5, 14.5, 13.5)) +
                                   Shapes{Area(Blue, Box(2, 3, 14, 6)), Line(Gray, {{4, 8.5}, {9, 8.5}}, 1),
                                          Line(Gray, {{4, 10.5}, {12, 10.5}}, 1)}},
        {RowIcon::Units,
         Edged(Amber, LightAmber, Box(1.5, 5.5, 14.5, 11.5)) +
             Shapes{Line(Amber, {{4.5, 5.5}, {4.5, 8}}, 1), Line(Amber, {{7.5, 5.5}, {7.5, 9.5}}, 1),
                    Line(Amber, {{10.5, 5.5}, {10.5, 8}}, 1)}},
        {RowIcon::CoordinateSystem,
         Ring(Blue, LightBlue, {8, 8}, 6.5) + Shapes{Line(Blue, {{2, 8}, {14, 8}}, 1),
                                                     Line(Blue, Arc({12.5, 8}, 7.5, 126, 234), 1),
                                                     Line(Blue, Arc({3.5, 8}, 7.5, -54, 54), 1)}},
        {RowIcon::Feature, Edged(Blue, LightBlue, {{1.5, 1.5}, {8, 1.5}, {14.5, 8}, {8, 14.5}, {1.5, 8}}) +
                               Ring(Blue, White, {5, 5}, 1.5)},
        {RowIcon::Property,
         Edged(Blue, White, {{1.5, 3.5}, {11, 3.5}, {14.5, 7.5}, {11, 11.5}, {1.5, 11.5}}) +
             Shapes{Disc(Blue, {11, 7.5}, 1), Line(Blue, {{4, 7.5}, {8, 7.5}}, 1)}},
    };
}

Pictures AlignmentPictures() {
    const Places road = {{2, 14}, {4, 10}, {8, 8.5}, {12, 6.5}, {14, 2}};
    return {
        {RowIcon::Alignment, {Line(Gray, road, 5), Line(LightGray, road, 3.5), Line(Red, road, 1.25)}},
        {RowIcon::StationEquation,
         {Line(Red, {{1.5, 9.5}, {14.5, 9.5}}, 1), Line(Red, {{6.5, 6}, {6.5, 13}}, 1),
          Line(Red, {{9.5, 6}, {9.5, 13}}, 1), Line(Gray, {{5.5, 1.5}, {10.5, 1.5}}, 1),
          Line(Gray, {{5.5, 3.5}, {10.5, 3.5}}, 1)}},
        {RowIcon::Geometry,
         {Line(Red, {{2, 13.5}, {6, 9.5}}), Line(Red, Arc({11.5, 13}, 6.5, 212, 300)),
          Disc(Gray, {2.25, 13.25}, 1.75), Disc(Gray, {6.25, 9.25}, 1.75), Disc(Gray, {14, 7}, 1.75)}},
        {RowIcon::Line,
         {Line(Red, {{2.75, 13.25}, {13.25, 2.75}}, 1.75), Disc(Gray, {2.75, 13.25}, 1.75),
          Disc(Gray, {13.25, 2.75}, 1.75)}},
        {RowIcon::Curve,
         {Line(Red, Arc({13.5, 13.5}, 10.5, 180, 270), 1.75), Disc(Gray, {3, 13.25}, 1.75),
          Disc(Gray, {13.25, 3}, 1.75)}},
        {RowIcon::Spiral, {Line(Red, Transition(), 1.75), Disc(Gray, {2.5, 13.25}, 1.75)}},
        {RowIcon::Profile,
         {Line(Gray, {{2.5, 2}, {2.5, 13.5}, {14, 13.5}}, 1),
          Line(Green, {{4, 9}, {6.5, 10.5}, {9, 7}, {14, 9}}, 1), Line(Red, {{4, 11}, {8, 5}, {14, 3.5}})}},
        {RowIcon::ProfileCurve,
         {Line(Gray, {{2, 12.5}, {8, 3}, {14, 12.5}}, 1),
          Line(Red, {{3, 11}, {5, 8.5}, {8, 7.25}, {11, 8.5}, {13, 11}}, 1.75), Disc(Gray, {8, 3}, 1.5)}},
        {RowIcon::CrossSection,
         {Area(LightGreen, {{1, 14}, {1, 6}, {4, 6}, {6, 10}, {10, 10}, {12, 4}, {15, 4}, {15, 14}}),
          Line(Green, {{1, 6}, {4, 6}, {6, 10}}, 1.25), Line(Green, {{10, 10}, {12, 4}, {15, 4}}, 1.25),
          Line(Gray, {{5.5, 10}, {10.5, 10}}, 2)}},
        {RowIcon::Cant,
         {Line(Amber, {{1.5, 12}, {14.5, 8}}, 2.5), Line(Gray, {{3.6, 6.8}, {4.5, 10.5}}, 2),
          Line(Gray, {{10.6, 4.6}, {11.5, 8.3}}, 2), Line(Gray, {{2.5, 6.6}, {4.7, 6}}, 1.5),
          Line(Gray, {{9.5, 4.4}, {11.7, 3.8}}, 1.5)}},
        {RowIcon::Superelevation, Edged(Gray, LightGray, {{1.5, 10.5}, {14.5, 4.5}, {14.5, 8}, {1.5, 14}}) +
                                      Shapes{Line(Red, {{7.5, 2}, {7.5, 7}}, 1)}},
    };
}

Pictures GroundPictures() {
    return {
        {RowIcon::Surface,
         Edged(Green, LightGreen, {{1.5, 12.5}, {5.5, 3}, {13, 2.5}, {14.5, 11}, {9, 14}}) +
             Shapes{Line(Green, {{5.5, 3}, {9, 14}}, 1), Line(Green, {{5.5, 3}, {14.5, 11}}, 1)}},
        {RowIcon::Points,
         {Disc(Green, {3.5, 4}, 1.75), Disc(Green, {10, 3}, 1.75), Disc(Green, {7, 8}, 1.75),
          Disc(Green, {13, 9}, 1.75), Disc(Green, {3, 12.5}, 1.75), Disc(Green, {10, 13}, 1.75)}},
        {RowIcon::Faces, Edged(Green, LightGreen, {{1.5, 14}, {5, 6}, {9, 14}}) +
                             Edged(Green, LightGreen, {{6.5, 5}, {14.5, 5}, {11, 13}})},
        {RowIcon::Edges,
         {Line(Green, {{2, 12}, {3, 6}, {8, 2.5}, {13, 5}, {14, 11}, {9, 14}, {4, 13.5}, {2, 12}}, 1.25),
          Line(Amber, {{5.5, 10.5}, {6, 7.5}, {8.5, 6}, {11, 8}, {10, 10.5}, {7.5, 11.5}, {5.5, 10.5}},
               1.25)}},
        {RowIcon::Parcel,
         Edged(Violet, LightViolet, {{2, 4.5}, {9, 2}, {14, 6}, {12, 13.5}, {3, 12.5}}, 1.25) +
             Shapes{Line(Violet, {{9, 2}, {7, 13}}, 1)}},
        {RowIcon::PlanFeature,
         Ring(Green, LightGreen, {5.5, 5.5}, 4, 1.25) +
             Shapes{Line(Amber, {{5.5, 9}, {5.5, 14}}, 1.75), Line(Gray, {{10.5, 7}, {10.5, 14}}, 1.25),
                    Line(Gray, {{13.5, 7}, {13.5, 14}}, 1.25), Line(Gray, {{9, 9.5}, {15, 9.5}}, 1),
                    Line(Gray, {{9, 12}, {15, 12}}, 1)}},
        {RowIcon::GradeModel,
         {Area(LightAmber, {{1, 14}, {5, 6}, {11, 6}, {15, 14}}), Line(Amber, {{1.5, 14}, {5, 6.5}}, 1.25),
          Line(Gray, {{4.5, 6}, {11.5, 6}}, 2), Line(Amber, {{11, 6.5}, {14.5, 14}}, 1.25),
          Line(Amber, {{4, 10.5}, {12, 10.5}}, 1)}},
        {RowIcon::Survey,
         {Line(Amber, {{8, 8}, {3, 14.5}}), Line(Amber, {{8, 8}, {13, 14.5}}),
          Line(Amber, {{8, 8}, {8, 14.5}}, 1.25), Area(Gray, Box(5, 3, 11, 8)),
          Disc(LightBlue, {8, 5.5}, 1.5), Line(Gray, {{6, 2}, {10, 2}}, 1)}},
        {RowIcon::Monument, Edged(Amber, LightAmber, {{8, 1.75}, {14, 13.5}, {2, 13.5}}, 1.25) +
                                Shapes{Disc(Amber, {8, 9.75}, 1.75)}},
        {RowIcon::SurveyPoint,
         Ring(Amber, White, {7.5, 7.5}, 4.5, 1.25) + Shapes{Line(Amber, {{7.5, 1.5}, {7.5, 13.5}}, 1),
                                                            Line(Amber, {{1.5, 7.5}, {13.5, 7.5}}, 1),
                                                            Disc(Amber, {7.5, 7.5}, 1.5)}},
    };
}

Pictures BuildingPictures() {
    return {
        {RowIcon::PipeNetwork,
         {Line(Teal, {{3.5, 3.5}, {8, 8}, {12.5, 4}}, 1.75), Line(Teal, {{8, 8}, {8, 13}}, 1.75),
          Disc(Teal, {3.5, 3.5}, 2.25), Disc(Teal, {12.5, 3.75}, 2.25), Disc(Teal, {8, 13}, 2.25),
          Disc(LightTeal, {3.5, 3.5}, 1), Disc(LightTeal, {12.5, 3.75}, 1), Disc(LightTeal, {8, 13}, 1)}},
        {RowIcon::Pipe,
         {Line(Teal, {{4, 11.5}, {11.5, 4.5}}, 6), Line(LightTeal, {{4, 11.5}, {11.5, 4.5}}, 4),
          Disc(Teal, {11.5, 4.5}, 3), Disc(White, {11.5, 4.5}, 1.75)}},
        {RowIcon::Struct,
         Edged(Teal, LightTeal, {{6, 2.5}, {10, 2.5}, {12.5, 6}, {12.5, 13.5}, {3.5, 13.5}, {3.5, 6}}) +
             Shapes{Line(Teal, {{5, 2.5}, {11, 2.5}}, 1.75), Line(Teal, {{1, 11.5}, {4, 11.5}}, 2),
                    Line(Teal, {{12, 10.5}, {15, 10.5}}, 2)}},
        {RowIcon::Roadway,
         Edged(Gray, LightGray, {{6, 1.5}, {10, 1.5}, {14.5, 14}, {1.5, 14}}, 1.25) +
             Shapes{Area(Red, Box(7, 3, 9, 5)), Area(Red, Box(7, 7, 9, 9)), Area(Red, Box(7, 11, 9, 13))}},
    };
}

Pictures ValuePictures() {
    return {
        {RowIcon::Text,
         {Line(Gray, {{3, 4.5}, {13, 4.5}}, 1), Line(Gray, {{3, 7.5}, {13, 7.5}}, 1),
          Line(Gray, {{3, 10.5}, {9, 10.5}}, 1)}},
        {RowIcon::Number,
         {Line(Blue, {{6.75, 2.5}, {4.75, 13.5}}, 1.25), Line(Blue, {{11.25, 2.5}, {9.25, 13.5}}, 1.25),
          Line(Blue, {{3, 6.5}, {13.5, 6.5}}, 1), Line(Blue, {{2.5, 9.5}, {13, 9.5}}, 1)}},
        {RowIcon::Measure,
         {Line(Blue, {{1.5, 4}, {1.5, 11}}, 1), Line(Blue, {{14.5, 4}, {14.5, 11}}, 1),
          Line(Blue, {{3, 7.5}, {13, 7.5}}, 1), Line(Blue, {{5.5, 5}, {3, 7.5}, {5.5, 10}}, 1),
          Line(Blue, {{10.5, 5}, {13, 7.5}, {10.5, 10}}, 1)}},
        {RowIcon::Percent,
         {Line(Blue, {{12.5, 3}, {3.5, 13}}, 1.25), Disc(Blue, {4.75, 4.75}, 2.25),
          Disc(White, {4.75, 4.75}, 1), Disc(Blue, {11.25, 11.25}, 2.25), Disc(White, {11.25, 11.25}, 1)}},
        {RowIcon::Station,
         {Line(Blue, {{1.5, 12.5}, {14.5, 12.5}}, 1), Line(Blue, {{4.5, 2}, {4.5, 12}}, 1),
          Area(Blue, {{4.5, 2}, {12.5, 4.75}, {4.5, 7.5}})}},
        {RowIcon::Angle,
         {Line(Blue, {{11.5, 2.5}, {2.5, 12.5}, {14, 12.5}}, 1), Line(Blue, Arc({2.5, 12.5}, 7, -48, 0), 1)}},
        {RowIcon::Date, Edged(Blue, White, Box(2.5, 3.5, 13.5, 13.5)) +
                            Shapes{Area(Blue, Box(2.5, 3.5, 13.5, 6.5)), Line(Blue, {{5.5, 2}, {5.5, 4}}, 1),
                                   Line(Blue, {{10.5, 2}, {10.5, 4}}, 1), Area(Blue, Box(5, 8, 7, 9)),
                                   Area(Blue, Box(9, 8, 11, 9)), Area(Blue, Box(5, 11, 7, 12))}},
        {RowIcon::Flag, Edged(Gray, White, Box(2.5, 2.5, 13.5, 13.5)) +
                            Shapes{Line(Green, {{5, 8}, {7.25, 10.5}, {11.25, 5.25}}, 1.75)}},
        {RowIcon::Choice,
         {Disc(Blue, {3.5, 3.5}, 1.5), Disc(Gray, {3.5, 7.5}, 1.5), Disc(Gray, {3.5, 11.5}, 1.5),
          Line(Blue, {{7, 3.5}, {13.5, 3.5}}, 1), Line(Gray, {{7, 7.5}, {13.5, 7.5}}, 1),
          Line(Gray, {{7, 11.5}, {13.5, 11.5}}, 1)}},
        {RowIcon::File,
         Sheet() + Shapes{Line(Blue, {{6, 7.5}, {10, 7.5}}, 1), Line(Blue, {{6, 10.5}, {10, 10.5}}, 1)}},
        {RowIcon::Color, {Disc(Red, {8, 5}, 3.5), Disc(Green, {5, 10.5}, 3.5), Disc(Blue, {11, 10.5}, 3.5)}},
        {RowIcon::Point,
         {Line(Green, {{7.5, 2.5}, {7.5, 12.5}}, 1), Line(Green, {{2.5, 7.5}, {12.5, 7.5}}, 1),
          Disc(Green, {7.5, 7.5}, 2)}},
        {RowIcon::Face, Triangle(Green, LightGreen)},
        {RowIcon::Invalid, Edged(Red, LightAmber, {{8, 1.75}, {14.5, 13.5}, {1.5, 13.5}}, 1.25) +
                               Shapes{Area(Red, Box(7, 6, 9, 10)), Area(Red, Box(7, 11, 9, 12.5))}},
    };
}

CImageList MakePictures() {
    Pictures pictures = DocumentPictures();
    for (Pictures part : {AlignmentPictures(), GroundPictures(), BuildingPictures(), ValuePictures()})
        pictures.merge(part);
    CImageList images(Size, Size);
    for (int icon = 0; icon < static_cast<int>(RowIcon::Count); ++icon)
        images.Add(DrawIcon(pictures.at(static_cast<RowIcon>(icon))));
    return images;
}

} // namespace

const CImageList& RowIconPictures() {
    static const CImageList pictures = MakePictures();
    return pictures;
}

} // namespace korvel::inspector
