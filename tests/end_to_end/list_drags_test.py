# SPDX-License-Identifier: MIT
"""Drags rows of both lists with a real mouse in a real window. Runs on an X server of its own (tools/with-display)."""

import os
import subprocess
import time
import unittest

from composition import Screen
from program import WALLGRID, ProgramTest, project
from project_files import Unarchive

WIDTH, LIST_WIDTH = 1920, 640  # of the screen, and of the part of it that holds the lists
# No two hold the same bytes, so none is found in the middle of another's pixels.
COLORS = {"A": (200, 0, 100), "B": (30, 60, 250), "C": (250, 200, 0), "D": (0, 150, 210)}
LINES = (0, 255, 0)  # the green preset of the launch


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, timeout=20)


class ListDrags(ProgramTest):
    def setUp(self):
        super().setUp()
        # Hidden, so that the colours are seen in the lists only; of the output's shape, so that they fill a thumbnail.
        items = [Screen(1, 1, 160, 90, 0, 0, fill=[c / 255 for c in color], visible=False) for color in COLORS.values()]
        (self.folder / "walls.mpr").write_bytes(project(1920, 1080, items, list(COLORS)))
        environment = os.environ | {"HOME": str(self.folder), "XDG_STATE_HOME": str(self.folder)}
        for command in (["openbox"], [WALLGRID, "walls.mpr"]):
            process = subprocess.Popen(command, cwd=self.folder, env=environment, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
            self.addCleanup(process.wait, 20)
            self.addCleanup(process.terminate)
            if command == ["openbox"]:
                self.wait_for_window_manager()
        self.expect_rows("ABCD")

    def wait_for_window_manager(self):
        """A window that is there before it is put elsewhere."""
        deadline = time.monotonic() + 20
        while subprocess.run(["xdotool", "get_num_desktops"], capture_output=True, timeout=20).returncode:
            self.assertLess(time.monotonic(), deadline, "there is no window manager")
            time.sleep(0.1)

    def rows(self):
        """The thumbnails in the lists from the top: name and middle of each."""
        picture = subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "rgb:-"], check=True,
                                 capture_output=True, timeout=20).stdout
        found = []
        for y in range(len(picture) // (3 * WIDTH)):
            line = picture[3 * WIDTH * y:3 * (WIDTH * y + LIST_WIDTH)]
            for name, color in (COLORS | {"lines": LINES}).items():
                start = line.find(bytes(color) * 12)
                if start < 0:
                    continue
                if found and found[-1][0] == name and y - found[-1][3] < 12:
                    found[-1][3] = y
                else:
                    found.append([name, start // 3 + 6, y, y])
        return [(name, x, (top + bottom) // 2) for name, x, top, bottom in found]

    def expect_rows(self, names):
        """Waits until the lists show these; whatever else the presets are does not count."""
        deadline = time.monotonic() + 20
        while (found := "".join(row[0] for row in self.rows() if row[0] in COLORS)) != names:
            self.assertLess(time.monotonic(), deadline, f"the lists show {found}, not {names}")
            time.sleep(0.1)

    def drag(self, source, target, below=False):
        """Rows count from the top; the target may be a row's name. A drop is meant for the gap above the target row."""
        rows = self.rows()
        _, x, y = rows[source]
        end = next(row for row in rows if row[0] == target) if isinstance(target, str) else rows[target]
        end_x, end_y = end[1] + 30, end[2] + (10 if below else -10)
        xdotool("mousemove", x, y, "mousedown", 1)
        for step in range(1, 9):
            xdotool("mousemove", x + (end_x - x) * step // 8, y + (end_y - y) * step // 8)
        xdotool("mousemove", end_x + 1, end_y, "sleep", 0.2, "mouseup", 1)

    def test_moves_and_copies(self):
        self.drag(0, 2, below=True)  # A behind C
        self.expect_rows("BCAD")
        self.drag(3, 0)
        self.expect_rows("DBCA")
        self.drag(1, "lines")  # a copy of B before the preset LINES
        self.expect_rows("DBCAB")
        self.drag(4, 3, below=True)  # and back, below all layers
        self.expect_rows("DBCABB")

        xdotool("key", "ctrl+s")
        xdotool("search", "--sync", "--onlyvisible", "--name", "^Save Project$", "windowfocus", "--sync")
        xdotool("type", str(self.folder / "after.mpr"))
        xdotool("key", "Return")
        saved = self.folder / "after.mpr"
        deadline = time.monotonic() + 20
        while not saved.exists():
            self.assertLess(time.monotonic(), deadline)
            time.sleep(0.1)
        archive = Unarchive(saved.read_bytes())
        items = archive.elements(archive.elements(archive.root())[2])
        self.assertEqual("".join(archive[item["label"]] for item in items), "DBCAB")


if __name__ == "__main__":
    unittest.main(verbosity=2)
