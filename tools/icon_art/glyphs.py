# SPDX-License-Identifier: MIT
"""What several icons share: the colours and the sheet of paper."""

from icon_art.shapes import polygon, rect

# Middle tones: each stands out from white as well as from black.
SLATE = "#647a92"
BLUE = "#2a78c8"
TEAL = "#178a8e"
GREEN = "#2a9a4c"
RED = "#d5433a"
AMBER = "#dd8f1a"
VIOLET = "#8057b5"

PAPER = ("#ffffff", "#e9eef4")


def sheet(c, x0, y0, x1, y1, fold=0.0, edge=SLATE, paper=PAPER):
    """A sheet with an edge one pixel line wide, its top right corner folded down."""
    line = c.width(0.75)
    x0, y0, x1, y1, fold = c.at(x0), c.at(y0), c.at(x1), c.at(y1), c.at(fold)
    c.fill(polygon((x0, y0), (x1 - fold, y0), (x1, y0 + fold), (x1, y1), (x0, y1)), edge)
    cut = max(0.0, fold - line * 0.42)
    inner = ((x0 + line, y0 + line), (x1 - line - cut, y0 + line), (x1 - line, y0 + line + cut))
    c.fill(polygon(*inner, (x1 - line, y1 - line), (x0 + line, y1 - line)), paper)
    if fold:
        c.fill(polygon((x1 - fold, y0), (x1, y0 + fold), (x1 - fold, y0 + fold)), edge)


def text_line(c, x0, x1, y, colour, width=1.0):
    """A line of text: its left, right and upper edge."""
    top = c.at(y)
    c.fill(rect(c.at(x0), top, c.at(x1), top + c.width(width)), colour)
