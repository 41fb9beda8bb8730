# SPDX-License-Identifier: MIT
"""PNG and ICO files from RGBA pixels."""

import struct
import zlib


def png(width, height, rgba):
    rows = []
    above = bytes(width * 4)
    for y in range(height):
        row = rgba[y * width * 4 : (y + 1) * width * 4]
        rows.append(_filtered(row, above))
        above = row
    header = struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + _chunk(b"IHDR", header)
        + _chunk(b"IDAT", zlib.compress(b"".join(rows), 9))
        + _chunk(b"IEND", b"")
    )


def ico(pictures):
    """One icon file of several (size, rgba) pictures: bitmaps, and PNG from 256 pixels on."""
    images = [
        png(size, size, rgba) if size >= 256 else _bitmap(size, rgba) for size, rgba in pictures
    ]
    out = struct.pack("<HHH", 0, 1, len(images))
    offset = 6 + 16 * len(images)
    for (size, _), image in zip(pictures, images):
        side = 0 if size >= 256 else size
        out += struct.pack("<BBBBHHII", side, side, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return out + b"".join(images)


def _bitmap(size, rgba):
    """A bitmap as icons hold it: rows from the bottom, BGRA, then a mask of the empty pixels."""
    colours = bytearray()
    mask = bytearray()
    for y in range(size - 1, -1, -1):
        row = rgba[y * size * 4 : (y + 1) * size * 4]
        bits = bytearray((size + 31) // 32 * 4)
        for x in range(size):
            r, g, b, a = row[x * 4 : x * 4 + 4]
            colours += bytes((b, g, r, a))
            if a == 0:
                bits[x // 8] |= 0x80 >> x % 8
        mask += bits
    header = struct.pack(
        "<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(colours) + len(mask), 0, 0, 0, 0
    )
    return header + bytes(colours) + bytes(mask)


def _chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def _filtered(row, above):
    """The row behind its filter byte; the filter is the one that leaves the smallest numbers."""
    left = bytes(4) + row[:-4]
    corner = bytes(4) + above[:-4]
    tries = (
        (0, row),
        (1, bytes((v - a) & 255 for v, a in zip(row, left))),
        (2, bytes((v - b) & 255 for v, b in zip(row, above))),
        (4, bytes((v - _paeth(a, b, c)) & 255 for v, a, b, c in zip(row, left, above, corner))),
    )
    kind, data = min(tries, key=lambda t: sum(min(v, 256 - v) for v in t[1]))
    return bytes((kind,)) + data


def _paeth(a, b, c):
    estimate = a + b - c
    da, db, dc = abs(estimate - a), abs(estimate - b), abs(estimate - c)
    if da <= db and da <= dc:
        return a
    return b if db <= dc else c
