# SPDX-License-Identifier: MIT
"""Runs the built program in a folder of its own. WALLGRID_PROGRAM names another program than the one of this build."""

import io
import os
import pathlib
import subprocess
import tempfile
import unittest

import numpy
from PIL import Image

from raw_archive import Project

WALLGRID = os.environ.get("WALLGRID_PROGRAM") or os.environ["WALLGRID_BUILT"]


def project(width, height, items, names=None):
    p = Project()
    p.size(width, height)
    p.items(*(item.archive(p, names[i] if names else f"Item {i}") for i, item in enumerate(items)))
    return p.file()


def pixels_of(png):
    """Of the bytes of a PNG file with 8-bit RGBA: rows of columns of samples."""
    with Image.open(io.BytesIO(png), formats=["png"]) as image:
        assert image.mode == "RGBA", image.mode
        return numpy.array(image)


class ProgramTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_program(self, *words, prepare=None, input=None, output=subprocess.PIPE, **variables):
        without = "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"
        environment = {key: value for key, value in os.environ.items() if key not in without}
        return subprocess.run([WALLGRID, *map(str, words)], input=input, stdout=output, stderr=subprocess.PIPE, cwd=self.folder,
                              env=environment | variables, preexec_fn=prepare, timeout=120)

    def write_picture(self, pixels, name):
        """Writes them to a file; gives both."""
        Image.fromarray(pixels.astype(numpy.uint8)).save(self.folder / name)
        return pixels.astype(int), self.folder / name

    def logo(self, width, height):
        choose = numpy.random.default_rng(width)
        color = choose.integers(0, 256, (height, width, 3))
        return self.write_picture(numpy.dstack([color, choose.choice((0, 1, 90, 128, 254, 255), (height, width))]), "logo.png")

    def assertSamePixels(self, actual, expected):
        """A reader may add an alpha that is 255 everywhere."""
        channels = expected.shape[2]
        self.assertEqual((actual.shape[:2], set(actual[..., channels:].ravel()) - {255}), (expected.shape[:2], set()))
        wrong = numpy.argwhere((actual[..., :channels] != expected).any(2))
        self.assertFalse(len(wrong), len(wrong) and f"{len(wrong)} pixels, first in row and column {wrong[0]}: "
                                                    f"{actual[tuple(wrong[0])]}, not {expected[tuple(wrong[0])]}")
