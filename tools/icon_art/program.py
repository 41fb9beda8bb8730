# SPDX-License-Identifier: MIT
"""The program's mark: a V of vellum, the tower of a bridge, on a red deck over a stone arch."""

import math
from collections import namedtuple

from icon_art.shapes import arc, polygon, rect, rounded_rect, stroke

Palette = namedtuple("Palette", "edge sky vellum vellum_back deck stone rim water")

NORMAL = Palette(
    edge="#0f4c62",
    sky=("#2f9faa", "#17708a"),
    vellum=("#fff8e6", "#fbe9bf"),
    vellum_back=("#f3dca6", "#fbe9bf"),
    deck="#e4573a",
    stone=("#fdeecb", "#efd59a"),
    rim="#d0a860",
    water="#1b6f8c",
)
OFF = Palette(
    edge="#555555",
    sky=("#a2a2a2", "#7c7c7c"),
    vellum=("#fafafa", "#ececec"),
    vellum_back=("#dcdcdc", "#ececec"),
    deck="#5c5c5c",
    stone=("#ececec", "#d2d2d2"),
    rim="#b4b4b4",
    water="#858585",
)
BLINK = Palette(
    edge="#9a4200",
    sky=("#ffb53d", "#f2820f"),
    vellum=("#fffdf4", "#fff3d0"),
    vellum_back=("#ffe6a8", "#fff3d0"),
    deck="#c22f10",
    stone=("#fff5da", "#ffe3a4"),
    rim="#f3bd62",
    water="#ee8418",
)


def program(c):
    _mark(c, NORMAL)


def program_off(c):
    _mark(c, OFF)


def tray_blink(c):
    _mark(c, BLINK)


def _mark(c, palette):
    line = c.width(0.5)
    tile = rounded_rect(line, line, 16 - line, 16 - line, 2.4 - line)
    c.fill(rounded_rect(0, 0, 16, 16, 2.4), palette.edge)
    c.fill(tile, palette.sky)

    deck_top = c.at(9)
    deck_bottom = deck_top + c.width(1.6)
    c.fill(rect(0, deck_bottom, 16, 16), palette.stone, clip=tile)
    _arches(c, palette, tile)

    top = c.at(2)
    left, right = c.at(2.5), c.at(13.5)
    if c.size >= 32:
        _cables(c, left, right, top, deck_top, palette, tile)
    thin = polygon((right - 1.7, top), (right, top), (8.9, deck_top), (7.3, deck_top))
    thick = polygon((left, top), (left + 3, top), (8.9, deck_top), (6.3, deck_top))
    c.fill(thin, palette.vellum_back)
    c.fill(thick, palette.vellum)
    c.fill(rect(0, deck_top, 16, deck_bottom), palette.deck, clip=tile)


def _arches(c, palette, tile):
    span = c.at(4)
    # At the smallest sizes the side arches would be two stray pixels.
    centres = (8,) if c.size < 24 else (8, -2, 18)
    for x in centres:
        if c.size >= 32:
            c.fill(polygon(*arc(x, 16, span + 0.5, 180, 360)), palette.rim, clip=tile)
        c.fill(polygon(*arc(x, 16, span, 180, 360)), palette.water, clip=tile)


def _cables(c, left, right, top, deck, palette, tile):
    width = max(c.px(), 0.22)
    for step in range(3):
        down = top + 0.5 + step * 1.75
        part = (down - top) / (deck - top)
        for outer, inner, foot in ((left + 0.3, 6.3, 1), (right - 0.3, 8.9, 15)):
            start = (outer + (inner - outer) * part, down)
            end = (foot + math.copysign(step * 1.6, 8 - foot), deck)
            c.fill(stroke([start, end], width), palette.vellum[1], clip=tile, opacity=0.75)
