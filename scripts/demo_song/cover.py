# SPDX-License-Identifier: MIT
"""The cover: a star over a hill at night, drawn point by point and written as a PNG."""

import math
import random
import struct
import zlib

SIZE = 320


def _mix(low, high, share):
    return tuple(a + (b - a) * share for a, b in zip(low, high))


def _star_edge(x, y, radius, inner):
    """How far inside a five-pointed star round (0, 0) a point lies, in pixels."""
    step = math.pi / 5.0
    angle = math.atan2(x, -y) % (2.0 * step)
    if angle > step:
        angle = 2.0 * step - angle
    distance = math.hypot(x, y)
    px, py = distance * math.sin(angle), distance * math.cos(angle)
    ex, ey = inner * math.sin(step), inner * math.cos(step) - radius
    length = math.hypot(ex, ey)
    return -(px * -ey + (py - radius) * ex) / length


def _small_stars():
    place = random.Random(1806)
    return [(place.uniform(8, SIZE - 8), place.uniform(8, SIZE * 0.66), place.uniform(0.7, 1.7))
            for _ in range(46)]


def _sky(y):
    return _mix((16, 20, 58), (86, 74, 140), (y / SIZE) ** 1.4)


def _hill(x):
    return SIZE * 0.84 - 26.0 * math.sin(math.pi * (x / SIZE) ** 0.8)


def _point(x, y, stars):
    colour = _sky(y)
    for sx, sy, size in stars:
        reach = size + 0.5 - math.hypot(x - sx, y - sy)
        if reach > 0:
            colour = _mix(colour, (236, 238, 255), min(reach, 1.0) * 0.85)
    dx, dy = x - SIZE / 2, y - SIZE * 0.42
    glow = max(0.0, 1.0 - math.hypot(dx, dy) / 130.0)
    colour = _mix(colour, (255, 214, 120), 0.45 * glow * glow)
    inside = _star_edge(dx, dy, 78.0, 34.0)
    colour = _mix(colour, (255, 222, 110), min(max(inside + 0.5, 0.0), 1.0))
    return _mix(colour, (14, 22, 34), min(max(y - _hill(x) + 0.5, 0.0), 1.0))


def _chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def png():
    """The picture as the bytes of a PNG file, 8-bit RGB, `SIZE` pixels a side."""
    stars = _small_stars()
    rows, above = bytearray(), bytes(3 * SIZE)
    for y in range(SIZE):
        near = [star for star in stars if abs(star[1] - y) < 4]
        row = bytes(round(value) for x in range(SIZE) for value in _point(x, y, near))
        rows.append(2)  # filter "Up": rows of a sky differ little from the one above
        rows += bytes((a - b) & 0xFF for a, b in zip(row, above))
        above = row
    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + _chunk(b"IHDR", header)
            + _chunk(b"IDAT", zlib.compress(bytes(rows), 9)) + _chunk(b"IEND", b""))
