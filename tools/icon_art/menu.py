# SPDX-License-Identifier: MIT
"""The icons of menu items: programs, addresses and searches."""

from icon_art.glyphs import AMBER, BLUE, GREEN, PAPER, SLATE, TEAL, VIOLET
from icon_art.shapes import (
    circle,
    curve,
    ellipse,
    hole,
    mirrored,
    polygon,
    rect,
    rounded_rect,
    stroke,
)


def execute(c):
    """A program window and a start button."""
    line = c.width(0.75)
    left, right, top, bottom = c.at(0), c.at(14), c.at(1), c.at(13)
    caption = top + c.width(3)
    c.fill(rounded_rect(left, top, right, bottom, 1), SLATE)
    c.fill(rect(left + line, caption, right - line, bottom - line), PAPER)
    c.erase(circle(11, 11, 5.8))
    c.fill(circle(11, 11, 4.9), ("#3fb565", "#23854a"))
    c.fill(polygon((9.6, 8.4), (9.6, 13.6), (13.9, 11)), "#ffffff")


def url(c):
    """A globe."""
    line = c.width(0.8)
    c.fill(circle(8, 8, 7.8), "#1d5f9f")
    globe = circle(8, 8, 7.8 - line)
    c.fill(globe, ("#55abe8", BLUE))
    for y in (5, 10):
        c.fill(rect(0, c.at(y), 16, c.at(y) + line), "#ffffff", clip=globe)
    meridian = ellipse(8, 8, 3.6, 7.8) + hole(ellipse(8, 8, 3.6 - line, 7.8))
    c.fill(meridian, "#ffffff", clip=globe)


def search_one(c):
    _magnifier(c, BLUE, ("#eaf4ff", "#b9dafa"), AMBER)


def search_two(c):
    _magnifier(c, VIOLET, ("#f6efff", "#d9c4f2"), GREEN, mirror=True)


def encyclopedia(c):
    """An open book."""
    line = c.width(0.75)
    left, middle, top, bottom = c.at(0), c.at(8), c.at(2), c.at(13)
    for flip in (False, True):

        def put(shape, colour):
            c.fill(mirrored(shape, middle) if flip else shape, colour)

        put(rect(left, top + c.px(1), middle, bottom + c.width(1)), TEAL)
        page = _page(left + line, middle, top, bottom)
        put(page, SLATE)
        put(_page(left + 2 * line, middle - line / 2, top + line, bottom - line), PAPER)
        for y, end in ((5, 6), (7, 6), (9, 5)):
            put(rect(c.at(3), c.at(y), c.at(end), c.at(y) + c.width(0.8)), SLATE)


def developer_docs(c):
    """Code brackets under a magnifier."""
    _magnifier(c, TEAL, ("#ffffff", "#dff0f0"), SLATE)
    for flip in (False, True):
        bracket = stroke([(5.7, 4.4), (3.7, 6.6), (5.7, 8.8)], max(c.px(1.2), 1.1))
        c.fill(mirrored(bracket, 6.6) if flip else bracket, "#1c4a86")


def _page(x0, x1, top, bottom):
    """The left page, swelling towards the spine."""
    edge = curve((x0, top), (x0 + 3, top - 0.8), (x1 - 1.5, top - 0.2), (x1, top + 1.2))
    foot = curve((x1, bottom + 0.8), (x1 - 1.5, bottom - 0.6), (x0 + 3, bottom - 0.8), (x0, bottom))
    return polygon(*edge, *foot)


def _magnifier(c, rim, glass, handle, mirror=False):
    def put(shape, colour):
        c.fill(mirrored(shape, 8) if mirror else shape, colour)

    put(stroke([(10.4, 10.4), (14.2, 14.2)], 3.2, round_ends=True), handle)
    put(circle(6.6, 6.6, 6.2), rim)
    put(circle(6.6, 6.6, 6.2 - c.width(1.5)), glass)
