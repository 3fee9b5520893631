# SPDX-License-Identifier: MIT
"""Works the program's window from outside with a real mouse and real keys, on an X server of the test's own
(tools/with-display) with a window manager. What the window shows is read from pictures of it."""

import contextlib
import os
import pathlib
import subprocess
import time

import numpy

from program import WALLGRID, ProgramTest

WIDTH, HEIGHT, LIST_WIDTH = 1400, 840, 250  # of the window, and of the part of it that holds the lists
THUMBNAIL_HEIGHT = 27


def xdotool(*words, check=True):
    return subprocess.run(["xdotool", *map(str, words)], check=check, capture_output=True, text=True, timeout=60).stdout


def succeeds(*words):
    return subprocess.run(["xdotool", *words], capture_output=True, timeout=60).returncode == 0


def comes_true(holds, seconds):
    deadline = time.monotonic() + seconds
    while not (true := holds()) and time.monotonic() < deadline:
        time.sleep(0.1)
    return true


def active_title():
    """Of the window that has the keyboard."""
    return xdotool("getactivewindow", "getwindowname", check=False).strip()


def grab(width, height, x=0, y=0, window="root"):
    """What is on the displays there, or in that part of a window: rows of columns of red, green and blue."""
    command = ["import", "-silent", "-window", window, "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8", "rgb:-"]
    picture = subprocess.run(command, check=True, capture_output=True, timeout=60).stdout
    return numpy.frombuffer(picture, numpy.uint8).reshape(height, width, 3)


class WindowTest(ProgramTest):
    """Places are counted in the program's window."""

    COLORS = {}  # by their names, those that thumbnails are found by

    def start(self, *command):
        environment = os.environ | {"HOME": str(self.folder), "XDG_STATE_HOME": str(self.folder)}
        process = subprocess.Popen(command, cwd=self.folder, env=environment, stdout=subprocess.DEVNULL)
        self.addCleanup(process.wait, 20)
        self.addCleanup(process.terminate)
        return process

    def open_window(self, *files):
        self.start("openbox")
        # A window that is there before it is put elsewhere.
        self.wait_until(lambda: succeeds("get_num_desktops"), "there is no window manager")
        self.program = self.start(WALLGRID, *files)
        search = "search", "--onlyvisible", "--class", "^wallgrid$"
        self.wait_until(lambda: succeeds(*search), "the program has no window")
        self.window = xdotool(*search).split()[0]
        self.expect_editor_active()

    def wait_until(self, holds, otherwise=""):
        """`otherwise` is a text or a function that makes one."""
        if not comes_true(holds, 40):
            self.fail(otherwise() if callable(otherwise) else otherwise)

    def rows(self):
        """The thumbnails in the lists from the top: name and middle of each."""
        lists = self.picture(LIST_WIDTH)
        found = []
        for name, color in self.COLORS.items():
            matches, end = (lists == color).all(2), 0
            for y in numpy.flatnonzero(matches.sum(1) >= 12):  # no more than that is letters or a thin line
                if y >= end:
                    found.append((name, numpy.flatnonzero(matches[y])[0] + 6, y + THUMBNAIL_HEIGHT // 2))
                    end = y + THUMBNAIL_HEIGHT
        return sorted(found, key=lambda row: row[2])

    def expect_rows(self, names):
        """Waits until the lists show these; names of more than a letter do not count."""
        def shown():
            return "".join(row[0] for row in self.rows() if len(row[0]) == 1)
        self.wait_until(lambda: shown() == names, lambda: f"the lists show {shown()}, not {names}")

    def picture(self, width=WIDTH):
        return grab(width, HEIGHT, window=self.window)

    def point(self, x, y, *words):
        xdotool("mousemove", "--window", self.window, x, y, *words)

    def drag(self, start, end, may_drop=lambda: True):
        (x, y), (end_x, end_y) = start, end
        self.point(x, y, "mousedown", 1)
        for step in range(1, 9):
            self.point(x + (end_x - x) * step // 8, y + (end_y - y) * step // 8)
        self.drop(end_x, end_y, may_drop)

    def drop(self, x, y, may_drop):
        """Moves back and forth until it may: a busy program sees one move for many, and that one only starts the drag."""
        def moved():
            self.point(x + 1, y, "sleep", 0.1)
            self.point(x, y)
            return may_drop()
        self.wait_until(moved, "nothing can be dropped there")
        xdotool("mouseup", 1)

    def drag_row(self, source, target, below=False):
        """Rows count from the top, or are the first of a name. A drop is meant for the gap above the target row."""
        rows = self.rows()
        def place(row):
            return next(found for found in rows if found[0] == row) if isinstance(row, str) else rows[row]
        _, x, y = place(target)
        end = y + (10 if below else -10)
        def line_is_shown():
            return ((self.picture(LIST_WIDTH)[end - 12:end + 12] < 60).all(2).sum(1) > LIST_WIDTH // 2).any()
        self.drag(place(source)[1:], (x + 30, end), line_is_shown)

    def expect_active(self, title):
        """Waits until a window whose title starts so has the keyboard."""
        self.wait_until(lambda: active_title().startswith(title), lambda: f"{active_title()} is active, not {title}")

    def expect_editor_active(self):
        self.wait_until(lambda: xdotool("getactivewindow", check=False).strip() == self.window,
                        lambda: f"{active_title()} is active, not the editor")

    def choose_file(self, keys, panel, path):
        """In the file panel that the keys open."""
        xdotool("key", keys)
        self.expect_active(panel)
        xdotool("type", str(path))
        for _ in range(3):  # completions that are found late come up as a list, which takes a Return for itself
            xdotool("key", "Return")
            if comes_true(lambda: not active_title().startswith(panel), 10):
                break
        self.expect_editor_active()

    def holds(self, path):
        """Whether the program has the file open."""
        for entry in pathlib.Path(f"/proc/{self.program.pid}/fd").iterdir():
            with contextlib.suppress(FileNotFoundError):  # closed meanwhile
                if os.readlink(entry) == str(path):
                    return True
        return False

    def write(self, keys, panel, name):
        """Has the program write a file that is not there yet; gives its path."""
        path = self.folder / name
        self.choose_file(keys, panel, path)
        self.wait_until(lambda: path.exists() and not self.holds(path), f"{path} is not written")
        return path
