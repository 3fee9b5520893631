# SPDX-License-Identifier: MIT
"""One session with the editor from the first wall to the picture on the second display, as a user at mouse and keyboard
has it. Runs on two displays (tools/with-display --two)."""

import json
import unittest

import numpy

from composition import Screen, Still, compose
from program import pixels_of
from psd_readers import psd_tools
from window import WindowTest, grab, xdotool

WIDTH, HEIGHT, WALL = 1920, 1080, 312  # of the output; the side of a new wall
SECOND = (2048, 1200, 1920, 0)         # the size and place of the second display
IMAGE = (255, 0, 255)


class Session(WindowTest):
    COLORS = {"W": (255, 0, 0), "I": IMAGE, "L": (0, 255, 0)}
    PRESETS = "LW"  # the green and the red one

    def expect_layers(self, names):
        self.expect_rows(names + self.PRESETS)

    def add(self, choice, layers):
        xdotool("key", "ctrl+shift+n")
        self.expect_active("Add")
        if choice == "image":
            self.choose_file("alt+i", "Add Image", self.image[1])
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
        self.image = self.write_picture(numpy.full((90, 160, 4), (*IMAGE, 255)), "logo.png")
        self.open_window()
        self.expect_layers("W")
        start = self.write("ctrl+s", "Save Project", "start.mpr")
        self.add("screen", "WW")
        self.add("image", "WIW")
        self.drag_row("L", 2, below=True)
        self.expect_layers("WIWL")
        self.drag_row("I", 0)
        self.expect_layers("IWWL")
        self.drag_wall_to_corner()
        xdotool("key", "F2", "type", "Stage left")
        xdotool("key", "Return")

        done = self.write("ctrl+s", "Save Project", "done.mpr")
        wall = dict(fill=(1, 0, 0), frame=(1, 1, 1))
        items = [Still(*self.image, 2 * WALL, 0), Screen(4, 4, WALL // 4, WALL // 4, WIDTH - WALL, HEIGHT - WALL, **wall),
                 Screen(4, 4, WALL // 4, WALL // 4, WALL, 0, **wall), Screen(1, 3, 1920, 540, 0, -270, frame=(0, 1, 0))]
        names = ["", "Stage left", "Layer 1", "LINES"]
        told = json.loads(self.run_program("info", "--json", done).stdout)
        self.assertEqual([(item["name"], item["width"], item["height"], item["x"], item["y"]) for item in told["items"]],
                         [(name, item.width, item.height, item.x, item.y) for name, item in zip(names, items)])

        xdotool("key", *["ctrl+z"] * 6)  # as many as there were steps
        self.expect_layers("W")
        self.assertEqual(self.write("ctrl+s", "Save Project", "undone.mpr").read_bytes(), start.read_bytes())
        self.choose_file("ctrl+o", "Open Project", done)
        self.expect_layers("IWWL")
        exported = pixels_of(self.write("ctrl+e", "Export PNG", "done.png").read_bytes())
        expected = compose(WIDTH, HEIGHT, items)
        self.assertSamePixels(exported, expected)
        document = psd_tools(self.write("ctrl+shift+e", "Export Layered PSD", "done.psd"))
        self.assertEqual([layer.name for layer in document.layers], ["Untitled 5", *names[1:]])  # 1 wall, 4 layers
        self.assertSamePixels(document.merged[..., :3], expected[..., :3])

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


if __name__ == "__main__":
    unittest.main(verbosity=2)
