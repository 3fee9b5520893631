# SPDX-License-Identifier: MIT
"""The rules of composition, written down a second time with exact numbers. Pictures are rows of columns of RGBA."""

import pathlib
from fractions import Fraction
from math import floor

import numpy

from raw_archive import LINK_CLASS, SCREEN_CLASS, STILL_CLASS


def sample(color):
    """(r, g, b) or (r, g, b, a) of 0 to 1, in the ten digits that files hold, as a premultiplied 8-bit pixel."""
    r, g, b, a = (Fraction(f"{c:.10g}") for c in (*color, 1)[:4])
    return [floor(255 * c + Fraction(1, 2)) for c in (r * a, g * a, b * a, a)]


def nearest_quotient(a, b):
    return (2 * a + b) // (2 * b)


def blend(raster, picture, x, y):
    """Puts a premultiplied picture over a raster, its upper left corner there."""
    height, width = picture.shape[:2]
    below = raster[max(y, 0):max(y + height, 0), max(x, 0):max(x + width, 0)]
    above = picture[max(-y, 0):, max(-x, 0):][:below.shape[0], :below.shape[1]]
    below[:] = above + nearest_quotient(below * (255 - above[..., 3:]), 255)


class Screen:
    def __init__(self, col, row, panel_width, panel_height, x, y, fill=None, frame=None, frame_width=1, visible=True,
                 **more):
        self.col, self.row, self.panel_width, self.panel_height = col, row, panel_width, panel_height
        self.x, self.y, self.fill, self.frame, self.frame_width = x, y, fill, frame, frame_width
        self.visible, self.more = visible, more
        self.width, self.height = col * panel_width, row * panel_height

    def picture(self):
        panel = numpy.full((self.panel_height, self.panel_width, 4), sample(self.fill) if self.fill else 0)
        if self.frame:
            inner = tuple(slice(self.frame_width, side - self.frame_width) for side in panel.shape[:2])
            filled = panel[inner].copy()
            panel[:] = sample(self.frame)
            panel[inner] = filled
        return numpy.tile(panel, (self.row, self.col, 1))

    def archive(self, project, label):
        return project.item(SCREEN_CLASS, **{
            "col": self.col, "row": self.row, "panelwidth": self.panel_width, "panelheight": self.panel_height,
            "bgenable": self.fill is not None, "rectcolor": self.fill or (1, 0, 0),
            "boarderenable": self.frame is not None, "boardercolor": self.frame or (1, 1, 1),
            "boarderwidth": self.frame_width, "visible": self.visible, "xpoint": self.x, "ypoint": self.y,
            # Not what the grid gives: sizes are computed anew when a record is read.
            "screenwidth": 1, "screenheight": 1, "circlebwidth": 4, "label": label, **self.more})


class Still:
    """Its pixels are not premultiplied."""

    def __init__(self, pixels, path, x, y, visible=True):
        self.pixels, self.path, self.x, self.y, self.visible = pixels, path, x, y, visible
        self.height, self.width = pixels.shape[:2]

    def picture(self):
        alpha = self.pixels[..., 3:]
        return numpy.concatenate([nearest_quotient(self.pixels[..., :3] * alpha, 255), alpha], 2)

    def archive(self, project, label):
        location = str(self.path) if "://" in str(self.path) else pathlib.Path(self.path).as_uri()
        still = project.item(STILL_CLASS, panelwidth=self.width, panelheight=self.height, screenwidth=self.width,
                             screenheight=self.height, visible=self.visible, xpoint=self.x, ypoint=self.y, label=label)
        link = project.record(LINK_CLASS, NS_relative=project.uid(project.add(project.text(location))))
        project.set(still, imageURL=project.uid(link))
        return still


def compose(width, height, items, ground=(0, 0, 0, 255)):
    """The ground, with the items over it, the first on top."""
    raster = numpy.full((height, width, 4), ground)
    for item in reversed(items):
        if item.visible:
            blend(raster, item.picture(), item.x, item.y)
    return raster
