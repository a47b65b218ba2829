#!/usr/bin/env python3
"""Draws the pictures of the inspector's lists: python3 host/pictures/draw_pictures.py

One folder for each list, one picture for each of its words that has one. Curves of transition are shown by
their curvature over their length, from straight (left) to the arc (right).
"""

import math
import pathlib
import struct
import zlib

WIDTH, HEIGHT, SCALE = 160, 100, 3  # drawn larger by SCALE, so that lines are smooth
BACKGROUND, AXIS, LINE = (255, 255, 255), (176, 176, 176), (20, 80, 160)


class Picture:
    def __init__(self):
        self.rows = [[BACKGROUND] * (WIDTH * SCALE) for _ in range(HEIGHT * SCALE)]

    def dot(self, x, y, color, radius):
        for row in range(int((y - radius) * SCALE), int((y + radius) * SCALE) + 1):
            for column in range(int((x - radius) * SCALE), int((x + radius) * SCALE) + 1):
                inside = math.hypot(column / SCALE - x, row / SCALE - y) <= radius
                if inside and 0 <= row < len(self.rows) and 0 <= column < len(self.rows[0]):
                    self.rows[row][column] = color

    def polyline(self, points, color=LINE, radius=1.2):
        for (x0, y0), (x1, y1) in zip(points, points[1:]):
            steps = max(1, int(math.hypot(x1 - x0, y1 - y0) * SCALE))
            for step in range(steps + 1):
                part = step / steps
                self.dot(x0 + (x1 - x0) * part, y0 + (y1 - y0) * part, color, radius)

    def pixel(self, x, y):
        block = [self.rows[y * SCALE + j][x * SCALE + i] for i in range(SCALE) for j in range(SCALE)]
        return bytes(sum(channel) // len(block) for channel in zip(*block))

    def write(self, path):
        path.parent.mkdir(parents=True, exist_ok=True)
        raw = b"".join(b"\0" + b"".join(self.pixel(x, y) for x in range(WIDTH)) for y in range(HEIGHT))
        header = struct.pack(">IIBBBBB", WIDTH, HEIGHT, 8, 2, 0, 0, 0)
        chunks = ((b"IHDR", header), (b"IDAT", zlib.compress(raw, 9)), (b"IEND", b""))
        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n")
            for name, data in chunks:
                file.write(struct.pack(">I", len(data)) + name + data)
                file.write(struct.pack(">I", zlib.crc32(name + data)))


def curvature(function):
    picture = Picture()
    picture.polyline([(15, 10), (15, 85), (150, 85)], AXIS, 0.6)
    points = [(15 + 100 * s / 50, 85 - 60 * function(s / 50)) for s in range(51)]
    picture.polyline(points + [(145, 25)])
    return picture


def turn(direction):
    picture = Picture()
    arc = [(80 - direction * 45 * math.cos(a / 40 * math.pi), 75 - 50 * math.sin(a / 40 * math.pi))
           for a in range(35)]
    (x0, y0), (x1, y1) = arc[-2:]
    picture.polyline(arc)
    heading = math.atan2(y1 - y0, x1 - x0)
    for side in (-0.5, 0.5):
        picture.polyline([(x1, y1), (x1 - 14 * math.cos(heading + side), y1 - 14 * math.sin(heading + side))])
    return picture


def surface(lines):
    picture = Picture()
    for part in lines:
        picture.polyline(part)
    return picture


def biquadratic(s):
    return 2 * s * s if s <= 0.5 else 1 - 2 * (1 - s) ** 2


TRIANGLES = [[(15, 80), (50, 20), (80, 70), (15, 80)], [(50, 20), (115, 15), (80, 70)],
             [(115, 15), (145, 75), (80, 70)]]
GRID = ([[(20 + 30 * i, 10), (20 + 30 * i, 90)] for i in range(5)] +
        [[(20, 10 + 20 * i), (140, 10 + 20 * i)] for i in range(5)])

PICTURES = {
    "Spiral-spiType/clothoid": curvature(lambda s: s),
    "Spiral-spiType/bloss": curvature(lambda s: 3 * s ** 2 - 2 * s ** 3),
    "Spiral-spiType/cosine": curvature(lambda s: (1 - math.cos(math.pi * s)) / 2),
    "Spiral-spiType/sinusoid": curvature(lambda s: s - math.sin(2 * math.pi * s) / (2 * math.pi)),
    "Spiral-spiType/biquadratic": curvature(biquadratic),
    "rot/cw": turn(1),
    "rot/ccw": turn(-1),
    "Definition-surfType/TIN": surface(TRIANGLES),
    "Definition-surfType/grid": surface(GRID),
}

if __name__ == "__main__":
    for name, picture in PICTURES.items():
        picture.write(pathlib.Path(__file__).parent / (name + ".png"))
