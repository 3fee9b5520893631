# SPDX-License-Identifier: MIT
"""Runs the built program as a script would and compares files, output and exit codes."""

import ctypes
import json
import os
import pathlib
import random
import resource
import unittest

import numpy
from psd_tools import PSDImage

from composition import Screen, Still, compose
from program import ProgramTest, pixels_of, project

EXAMPLE = pathlib.Path(__file__).parents[2] / "docs" / "examples" / "stage.mpr"


class CommandLine(ProgramTest):
    def assertFails(self, code, words, error, **more):
        result = self.run_program(*words, **more)
        self.assertEqual((result.returncode, result.stdout or b"", result.stderr.decode()), (code, b"", error))

    def export(self, *words, **variables):
        result = self.run_program("export", *words, **variables)
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        return result.stdout

    def test_composition_of_random_documents(self):
        choose = random.Random(20260)
        pixels, path = self.logo(13, 11)
        for _ in range(12):
            width, height = choose.randint(1, 70), choose.randint(1, 50)
            color = lambda: choose.choice([None, (1, 0, 0), tuple(choose.random() for _ in range(4))])
            place = lambda: (choose.randint(-20, width), choose.randint(-20, height))
            items = [Still(pixels, path, *place(), visible=choose.random() > .2) if choose.random() < .3 else
                     Screen(choose.randint(1, 5), choose.randint(1, 5), choose.randint(1, 15), choose.randint(1, 15),
                            *place(), fill=color(), frame=color(), frame_width=choose.randint(0, 8),
                            visible=choose.random() > .2)
                     for _ in range(choose.randint(0, 9))]
            (self.folder / "wall.mpr").write_bytes(project(width, height, items))
            self.assertSamePixels(pixels_of(self.export("wall.mpr", "--png", "-")), compose(width, height, items))

    def test_launch_document_and_example(self):
        item = Screen(4, 4, 78, 78, 0, 0, fill=(1, 0, 0), frame=(1, 1, 1))
        self.assertSamePixels(pixels_of(self.export("--png", "-")), compose(1920, 1080, [item]))
        names = [item["name"] for item in json.loads(self.run_program("info", "--json", EXAMPLE).stdout)["items"]]
        picture = pixels_of(self.export(EXAMPLE, "--png", "-", "--psd", "stage.psd"))
        layers = PSDImage.open(self.folder / "stage.psd")
        self.assertEqual([layer.name for layer in reversed(layers)], names)
        self.assertGreater(len(numpy.unique(picture.view(numpy.uint32))), 4)

    def test_texts_are_drawn_on_a_machine_without_fonts(self):
        (self.folder / "text.mpr").write_bytes(project(200, 60, [
            Screen(1, 1, 200, 60, 0, 0, fontenable=True, screenfontsize=30)]))
        (self.folder / "fonts.conf").write_text("<?xml version='1.0'?><fontconfig></fontconfig>")
        for variables in ({}, {"FONTCONFIG_FILE": str(self.folder / "fonts.conf")}):
            picture = pixels_of(self.export("text.mpr", "--png", "-", **variables))
            y, x = numpy.nonzero((picture == 255).all(2))
            self.assertGreater(len(x), 100, variables)
            self.assertTrue(x.min() >= 4 and x.max() < 190 and y.min() >= 60 - 4 - 40, variables)
            self.assertLess(y.max(), 60 - 4 - 4, "the baseline lies above the line box's edge")

    def test_info(self):
        pixels, path = self.logo(17, 9)
        items = [Screen(3, 2, 7, 5, -4, 3), Still(pixels, path, 2, 1, visible=False),
                 Still(pixels[:6, :5], self.folder / "gone away.png", 0, 0)]
        names = ["Wand \N{EM DASH} \N{FACE WITH TEARS OF JOY}", "logo\x1b[2J\x7f", "x" * 999 + "\U0001f600y"]
        (self.folder / "wall.mpr").write_bytes(project(1920, 1080, items, names))
        result = self.run_program("info", "wall.mpr")
        self.assertEqual(result.stderr, b"")
        self.assertEqual(result.stdout.decode(), f"""\
Output: 1920 x 1080
Items: 3
    1  screen  21 x 10        at -4, 3         visible  Wand \N{EM DASH} \N{FACE WITH TEARS OF JOY}
    2  still   17 x 9         at 2, 1          hidden   logo?[2J?
    3  still   5 x 6          at 0, 0          visible  {"x" * 999}\N{HORIZONTAL ELLIPSIS}
Missing image files:
    3  {self.folder}/gone away.png
""")
        self.assertEqual(json.loads(self.run_program("info", "wall.mpr", "--json").stdout), {
            "outputWidth": 1920, "outputHeight": 1080, "items": [
                {"name": "Wand \N{EM DASH} \N{FACE WITH TEARS OF JOY}", "kind": "screen", "width": 21, "height": 10,
                 "x": -4, "y": 3, "visible": True},
                {"name": "logo\x1b[2J\x7f", "kind": "still", "width": 17, "height": 9, "x": 2, "y": 1, "visible": False,
                 "image": str(path), "imageMissing": False},
                {"name": "x" * 999 + "\N{HORIZONTAL ELLIPSIS}", "kind": "still", "width": 5, "height": 6, "x": 0, "y": 0, "visible": True,
                 "image": str(self.folder / "gone away.png"), "imageMissing": True}]})

    def test_standard_input_and_files_that_stay(self):
        stage = project(8, 4, [Screen(1, 1, 3, 3, 1, 1)])
        (self.folder / "stage.mpr").write_bytes(stage)
        self.assertEqual(self.export("-", "--png", "-", input=stage), self.export("stage.mpr", "--png", "-"))
        self.assertIn(b"8 x 4", self.run_program("info", "-", input=stage).stdout)
        self.assertEqual(self.run_program("export", "-v", "-q", "--png", "-").returncode, 2)
        for words, said in [(["-v"], "wallgrid: new.png: written\n"), (["-q"], "")]:
            self.assertEqual(self.run_program("export", "--png", "new.png", *words).stderr.decode(), said)
        self.assertFails(1, ["export", "--no-clobber", "--psd", "new.png", "--png", "other.png"],
                         "wallgrid: new.png: exists already\n")
        self.assertFalse((self.folder / "other.png").exists())
        failed = self.run_program("info", "--json", "-", input=stage[:40])
        self.assertEqual((failed.returncode, json.loads(failed.stdout)["file"]), (1, "-"))
        self.assertIn("damaged", json.loads(failed.stdout)["error"])
        self.assertRegex(self.run_program("-V").stdout, rb"^wallgrid \d")

    def test_failures_name_the_file_and_the_reason(self):
        for name in "kept.png", "kept.psd":
            (self.folder / name).write_bytes(b"precious")
        (self.folder / "notes.txt").write_text("no archive")
        (self.folder / "empty.mpr").write_bytes(project(0, 1080, []))
        os.mkfifo(self.folder / "pipe")
        png = ["--png", "kept.png"]
        usage = "; see wallgrid --help"
        for code, words, reason in [
                (1, ["export", "gone.mpr", *png], "gone.mpr: there is no such file"),
                (1, ["info", "gone.mpr"], "gone.mpr: there is no such file"),
                (1, ["export", "notes.txt", *png], "notes.txt: this is not a project"),
                (1, ["export", "pipe", *png], "pipe: this is a device or a pipe, not a file"),
                (1, ["export", "empty.mpr", *png], "empty.mpr: no picture of 0 x 1080 pixels can be made"),
                (1, ["export", "--png", "no/such/folder.png"], "no/such/folder.png: there is no such folder"),
                (1, ["export", "--png", "/dev/full"], "/dev/full: this is a device or a pipe, not a file"),
                (1, ["export", "empty.mpr", "--psd", "out.psd"], "out.psd: No visible layers in the document"),
                (1, [], "there is no display to open a window on; wallgrid export needs none"),
                (2, ["export"], f"nothing to write: --png FILE or --psd FILE is required{usage}"),
                (2, ["export", "--png", "-", "--psd", "-"], f"only one picture can go to standard output{usage}"),
                (2, ["info"], f"PROJECT is required{usage}"),
                (2, ["export", "--jpeg", "x"], f"The following argument was not expected: --jpeg{usage}")]:
            with self.subTest(words=words):
                self.assertFails(code, words, f"wallgrid: {reason}\n")
        # A device that is full after 1000 bytes of a larger file, and a folder that nobody may write to.
        small = dict(prepare=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000)))
        drop_right_to_write_anywhere = dict(prepare=lambda: ctypes.CDLL(None).prctl(24, 1, 0, 0, 0))
        for kind in "png", "psd":
            kept = f"kept.{kind}"
            self.assertFails(1, ["export", f"--{kind}", kept], f"wallgrid: {kept}: File too large\n", **small)
            self.folder.chmod(0o555)
            self.assertFails(1, ["export", f"--{kind}", kept], f"wallgrid: {kept}: the folder cannot be written to\n",
                             **drop_right_to_write_anywhere)
            self.folder.chmod(0o755)
            with open("/dev/full", "wb") as full:
                self.assertFails(1, ["export", f"--{kind}", "-"], "wallgrid: -: standard output cannot be written\n",
                                 output=full)
            self.assertEqual((self.folder / kept).read_bytes(), b"precious")
        self.assertEqual(sorted(os.listdir(self.folder)), ["empty.mpr", "kept.png", "kept.psd", "notes.txt", "pipe"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
