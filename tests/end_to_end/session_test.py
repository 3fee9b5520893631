# SPDX-License-Identifier: MIT
"""One session with the editor from the first wall to the picture on the second display, as a user at mouse and keyboard
has it, and files that come from another program's window. Runs on two displays (tools/with-display --two)."""

import json
import os
import subprocess
import unittest

import numpy

import png
from composition import Screen, Still, compose
from program import project
from psd_readers import ReadBack, psd_tools
from window import WindowTest, grab, is_open, xdotool

WIDTH, HEIGHT, WALL = 1920, 1080, 312  # of the output; the side of a new wall
SECOND = (2048, 1200, 1920, 0)         # the size and place of the second display
IMAGE = (255, 0, 255)


class Session(ReadBack, WindowTest):
    COLORS = {"W": (255, 0, 0), "I": IMAGE, "L": (0, 255, 0)}
    PRESETS = "LW"  # the green and the red one

    def setUp(self):
        super().setUp()
        self.image = self.folder / "logo.png"
        png.write(self.image, 160, 90, [(*IMAGE, 255)] * (160 * 90))

    def expect_layers(self, names):
        self.expect_rows(names + self.PRESETS)

    def exported(self, path):
        """Of an exported PNG: rows of columns of samples."""
        data = subprocess.run(["convert", path, "-depth", "8", "rgba:-"], check=True, capture_output=True,
                              timeout=120).stdout
        return numpy.frombuffer(data, numpy.uint8).reshape(HEIGHT, WIDTH, 4)

    def add(self, choice, layers):
        xdotool("key", "ctrl+shift+n")
        self.expect_active("Add")
        if choice == "image":
            self.choose_file("alt+i", "Add Image", self.image)
        else:
            xdotool("key", "alt+s")
            self.expect_editor_active()
        self.expect_layers(layers)

    def drag_wall_to_corner(self):
        """On the preview; at the end it snaps to the output's edges."""
        black = (self.picture() == 0).all(2)
        columns, rows = numpy.flatnonzero(black.sum(0) > 200), numpy.flatnonzero(black.sum(1) > 400)
        scale = (columns[-1] - columns[0] + 1) / WIDTH
        x, y = columns[0] + round(scale * 240), rows[0] + round(scale * 240)
        self.drag((x, y), (x + round(scale * (WIDTH - WALL)), y + round(scale * (HEIGHT - WALL))))

    def test_from_the_first_wall_to_the_second_display(self):
        self.open_window()
        self.expect_layers("W")
        start = self.write("ctrl+s", "Save Project", "start.mpr")
        start_picture = self.write("ctrl+e", "Export PNG", "start.png").read_bytes()

        self.add("screen", "WW")
        self.add("screen", "WWW")
        self.add("image", "WIWW")
        self.drag_row("L", 3, below=True)
        self.expect_layers("WIWWL")
        self.drag_row("I", 0)
        self.expect_layers("IWWWL")
        self.drag_wall_to_corner()
        xdotool("key", "F2", "type", "Stage left")
        xdotool("key", "Return")

        done = self.write("ctrl+s", "Save Project", "done.mpr")
        wall = dict(fill=(1, 0, 0), frame=(1, 1, 1))
        items = [Still(160, 90, [(*IMAGE, 255)] * (160 * 90), self.image, 0, 0),
                 Screen(4, 4, WALL // 4, WALL // 4, WIDTH - WALL, HEIGHT - WALL, **wall),
                 Screen(4, 4, WALL // 4, WALL // 4, 0, 0, **wall), Screen(4, 4, WALL // 4, WALL // 4, 0, 0, **wall),
                 Screen(1, 3, 1920, 540, 0, -270, frame=(0, 1, 0))]
        names = ["", "Stage left", "Layer 2", "Layer 1", "LINES"]
        told = json.loads(self.run_program("info", "--json", done).stdout)
        self.assertEqual([(item["name"], item["width"], item["height"], item["x"], item["y"]) for item in told["items"]],
                         [(name, item.width, item.height, item.x, item.y) for name, item in zip(names, items)])
        self.assertEqual((told["items"][0]["image"], told["outputWidth"]), (str(self.image), WIDTH))

        xdotool("key", *["ctrl+z"] * 7)  # as many as there were steps
        self.expect_layers("W")
        self.assertEqual(self.write("ctrl+s", "Save Project", "undone.mpr").read_bytes(), start.read_bytes())
        self.assertEqual(self.write("ctrl+e", "Export PNG", "undone.png").read_bytes(), start_picture)
        xdotool("key", *["ctrl+shift+z"] * 7)
        self.expect_layers("IWWWL")
        self.assertEqual(self.write("ctrl+s", "Save Project", "redone.mpr").read_bytes(), done.read_bytes())

        self.choose_file("ctrl+o", "Open Project", start)
        self.expect_layers("W")
        self.choose_file("ctrl+o", "Open Project", done)
        self.expect_layers("IWWWL")
        exported = self.exported(self.write("ctrl+e", "Export PNG", "done.png"))
        expected = numpy.array(compose(WIDTH, HEIGHT, items), numpy.uint8).reshape(HEIGHT, WIDTH, 4)
        self.assertSamePixels(exported, expected)

        document = psd_tools(self.write("ctrl+shift+e", "Export Layered PSD", "done.psd"))
        self.assertEqual([layer.name for layer in document.layers], ["Untitled 7", *names[1:]])  # 2 walls, 5 layers
        stacked = numpy.zeros_like(expected)
        for layer in reversed(document.layers):
            stacked = numpy.where(layer.pixels[..., 3:] == 255, layer.pixels, stacked)
        for picture in stacked, document.merged:
            self.assertSamePixels(picture[..., :3], expected[..., :3])

        self.show_output(expected[..., :3])
        xdotool("key", "ctrl+q")
        self.assertEqual(self.program.wait(40), 0)

    def show_output(self, output):
        """On the second display, which is larger, and not for longer than wanted."""
        before = grab(*SECOND)
        self.assertFalse(before.any())
        display = numpy.zeros_like(before)
        display[:HEIGHT, :WIDTH] = output
        xdotool("key", "F11")
        try:
            self.wait_until(lambda: (grab(*SECOND) == display).all())
        except AssertionError:
            self.assertSamePixels(grab(*SECOND), display)
        self.expect_active("Output Preview")
        xdotool("key", "Escape")
        self.wait_until(lambda: not grab(*SECOND).any(), "the display is not free again")
        self.expect_editor_active()

    def drop_from_outside(self, path):
        other = self.start(os.environ["OFFER_FILE"], path)
        self.wait_until(lambda: is_open("Offer"), "the other program has no window")
        xdotool("mousemove", 2300, 400, "mousedown", 1)
        for x in range(1600, 700, -100):
            self.point(x, 400)
        self.drop(700, 400, lambda: is_open("Taken"))
        return other

    def test_files_dropped_from_another_program(self):
        walls = self.folder / "walls.mpr"
        walls.write_bytes(project(WIDTH, HEIGHT, [Screen(1, 1, WALL, WALL, 0, 0, fill=fill)
                                                  for fill in ((1, 0, 0), (0, 1, 0))]))
        self.open_window()
        self.expect_layers("W")
        for path, layers in ((self.image, "WI"), (walls, "WL")):
            other = self.drop_from_outside(path)
            self.expect_layers(layers)
            other.terminate()
            other.wait(20)


if __name__ == "__main__":
    unittest.main(verbosity=2)
