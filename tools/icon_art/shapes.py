# SPDX-License-Identifier: MIT
"""Contours for the canvas. A shape is a list of contours, a contour a list of points.

Every contour runs the same way round, so that overlapping ones unite; `hole` turns one over.
"""

import math


def polygon(*points):
    return [_clockwise(list(points))]


def rect(x0, y0, x1, y1):
    return polygon((x0, y0), (x1, y0), (x1, y1), (x0, y1))


def rounded_rect(x0, y0, x1, y1, radius):
    """`radius` is one number or four: top left, top right, bottom right, bottom left."""
    radii = (radius,) * 4 if isinstance(radius, (int, float)) else radius
    centres = (
        (x0 + radii[0], y0 + radii[0], 180),
        (x1 - radii[1], y0 + radii[1], 270),
        (x1 - radii[2], y1 - radii[2], 0),
        (x0 + radii[3], y1 - radii[3], 90),
    )
    points = []
    for (x, y, angle), r in zip(centres, radii):
        points += arc(x, y, r, angle, angle + 90, 12) if r > 0 else [(x, y)]
    return polygon(*points)


def circle(x, y, radius):
    return ellipse(x, y, radius, radius)


def ellipse(x, y, rx, ry):
    steps = 72
    angles = [math.tau * i / steps for i in range(steps)]
    return polygon(*[(x + rx * math.cos(a), y + ry * math.sin(a)) for a in angles])


def hole(shape):
    return [contour[::-1] for contour in shape]


def arc(x, y, radius, start, end, steps=24):
    """Points of a circle from one angle to another, in degrees, clockwise on the screen."""
    points = []
    for i in range(steps + 1):
        angle = math.radians(start + (end - start) * i / steps)
        points.append((x + radius * math.cos(angle), y + radius * math.sin(angle)))
    return points


def curve(a, b, c, d, steps=24):
    """Points of a cubic curve from `a` to `d`."""
    points = []
    for i in range(steps + 1):
        t = i / steps
        u = 1 - t
        weights = (u * u * u, 3 * u * u * t, 3 * u * t * t, t * t * t)
        x = y = 0.0
        for weight, (px, py) in zip(weights, (a, b, c, d)):
            x += weight * px
            y += weight * py
        points.append((x, y))
    return points


def stroke(points, width, round_ends=False, closed=False):
    """A line of the given width along the points, with round joins."""
    half = width / 2
    shape = []
    ends = list(zip(points, points[1:] + points[:1])) if closed else list(zip(points, points[1:]))
    for (xa, ya), (xb, yb) in ends:
        length = math.sqrt((xb - xa) ** 2 + (yb - ya) ** 2)
        if length == 0:
            continue
        nx, ny = (ya - yb) / length * half, (xb - xa) / length * half
        one_side = ((xa + nx, ya + ny), (xb + nx, yb + ny))
        shape += polygon(*one_side, (xb - nx, yb - ny), (xa - nx, ya - ny))
    joints = points if closed or round_ends else points[1:-1]
    for x, y in joints:
        shape += circle(x, y, half)
    return shape


def turned(shape, x, y, degrees):
    """The shape turned clockwise about a point."""
    s, c = math.sin(math.radians(degrees)), math.cos(math.radians(degrees))
    return [
        [(x + (px - x) * c - (py - y) * s, y + (px - x) * s + (py - y) * c) for px, py in contour]
        for contour in shape
    ]


def mirrored(shape, x):
    """The shape mirrored left to right about a vertical line; holes stay holes."""
    return [[(2 * x - px, py) for px, py in reversed(contour)] for contour in shape]


def _clockwise(contour):
    area = 0.0
    for (xa, ya), (xb, yb) in zip(contour, contour[1:] + contour[:1]):
        area += xa * yb - xb * ya
    return contour if area >= 0 else contour[::-1]
