# SPDX-License-Identifier: MIT
"""Runs the built program in a folder of its own. WALLGRID_PROGRAM names another program than the one of this build."""

import os
import pathlib
import random
import subprocess
import tempfile
import unittest

import png
from raw_archive import Project

WALLGRID = os.environ.get("WALLGRID_PROGRAM") or os.environ["WALLGRID_BUILT"]


def project(width, height, items, names=None):
    p = Project()
    p.size(width, height)
    p.items(*(item.archive(p, names[i] if names else f"Item {i}") for i, item in enumerate(items)))
    return p.file()


class ProgramTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_program(self, *words, prepare=None, output=subprocess.PIPE, **variables):
        without = "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"
        environment = {key: value for key, value in os.environ.items() if key not in without}
        return subprocess.run([WALLGRID, *map(str, words)], stdout=output, stderr=subprocess.PIPE, cwd=self.folder,
                              env=environment | variables, preexec_fn=prepare, timeout=120)

    def logo(self, width, height, seed):
        choose = random.Random(seed)
        pixels = [tuple(choose.randrange(256) for _ in range(3)) + (choose.choice((0, 1, 90, 128, 254, 255)),)
                  for _ in range(width * height)]
        path = self.folder / f"logo{seed}.png"
        png.write(path, width, height, pixels)
        return pixels, path
