# SPDX-License-Identifier: MIT
"""Drags rows of both lists with a real mouse in a real window. Runs on an X server of its own (tools/with-display)."""

import unittest

from composition import Screen
from program import project
from project_files import Unarchive
from window import WindowTest

COLORS = {"A": (200, 0, 100), "B": (30, 60, 250), "C": (250, 200, 0), "D": (0, 150, 210)}


class ListDrags(WindowTest):
    COLORS = COLORS | {"lines": (0, 255, 0)}  # the green preset of the launch

    def setUp(self):
        super().setUp()
        # Hidden, so that the colours are seen in the lists only; of the output's shape, so that they fill a thumbnail.
        items = [Screen(1, 1, 160, 90, 0, 0, fill=[c / 255 for c in color], visible=False) for color in COLORS.values()]
        (self.folder / "walls.mpr").write_bytes(project(1920, 1080, items, list(COLORS)))
        self.open_window("walls.mpr")
        self.expect_rows("ABCD")

    def test_moves_and_copies(self):
        self.drag_row(0, 2, below=True)  # A behind C
        self.expect_rows("BCAD")
        self.drag_row(3, 0)
        self.expect_rows("DBCA")
        self.drag_row(1, "lines")  # a copy of B before the preset LINES
        self.expect_rows("DBCAB")
        self.drag_row(4, 3, below=True)  # and back, below all layers
        self.expect_rows("DBCABB")

        saved = self.write("ctrl+s", "Save Project", "after.mpr")
        archive = Unarchive(saved.read_bytes())
        items = archive.elements(archive.elements(archive.root())[2])
        self.assertEqual("".join(archive[item["label"]] for item in items), "DBCAB")


if __name__ == "__main__":
    unittest.main(verbosity=2)
