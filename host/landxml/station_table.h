#pragma once

#include "source/element_tree.h"

#include <string>

namespace korvel::inspector {

class LandXmlDocument;

/// The stations of an alignment as a table for a spreadsheet, in the library's texts and in the language of
/// the process: where it starts, where each element of its geometry begins, where it ends, and its station
/// equations.
///
///     "Name\tStation\tBack\tAhead\n"
///     "Start\t0+000.000\t\t\n"
///     "Line 1\t0+000.000\t\t\n"
///     "Curve 1\t0+120.500\t\t\n"
///     "End\t0+250.000\t\t\n"
///     "StaEquation\t0+100.000\t0+100.000\t0+200.000"
///
/// Stations are internal ones, as everywhere in the file. Where an element does not say where it begins, it
/// begins after the lengths before it; a cell is empty where one of those is neither in the file nor known
/// from the points of a line or a curve.
std::string StationTable(LandXmlDocument& document, ElementIndex alignment);

} // namespace korvel::inspector
