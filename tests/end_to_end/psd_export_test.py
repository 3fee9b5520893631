# SPDX-License-Identifier: MIT
"""Exports projects as layered PSD files and has three readers that are not ours read them back."""

import unittest

import numpy

import png
from composition import Screen, Still, compose
from program import ProgramTest, project
from psd_readers import Document, Layer, ReadBack, psd_tools

TRANSPARENT = (0, 0, 0, 0)


class Lettered(Screen):
    """With a text and a circle; its pixels come from a PNG of it alone."""

    def pixel(self, x, y):
        return self.picture[y * self.width + x]


class PsdExport(ReadBack, ProgramTest):
    def export(self, width, height, items, names=None):
        (self.folder / "wall.mpr").write_bytes(project(width, height, items, names))
        result = self.run_program("export", "wall.mpr", "--png", "wall.png", "--psd", "wall.psd")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, b"", b""))
        return self.folder / "wall.psd"

    def document(self, width, height, items, names):
        """What the file should hold; items off the canvas are left out."""
        def picture(items):
            return numpy.array(compose(width, height, items, TRANSPARENT), numpy.uint8).reshape(height, width, 4)
        layers = []
        for item, name in zip(items, names):
            if item.x < width and item.y < height and item.x + item.width > 0 and item.y + item.height > 0:
                visible, item.visible = item.visible, True
                layers.append(Layer(name, 255 if visible else 0, picture([item])))
                item.visible = visible
        return Document(layers, picture(items))

    def test_items_of_all_kinds(self):
        look = dict(fill=(0, .3, 0), frame=(1, 1, 1), fontenable=True, circleenable=True, screenfontsize=9)
        self.export(60, 40, [Screen(3, 2, 20, 20, 0, 0, **look)])
        lettered = Lettered(3, 2, 20, 20, -8, 3, **look)
        lettered.picture = png.read((self.folder / "wall.png").read_bytes())[2]
        pixels, path = self.logo(17, 9, 1)
        items = {
            "Wall A": Screen(3, 2, 7, 5, -4, -3, fill=(1, 0, 0), frame=(1, 1, 1)),           # negative, overhanging
            "Wand \u00e4": Screen(2, 2, 10, 10, 10, 4, fill=(0, 1, 0, .5), frame=(0, .2, 1, .3), frame_width=2),
            "\u58c1 \U0001f600": Still(17, 9, pixels, path, 20, 10),                         # translucent, overlapping
            "hidden": Screen(1, 1, 60, 40, 0, 0, fill=(1, 1, 1), visible=False),             # only in the layers
            "x" * 300: Screen(4, 3, 6, 6, 30, 15, frame=(1, .5, 0), frame_width=1),          # no fill, past the edge
            "right of the canvas": Screen(1, 1, 12, 12, 48, 2, fill=(1, 0, 0)),
            "e\u0301\U0001f9d1\u200d\U0001f3a8" * 30: Screen(1, 3, 48, 16, 0, -8, fill=(0, 0, .4)),
            "lettered": lettered,
            "logo, hidden": Still(17, 9, pixels, path, -5, 28, visible=False),
        }
        path = self.export(48, 32, list(items.values()), list(items))
        self.assertEqual(self.assertReadBack({path: self.document(48, 32, list(items.values()), list(items))}), [])

    def test_unnamed_items_are_numbered_from_the_last_row(self):
        items = [Screen(1, 1, 3, 3, x, 0, fill=(1, 0, 0)) for x in (0, 1, 99, 2)]
        path = self.export(8, 4, items, ["", "named", "", ""])
        self.assertEqual([layer.name for layer in psd_tools(path).layers], ["Untitled 4", "named", "Untitled 1"])

    def test_launch_document(self):
        path = self.folder / "launch.psd"
        path.write_bytes(self.run_program("export", "--psd", "-").stdout)
        item = Screen(4, 4, 78, 78, 0, 0, fill=(1, 0, 0), frame=(1, 1, 1))
        self.assertEqual(self.assertReadBack({path: self.document(1920, 1080, [item], ["Layer 0"])}), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
