#!/usr/bin/env python3
"""Writes a LandXML file with one terrain of the wanted size, for trying things out by hand and for measuring.

    scripts/make_terrain.py 4 terrain-4mb.xml       # about 4 MB
    scripts/make_terrain.py 100 terrain-100mb.xml   # about 100 MB

The points lie on a grid of one metre over a hilly ground; every square is two faces. The same size always
gives the same bytes.
"""

import argparse
import math
import random

HEAD = """<?xml version="1.0" encoding="UTF-8"?>
<LandXML xmlns="http://www.landxml.org/schema/LandXML-1.2" date="2024-05-17" time="08:30:00" version="1.2">
  <Units>
    <Metric areaUnit="squareMeter" linearUnit="meter" volumeUnit="cubicMeter" temperatureUnit="celsius"
            pressureUnit="milliBars" angularUnit="decimal degrees" directionUnit="decimal degrees"/>
  </Units>
  <Project name="Terrain"/>
  <Application name="make_terrain"/>
  <Surfaces>
    <Surface name="Ground" desc="grid of {columns} by {rows} points">
      <Definition surfType="TIN" elevMin="{low:.3f}" elevMax="{high:.3f}">
"""
TAIL = """      </Definition>
    </Surface>
  </Surfaces>
</LandXML>
"""
NORTH, EAST = 6674007.758, 3512838.25
BYTES_PER_POINT = 130  # about: one point with the two faces of its square


def elevation(row, column, noise):
    return 120 + 15 * math.sin(row / 40) * math.cos(column / 55) + noise.uniform(-0.05, 0.05)


def write_terrain(out, megabytes):
    points = megabytes * 1_000_000 / BYTES_PER_POINT
    rows = max(2, round(math.sqrt(points)))
    columns = max(2, round(points / rows))
    out.write(HEAD.format(columns=columns, rows=rows, low=104.9, high=135.1))
    noise = random.Random(1)
    out.write("        <Pnts>\n")
    for row in range(rows):
        out.writelines(
            f'          <P id="{row * columns + column + 1}">{NORTH + row:.3f} {EAST + column:.3f} '
            f"{elevation(row, column, noise):.3f}</P>\n"
            for column in range(columns))
    out.write("        </Pnts>\n        <Faces>\n")
    for row in range(rows - 1):
        for column in range(columns - 1):
            first = row * columns + column + 1
            above = first + columns
            out.write(f"          <F>{first} {first + 1} {above}</F>\n"
                      f"          <F>{first + 1} {above + 1} {above}</F>\n")
    out.write("        </Faces>\n" + TAIL)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("megabytes", type=float)
    parser.add_argument("file")
    arguments = parser.parse_args()
    with open(arguments.file, "w", encoding="ascii") as out:
        write_terrain(out, arguments.megabytes)


if __name__ == "__main__":
    main()
