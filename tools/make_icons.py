#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws every icon of the program into src/resources/icons.

With --sheet FILE it writes one PNG instead that shows all of them, enlarged, on four backgrounds.
"""

import argparse
import pathlib

from icon_art import menu, pane, program
from icon_art.canvas import Canvas
from icon_art.files import ico, png

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "src" / "resources" / "icons"
SIZES = (16, 20, 24, 32, 48, 256)
TOOLBAR_SIZES = (14,) + SIZES

ICONS = (
    ("program", program.program, SIZES),
    ("program_off", program.program_off, SIZES),
    ("tray_blink", program.tray_blink, SIZES),
    ("execute", menu.execute, SIZES),
    ("protected", pane.protected, SIZES),
    ("pane_close", pane.close, TOOLBAR_SIZES),
    ("pane_minimize", pane.minimize, TOOLBAR_SIZES),
    ("pane_edit", pane.edit, TOOLBAR_SIZES),
    ("pane_copy", pane.copy, TOOLBAR_SIZES),
    ("pane_restore", pane.restore, TOOLBAR_SIZES),
    ("formatted_text", pane.formatted_text, SIZES),
    ("pane_keep", pane.keep, TOOLBAR_SIZES),
    ("search_one", menu.search_one, SIZES),
    ("search_two", menu.search_two, SIZES),
    ("url", menu.url, SIZES),
    ("encyclopedia", menu.encyclopedia, SIZES),
    ("developer_docs", menu.developer_docs, SIZES),
    ("pane_pin", pane.pin, TOOLBAR_SIZES),
    ("hovered_row", pane.hovered_row, SIZES),
)

SHEET_SIZES = (16, 24, 32, 48)
SHEET_GROUNDS = ((255, 255, 255), (222, 222, 222), (0, 0, 0), (10, 63, 143))
SHEET_ZOOM = 4
SHEET_GAP = 16


def draw(drawing, size):
    canvas = Canvas(size)
    drawing(canvas)
    return canvas.rgba()


def write_icons():
    FOLDER.mkdir(parents=True, exist_ok=True)
    for name, drawing, sizes in ICONS:
        data = ico([(size, draw(drawing, size)) for size in sizes])
        (FOLDER / f"{name}.ico").write_bytes(data)


def write_sheet(path, names, sizes, zoom):
    chosen = [(name, drawing) for name, drawing, _ in ICONS if not names or name in names]
    row_height = max(sizes) * zoom + SHEET_GAP
    width = (sum(sizes) * zoom + SHEET_GAP * len(sizes)) * len(SHEET_GROUNDS)
    picture = bytearray()
    for _, drawing in chosen:
        pictures = [(size, draw(drawing, size)) for size in sizes]
        for line in range(row_height):
            y = (line - SHEET_GAP // 2) // zoom
            for ground in SHEET_GROUNDS:
                for size, rgba in pictures:
                    picture += _sheet_cell_row(size, rgba, y, zoom, ground)
    pathlib.Path(path).write_bytes(png(width, row_height * len(chosen), bytes(picture)))


def _sheet_cell_row(size, rgba, y, zoom, ground):
    empty = bytes(ground + (255,))
    if not 0 <= y < size:
        return empty * (size * zoom + SHEET_GAP)
    row = bytearray()
    for x in range(size):
        at = (y * size + x) * 4
        alpha = rgba[at + 3]
        mixed = [(rgba[at + i] * alpha + ground[i] * (255 - alpha)) // 255 for i in range(3)]
        row += bytes(mixed + [255]) * zoom
    margin = empty * (SHEET_GAP // 2)
    return margin + bytes(row) + margin


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--sheet", metavar="FILE", help="write a contact sheet instead")
    parser.add_argument("--only", metavar="NAME", nargs="+", help="icons of the sheet")
    parser.add_argument("--sizes", metavar="N", nargs="+", type=int, default=SHEET_SIZES)
    parser.add_argument("--zoom", metavar="N", type=int, default=SHEET_ZOOM)
    options = parser.parse_args()
    if options.sheet:
        write_sheet(options.sheet, options.only, options.sizes, options.zoom)
    else:
        write_icons()


if __name__ == "__main__":
    main()
