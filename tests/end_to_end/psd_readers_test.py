# SPDX-License-Identifier: MIT
"""Has a reader that is not ours read what the program itself does not use of the writer."""

import os
import pathlib
import subprocess
import unittest

import numpy
from psd_tools.constants import Resource

from composition import blend, nearest_quotient
from program import ProgramTest
from psd_readers import Layer, psd_tools

EFFECTS = b"bevl", b"cmnS", b"dsdw", b"iglw", b"isdw", b"oglw", b"sofi"
PROFILES = pathlib.Path(__file__).parents[2] / "resources" / "icc"


def gradient(width, height):
    y, x = numpy.indices((height, width))
    return numpy.dstack([x, y, 0 * x + 7, 0 * x + 255])


def drawn(*pictures, ground=0):
    """Pictures with their place and opacity on a document of 40 x 30."""
    raster = numpy.full((30, 40, 4), ground)
    for picture, x, y, opacity in pictures:
        blend(raster, nearest_quotient(picture * opacity, 255), x, y)
    return raster


class PsdReaders(ProgramTest):
    def test_files(self):
        subprocess.run([os.environ["WRITE_PSD_SAMPLES"], self.folder], check=True, timeout=300)
        found = psd_tools(self.folder / "groups.psd")
        left_open, outer, ground = found.layers
        flipped = outer.children[0].children[0]
        self.assertEqual([layer.outline() for layer in found.layers], [layer.outline() for layer in (
            Layer("x" * 300, children=[Layer("left open")], mode=b"pass"),
            Layer("outer", 128, mode=b"pass", effects=EFFECTS, children=[
                Layer("inner \u58c1", opened=True, mode=b"pass", children=[Layer("flipped", effects=EFFECTS)]),
                Layer("Wand \u00e4 \U0001f600", 77)]),
            Layer("ground"))])
        pictures = [(gradient(50, 40), -5, -5, 255), (gradient(9, 8), 3, 4, 77), (gradient(20, 30), 30, 20, 255),
                    (gradient(2, 2), 0, 0, 255)]
        self.assertSamePixels(found.merged, drawn(*pictures))
        for layer, (picture, x, y, _) in zip((ground, outer.children[1], left_open.children[0]), pictures[:2] + pictures[3:]):
            self.assertSamePixels(layer.pixels, drawn((picture, x, y, 255)))
        self.assertSamePixels(flipped.pixels, drawn((gradient(20, 30)[9::-1], 30, 20, 255)))
        bevel, glow = outer.effects[b"bevl"], flipped.effects[b"iglw"]
        self.assertEqual((bevel.angle, bevel.blur, bevel.real_highlight_color.values[:3], glow.opacity, glow.invert),
                         (-30 << 16, 11 << 16, [65535, 32767, 13106], 127, 2))
        resolution = found.resources[Resource.RESOLUTION_INFO]
        self.assertEqual((resolution.horizontal, resolution.horizontal_unit, resolution.width_unit), (4719182, 2, 1))
        self.assertEqual((resolution.vertical, resolution.vertical_unit, resolution.height_unit), (4719182, 2, 1))
        for number, profile in enumerate(("GenericRGB", "sRGB", "AdobeRGB1998"), 1):
            found = psd_tools(self.folder / f"{number}.psd")
            self.assertEqual(found.resources[Resource.ICC_PROFILE], (PROFILES / profile).read_bytes())
            self.assertEqual([layer.mode for layer in found.layers], [b"lgCl", b"lddg", b"hue ", b"dark", b"norm"])
            self.assertSamePixels(found.layers[0].pixels, drawn((gradient(9, 9), 1, 2, 255), ground=255)[..., :3])
            self.assertSamePixels(found.merged, drawn((gradient(9, 9), 1, 2, 255), ground=255)[..., :3])


if __name__ == "__main__":
    unittest.main(verbosity=2)
