# SPDX-License-Identifier: MIT
"""Exports a project as a layered PSD file and has two readers that are not ours read it back."""

import unittest

import numpy

import png
from composition import Screen, Still, compose
from program import ProgramTest, project
from psd_readers import Document, Layer, ReadBack


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

    def test_items_of_all_kinds(self):
        look = dict(fill=(0, .3, 0), frame=(1, 1, 1), fontenable=True, circleenable=True, screenfontsize=9)
        self.export(60, 40, [Screen(3, 2, 20, 20, 0, 0, **look)])
        lettered = Lettered(3, 2, 20, 20, -8, 3, **look)
        lettered.picture = png.read((self.folder / "wall.png").read_bytes())[2]
        pixels, image = self.logo(17, 9, 1)
        items = {
            "Wall A": Screen(3, 2, 7, 5, -4, -3, fill=(1, 0, 0), frame=(1, 1, 1)),           # negative, overhanging
            "Wand \u00e4": Screen(2, 2, 10, 10, 10, 4, fill=(0, 1, 0, .5), frame=(0, .2, 1, .3), frame_width=2),
            "\u58c1 \U0001f600": Still(17, 9, pixels, image, 20, 10),                        # translucent, overlapping
            "hidden": Screen(1, 1, 60, 40, 0, 0, fill=(1, 1, 1), visible=False),             # only in the layers
            "x" * 300: Screen(4, 3, 6, 6, 30, 15, frame=(1, .5, 0), frame_width=1),          # no fill, past the edge
            "right of the canvas": Screen(1, 1, 12, 12, 48, 2, fill=(1, 0, 0)),              # no layer
            "e\u0301\U0001f9d1\u200d\U0001f3a8" * 30: Screen(1, 3, 48, 16, 0, -8, fill=(0, 0, .4)),
            "lettered": lettered,
            "logo, hidden": Still(17, 9, pixels, image, -5, 28, visible=False),
        }
        path = self.export(48, 32, list(items.values()), list(items))

        def picture(items):
            return numpy.array(compose(48, 32, items, (0, 0, 0, 0)), numpy.uint8).reshape(32, 48, 4)
        merged, layers = picture(items.values()), []
        for name, item in items.items():
            opacity, item.visible = 255 * item.visible, True
            if item.x < 48:
                layers.append(Layer(name, opacity, picture([item])))
        self.assertReadBack({path: Document(layers, merged)})
        self.assertEqual(self.run_program("export", "wall.mpr", "--psd", "-").stdout, path.read_bytes())


if __name__ == "__main__":
    unittest.main(verbosity=2)
