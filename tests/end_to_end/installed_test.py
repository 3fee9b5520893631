# SPDX-License-Identifier: MIT
"""Installs the program into a folder and has the desktop's own tools judge what is there."""

import os
import subprocess
import unittest

from program import ProgramTest


class Installed(ProgramTest):
    def test_tree(self):
        run = lambda *words: subprocess.run(words, check=True, capture_output=True, text=True, timeout=120).stdout
        run("cmake", "--install", os.environ["WALLGRID_BUILD"], "--prefix", self.folder)
        self.assertEqual(run("desktop-file-validate", *self.folder.glob("share/applications/*.desktop")), "")
        run("xmllint", "--noout", *self.folder.glob("share/mime/packages/*.xml"))
        self.assertRegex(run(self.folder / "bin/wallgrid", "--version"), r"\Awallgrid \d")


if __name__ == "__main__":
    unittest.main(verbosity=2)
