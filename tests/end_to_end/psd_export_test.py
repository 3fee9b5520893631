# SPDX-License-Identifier: MIT
"""Exports a project as a layered PSD file and has a reader that is not ours read it back."""

import unittest

from composition import Screen, Still, compose
from program import ProgramTest, pixels_of, project
from psd_readers import psd_tools


class Lettered(Screen):
    """With a text and a circle; its picture comes from a PNG of it alone."""

    def picture(self):
        return self.drawn


class PsdExport(ProgramTest):
    def export(self, width, height, items, names=None):
        (self.folder / "wall.mpr").write_bytes(project(width, height, items, names))
        result = self.run_program("export", "wall.mpr", "--png", "wall.png", "--psd", "wall.psd")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, b"", b""))
        return self.folder / "wall.psd"

    def test_items_of_all_kinds(self):
        look = dict(fill=(0, .3, 0), frame=(1, 1, 1), fontenable=True, circleenable=True, screenfontsize=9)
        self.export(60, 40, [Screen(3, 2, 20, 20, 0, 0, **look)])
        lettered = Lettered(3, 2, 20, 20, -8, 3, **look)
        lettered.drawn = pixels_of((self.folder / "wall.png").read_bytes()).astype(int)
        pixels, image = self.logo(17, 9)
        items = {
            "Wall A": Screen(3, 2, 7, 5, -4, -3, fill=(1, 0, 0), frame=(1, 1, 1)),           # negative, overhanging
            "Wand \u00e4": Screen(2, 2, 10, 10, 10, 4, fill=(0, 1, 0, .5), frame=(0, .2, 1, .3), frame_width=2),
            "\u58c1 \U0001f600": Still(pixels, image, 20, 10),                               # translucent, overlapping
            "hidden": Screen(1, 1, 60, 40, 0, 0, fill=(1, 1, 1), visible=False),             # only in the layers
            "x" * 300: Screen(4, 3, 6, 6, 30, 15, frame=(1, .5, 0), frame_width=1),          # no fill, past the edge
            "right of the canvas": Screen(1, 1, 12, 12, 48, 2, fill=(1, 0, 0)),              # no layer
            "e\u0301\U0001f9d1\u200d\U0001f3a8" * 30: Screen(1, 3, 48, 16, 0, -8, fill=(0, 0, .4)),
            "lettered": lettered,
            "logo, hidden": Still(pixels, image, -5, 28, visible=False),
        }
        path = self.export(48, 32, list(items.values()), list(items))
        found = psd_tools(path)
        self.assertSamePixels(found.merged, compose(48, 32, list(items.values()), (0, 0, 0, 0)))
        expected = [(name, item, 255 * item.visible) for name, item in items.items() if item.x < 48]
        self.assertEqual([(layer.name, layer.opacity) for layer in found.layers], [(x[0], x[2]) for x in expected])
        for layer, (_, item, _) in zip(found.layers, expected):
            item.visible = True
            self.assertSamePixels(layer.pixels, compose(48, 32, [item], (0, 0, 0, 0)))
        self.assertEqual(self.run_program("export", "wall.mpr", "--psd", "-").stdout, path.read_bytes())


if __name__ == "__main__":
    unittest.main(verbosity=2)
