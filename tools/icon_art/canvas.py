# SPDX-License-Identifier: MIT
"""A small anti-aliased painter: contours in, 8-bit RGBA pixels out."""

import math

GRID = 16


class Canvas:
    """A square picture. Shapes are given in units of a 16 by 16 grid, whatever the pixel size."""

    def __init__(self, size):
        self.size = size
        self.scale = size / GRID
        self._pixels = [0.0] * (size * size * 4)  # premultiplied, 0 to 1

    def at(self, value):
        """The grid coordinate nearest to `value` that lies between two pixels."""
        return math.floor(value * self.scale + 0.5) / self.scale

    def width(self, value):
        """`value` as a whole number of pixels, at least one."""
        return max(1, math.floor(value * self.scale + 0.5)) / self.scale

    def px(self, count=1):
        """The size of `count` pixels in grid units."""
        return count / self.scale

    def fill(self, contours, colour, clip=None, opacity=1.0):
        """Paints the union of the contours.

        `colour` is "#rrggbb" or a pair of them, a gradient from the top of the shape to its bottom.
        `clip` keeps the paint inside other contours.
        """
        top, bottom = (colour, colour) if isinstance(colour, str) else colour
        first, last = _rgb(top), _rgb(bottom)
        heights = [y * self.scale for contour in contours for _, y in contour]
        y_min, y_max = min(heights), max(heights)
        for y, x, cover in self._covered(contours, clip):
            alpha = cover * opacity
            part = min(1.0, max(0.0, (y + 0.5 - y_min) / (y_max - y_min)))
            at = (y * self.size + x) * 4
            pixels = self._pixels
            for i in range(3):
                value = first[i] + (last[i] - first[i]) * part
                pixels[at + i] = value * alpha + pixels[at + i] * (1 - alpha)
            pixels[at + 3] = alpha + pixels[at + 3] * (1 - alpha)

    def erase(self, contours):
        """Makes the inside of the contours transparent again."""
        for y, x, cover in self._covered(contours, None):
            at = (y * self.size + x) * 4
            for i in range(4):
                self._pixels[at + i] *= 1 - cover

    def rgba(self):
        """The picture as bytes, row by row from the top, alpha not multiplied in."""
        out = bytearray()
        for at in range(0, len(self._pixels), 4):
            alpha = self._pixels[at + 3]
            level = math.floor(alpha * 255 + 0.5)
            if level == 0:
                out += b"\0\0\0\0"
                continue
            for i in range(3):
                out.append(min(255, math.floor(self._pixels[at + i] / alpha * 255 + 0.5)))
            out.append(level)
        return bytes(out)

    def _covered(self, contours, clip):
        cover = self._coverage(contours)
        inside = None if clip is None else self._coverage(clip)
        for y, row in cover.items():
            clip_row = None if inside is None else inside.get(y)
            if inside is not None and clip_row is None:
                continue
            for x, value in enumerate(row):
                if value <= 0:
                    continue
                value = min(1.0, value)
                if clip_row is not None:
                    value *= min(1.0, max(0.0, clip_row[x]))
                if value > 1 / 1024:
                    yield y, x, value

    def _coverage(self, contours):
        """Rows of coverage by the non-zero rule: exact across, sampled on fine lines down."""
        fine = 16 if self.size < 128 else 6
        crossings = {}
        for contour in contours:
            for (xa, ya), (xb, yb) in zip(contour, contour[1:] + contour[:1]):
                xa, ya, xb, yb = (v * self.scale for v in (xa, ya, xb, yb))
                if ya == yb:
                    continue
                turn = 1
                if ya > yb:
                    xa, ya, xb, yb, turn = xb, yb, xa, ya, -1
                first = max(0, math.ceil(ya * fine - 0.5))
                last = min(self.size * fine, math.ceil(yb * fine - 0.5))
                slope = (xb - xa) / (yb - ya)
                for line in range(first, last):
                    x = xa + ((line + 0.5) / fine - ya) * slope
                    crossings.setdefault(line, []).append((x, turn))
        rows = {}
        for line in sorted(crossings):
            row = rows.setdefault(line // fine, [0.0] * self.size)
            winding = 0
            start = 0.0
            for x, turn in sorted(crossings[line]):
                if winding == 0:
                    start = x
                winding += turn
                if winding == 0:
                    _add_span(row, max(0.0, start), min(float(self.size), x), 1 / fine)
        return rows


def _add_span(row, start, end, weight):
    if end <= start:
        return
    first, last = int(start), int(end)
    if first == last:
        row[first] += (end - start) * weight
        return
    row[first] += (first + 1 - start) * weight
    for x in range(first + 1, last):
        row[x] += weight
    if last < len(row):
        row[last] += (end - last) * weight


def _rgb(colour):
    return tuple(int(colour[i : i + 2], 16) / 255 for i in (1, 3, 5))
