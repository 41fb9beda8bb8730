# SPDX-License-Identifier: MIT
"""The icons of the history pane: its toolbar, its rows and their marks."""

from icon_art.glyphs import AMBER, BLUE, GREEN, PAPER, RED, SLATE, TEAL, sheet, text_line
from icon_art.shapes import circle, hole, mirrored, polygon, rect, rounded_rect, stroke, turned


def close(c):
    a, b = c.at(3.5), c.at(12.5)
    for line in ([(a, a), (b, b)], [(a, b), (b, a)]):
        c.fill(stroke(line, 2.4, round_ends=True), RED)


def minimize(c):
    """The pane rolled up to its caption."""
    c.fill(rect(c.at(2), c.at(3), c.at(14), c.at(3) + c.width(3)), BLUE)
    top = c.at(8)
    c.fill(polygon((8, top), (c.at(13), top + c.at(5)), (c.at(3), top + c.at(5))), SLATE)


def restore(c):
    """The pane rolled down again."""
    line = c.width(1)
    left, right, top, bottom = c.at(2), c.at(14), c.at(2), c.at(14)
    caption = top + c.width(3)
    c.fill(rect(left, top, right, bottom), SLATE)
    c.fill(rect(left + line, caption, right - line, bottom - line), PAPER)
    c.fill(rect(left, top, right, caption), BLUE)
    y = c.at(6.5)
    c.fill(polygon((c.at(4), y), (c.at(12), y), (8, y + 4.5)), SLATE)


def edit(c):
    """A pencil."""
    pencil = (
        (rect(5.9, 1.6, 10.1, 4), RED),
        (rect(5.9, 3.6, 10.1, 5), SLATE),
        (rect(5.9, 5, 10.1, 12), AMBER),
        (rect(5.9, 5, 7.4, 12), "#f3b950"),
        (polygon((5.9, 12), (10.1, 12), (8, 16.4)), "#e9c08d"),
        (polygon((7.05, 14.3), (8.95, 14.3), (8, 16.4)), "#3c4a5a"),
    )
    for shape, colour in pencil:
        c.fill(turned(shape, 8, 8.6, 45), colour)


def copy(c):
    sheet(c, 1, 1, 10, 12, fold=3, paper="#d7e4f3", edge=BLUE)
    sheet(c, 5, 4, 15, 16, fold=3)
    for y, right in ((8, 12.5), (10, 13), (12, 11)):
        text_line(c, 7, right, y, BLUE)


def keep(c):
    """A clipboard whose content is taken in."""
    c.fill(rounded_rect(c.at(2), c.at(2), c.at(13), c.at(16), 1), "#a8702a")
    c.fill(rect(c.at(4), c.at(4), c.at(11), c.at(14)), PAPER)
    c.fill(rounded_rect(c.at(5), c.at(0), c.at(10), c.at(4), 1), SLATE)
    tick = [(6.6, 10.2), (9.3, 12.9), (14.6, 6.8)]
    c.erase(stroke(tick, 4, round_ends=True))
    c.fill(stroke(tick, 2.2, round_ends=True), GREEN)


def pin(c):
    """A drawing pin stuck in."""
    parts = (
        (stroke([(8, 10), (8, 16.4)], 1.5), SLATE),
        (rounded_rect(4.6, 0.4, 11.4, 3, 0.8), RED),
        (polygon((6, 3), (10, 3), (10.4, 7), (5.6, 7)), "#b9322b"),
        (polygon((5.6, 7), (10.4, 7), (12.4, 9.2), (12.4, 10.4), (3.6, 10.4), (3.6, 9.2)), RED),
    )
    for shape, colour in parts:
        c.fill(turned(shape, 8, 8, 40), colour)


def hovered_row(c):
    """Copying by a click: two sheets and the pointer."""
    sheet(c, 0, 0, 9, 10, edge=TEAL, paper="#bfe3e1")
    sheet(c, 3, 3, 13, 15, edge=TEAL, paper=("#ffffff", "#e2f3f2"))
    for y, right in ((5, 11), (7, 9)):
        text_line(c, 5, right, y, TEAL)
    x, y = c.at(8), c.at(6.5)
    pointer = [(0, 0), (0, 8), (2, 6.2), (3.4, 9), (5.2, 8.1), (3.9, 5.5), (6.6, 5.3)]
    pointer = [(x + px * 1.05, y + py * 0.95) for px, py in pointer]
    c.fill(stroke(pointer, 1.5, closed=True), "#2b3a4c")
    c.fill(polygon(*pointer), "#ffffff")


def protected(c):
    """A padlock."""
    left, right, top, bottom = c.at(3), c.at(13), c.at(7), c.at(15)
    c.fill(_bow(c, 0) + hole(_bow(c, c.width(1.7))), SLATE)
    line = c.width(0.6)
    c.fill(rounded_rect(left, top, right, bottom, 1.2), "#9a5f06")
    front = rounded_rect(left + line, top + line, right - line, bottom - line, 0.8)
    c.fill(front, ("#ffc24a", AMBER))
    c.fill(circle(8, 10.2, 1.35) + polygon((7.4, 10), (8.6, 10), (9, 13), (7, 13)), "#6b3f00")


def formatted_text(c):
    sheet(c, 2, 0, 14, 16, fold=4)
    c.fill(_letter_a(c), BLUE)
    text_line(c, 9, 12, 6, AMBER)
    text_line(c, 9, 12, 8, SLATE)
    text_line(c, 4, 12, 11, RED)
    text_line(c, 4, 10, 13, GREEN)


def _bow(c, inset):
    left, right = c.at(4) + inset, c.at(12) - inset
    round_top = (right - left) / 2
    return rounded_rect(left, c.at(1) + inset, right, 8, (round_top, round_top, 0, 0))


def _letter_a(c):
    foot, top, middle = c.at(9), c.at(3), 6.1
    leg = polygon((3.6, foot), (5.1, foot), (6.85, top), (5.45, top))
    bar = rect(4.9, c.at(6.6), 7.3, c.at(6.6) + c.width(0.9))
    return leg + mirrored(leg, middle) + bar
