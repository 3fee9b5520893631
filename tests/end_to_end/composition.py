# SPDX-License-Identifier: MIT
"""The rules of composition, written down a second time, pixel by pixel and with exact fractions."""

import pathlib
from fractions import Fraction
from functools import cache
from math import floor

from raw_archive import LINK_CLASS, SCREEN_CLASS, STILL_CLASS


def nearest(value):
    return floor(value + Fraction(1, 2))


@cache
def sample(color):
    """(r, g, b) or (r, g, b, a) of 0 to 1, in the ten digits that files hold, as a premultiplied 8-bit pixel."""
    r, g, b, a = (Fraction(f"{c:.10g}") for c in (*color, 1)[:4])
    return tuple(nearest(255 * c) for c in (r * a, g * a, b * a, a))


def nearest_quotient(a, b):
    return (2 * a + b) // (2 * b)


def premultiplied(pixel):
    *color, a = pixel
    return tuple(nearest_quotient(c * a, 255) for c in color) + (a,)


class Screen:
    def __init__(self, col, row, panel_width, panel_height, x, y, fill=None, frame=None, frame_width=1, visible=True,
                 **more):
        self.col, self.row, self.panel_width, self.panel_height = col, row, panel_width, panel_height
        self.x, self.y, self.fill, self.frame, self.frame_width = x, y, fill, frame, frame_width
        self.visible, self.more = visible, more
        self.width, self.height = col * panel_width, row * panel_height

    def pixel(self, x, y):
        px, py = x % self.panel_width, y % self.panel_height
        inset = min(px, py, self.panel_width - 1 - px, self.panel_height - 1 - py)
        if self.frame and inset < self.frame_width:
            return sample(self.frame)
        return sample(self.fill) if self.fill else (0, 0, 0, 0)

    def archive(self, project, label):
        return project.item(SCREEN_CLASS, **{
            "col": self.col, "row": self.row, "panelwidth": self.panel_width, "panelheight": self.panel_height,
            "bgenable": self.fill is not None, "rectcolor": self.fill or (1, 0, 0),
            "boarderenable": self.frame is not None, "boardercolor": self.frame or (1, 1, 1),
            "boarderwidth": self.frame_width, "visible": self.visible, "xpoint": self.x, "ypoint": self.y,
            # Not what the grid gives: sizes are computed anew when a record is read.
            "screenwidth": 1, "screenheight": 1, "circlebwidth": 4, "label": label, **self.more})


class Still:
    def __init__(self, width, height, pixels, path, x, y, visible=True):
        self.width, self.height, self.pixels, self.path = width, height, pixels, path
        self.x, self.y, self.visible = x, y, visible

    def pixel(self, x, y):
        return premultiplied(self.pixels[y * self.width + x])

    def archive(self, project, label):
        location = str(self.path) if "://" in str(self.path) else pathlib.Path(self.path).as_uri()
        still = project.item(STILL_CLASS, panelwidth=self.width, panelheight=self.height, screenwidth=self.width,
                             screenheight=self.height, visible=self.visible, xpoint=self.x, ypoint=self.y, label=label)
        link = project.record(LINK_CLASS, NS_relative=project.uid(project.add(project.text(location))))
        project.set(still, imageURL=project.uid(link))
        return still


def compose(width, height, items, ground=(0, 0, 0, 255)):
    """The ground, with the items over it, the first on top; RGBA, row by row."""
    raster = [ground] * (width * height)
    for item in reversed(items):
        if not item.visible:
            continue
        for y in range(item.height):
            for x in range(item.width):
                left, top = item.x + x, item.y + y
                if 0 <= left < width and 0 <= top < height:
                    source, below = item.pixel(x, y), raster[top * width + left]
                    raster[top * width + left] = tuple(
                        s + nearest_quotient(d * (255 - source[3]), 255) for s, d in zip(source, below))
    return raster
