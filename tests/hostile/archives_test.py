# SPDX-License-Identifier: MIT
"""Every file of corpus.py, and archives whose values are known, opened and saved again by open_files; what was saved is read
with Python's own property-list reader."""

import collections
import json
import os
import pathlib
import plistlib
import subprocess
import tempfile
import unittest

import corpus
from corpus import EITHER, FLAGS, LARGEST, OPENED, REFUSED, SAME, SMALLEST, colour_space, made
from plistlib import UID
from raw_archive import *

ARRAY = {"$classname": "NSMutableArray", "$classes": ["NSMutableArray", "NSArray", "NSObject"]}


def named(name):
    return {"$classname": name, "$classes": [name, "NSObject"]}


ITEM = {
    "col": 300, "bgenable": True, "boarderenable": False, "panelwidth": 40, "panelheight": 100000, "row": 2,
    "rectcolor": UID(6), "visible": True, "screenheight": 200000, "screenwidth": 12000, "xpoint": -70000, "ypoint": 0,
    "xyfontsize": -1, "xyenable": False, "fontenable": False, "circleenable": True, "screenfontsize": 0,
    "circlecolor": UID(8), "boardercolor": UID(9), "label": UID(10), "boarderwidth": 1, "circlebwidth": 4, "$class": UID(11)}
SAMPLE = {"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": UID(1)}, "$objects": [
    "$null",
    {"NS.objects": [UID(2), UID(3), UID(4)], "$class": UID(19)},
    1080,
    1920,
    {"NS.objects": [UID(5), UID(12), UID(5)], "$class": UID(19)},
    ITEM,
    {"NSColorSpace": 1, "NSRGB": b"0.1 0.3333333333 1 0.5\0", "$class": UID(7)},
    named("NSColor"),
    {"NSColorSpace": 2, "NSRGB": b"7.043773371e-05 -1 1.5\0", "$class": UID(7)},
    {"NSColorSpace": 3, "NSWhite": b"1\0", "$class": UID(7)},
    "Wand \u00e4 \U0001F600",
    named("GXScreen"),
    {**dict.fromkeys(ITEM, 0), **dict.fromkeys(FLAGS, False), "rectcolor": UID(6), "circlecolor": UID(13),
     "boardercolor": UID(14), "label": UID(10), "imageURL": UID(15), "$class": UID(18)},
    {"NSColorSpace": 5, "NSCMYK": b"0 1e+20 0 1\0", "$class": UID(7)},
    {"NSColorSpace": 4, "NSWhite": b"0.3333333333 0\0", "$class": UID(7)},
    {"NS.base": UID(0), "NS.relative": UID(16), "$class": UID(17)},
    "file:///logos/a%20b.png",
    named("NSURL"),
    named("GXStill"),
    ARRAY]}

# What an object makes of the output's height: any number, cut to 32 bits.
HEIGHTS = {
    "10 FF": 255, "11 FFFF": 65535, "12 FFFFFFFF": -1, "13 FFFFFFFF FFFFFFFF": -1, "13 80000000 00000000": 0,
    "13 00000001 80000000": SMALLEST, "14 00000000 00000000 FFFFFFFF 00000007": 7, "22 C0200000": -2,
    "23 C0000000 00000000": -2, "23 C33E0000 00000000": SMALLEST, "23 7FF00000 00000000": LARGEST, "23 7FF80000 00000000": 0,
    "09": 1, "08": 0}

RGB, DEVICE_RGB, WHITE, DEVICE_WHITE, CMYK = range(5)
ONES = b"1" * 2 ** 20
# NSColorSpace, key and data; the space, components and alpha that are read.
COLOURS = [
    (1, "NSRGB", b"0 0.01709265294 0.5114030934 0.8\0", RGB, [0, 0.01709265294, 0.5114030934, 0], 0.8),
    (3, "NSWhite", b"0.25 0.5\0", WHITE, [0.25, 0, 0, 0], 0.5),
    (4, "NSWhite", b"0.25\0", DEVICE_WHITE, [0.25, 0, 0, 0], 1),
    (5, "NSCMYK", b"0 0.25 1 0.5 0.75\0", CMYK, [0, 0.25, 1, 0.5], 0.75),
    (10, "NSImage", b"\0", WHITE, [0, 0, 0, 0], 1),
    # Damaged numbers are read as their default.
    (1, "NSRGB", b"", RGB, [0, 0, 0, 0], 1),
    (1, "NSRGB", b"  1  0.5   0.25  0.125  9", RGB, [1, 0.5, 0.25, 0], 0.125),
    (1, "NSRGB", b"nan inf -inf nan", RGB, [0, 0, 0, 0], 1),
    (1, "NSRGB", b"0,5 1.5x 0x1 0,5", RGB, [0, 0, 0, 0], 1),
    (1, "NSRGB", b"-2 3 1e300 -1", RGB, [-2, 3, 1e300, 0], -1),
    (1, "NSRGB", ONES + b" 1 1", RGB, [0, 0, 0, 0], 1),
    (1, "NSRGB", b"1 " + b"0" * 62 + b"1 1 0.5", RGB, [1, 1, 1, 0], 0.5),
    (1, "NSRGB", b"1 " + b"0" * 63 + b"1 1 0.5", RGB, [1, 0, 1, 0], 0.5),
]

# What is painted of a colour with components 0.1 0.2 0.3 0.4 of its own, by the number of their space.
CONVERTED, OWN, OWN_WHITE = [1, 0.5, 0, 1], [0.1, 0.2, 0.3, 0.4], [0.1, 0.1, 0.1, 0.2]
OWN_SPACES = [("NSID", 1, CONVERTED), ("NSID", 4, OWN), ("NSID", 5, OWN_WHITE), ("NSID", 7, OWN), ("NSID", 8, CONVERTED),
              ("NSID", 9, OWN_WHITE), ("NSSpaceID", 12, CONVERTED), ("NSSpaceID", 14, OWN), ("NSSpaceID", 15, OWN_WHITE),
              ("NSSpaceID", 16, CONVERTED), ("NSModel", 0, CONVERTED)]


class Archives(unittest.TestCase):
    def open_files(self, files):
        """Of each the project in it, or {"refused": why}, and the file saved again; in one run of the program."""
        with tempfile.TemporaryDirectory() as folder:
            paths = [pathlib.Path(folder) / f"{number:05}" for number in range(len(files))]
            for path, data in zip(paths, files):
                path.write_bytes(data)
            run = subprocess.run([os.environ["OPEN_FILES"], folder], capture_output=True, text=True, timeout=600,
                                 stdin=subprocess.DEVNULL, env=os.environ | {"QT_QPA_PLATFORM": "offscreen"})
            self.assertEqual(run.returncode, 0, run.stderr[-2000:])
            copies = [path.with_suffix(".copy") for path in paths]
            return ([json.loads(line) for line in run.stdout.splitlines()],
                    [copy.read_bytes() if copy.exists() else None for copy in copies])

    def read(self, files):
        return self.open_files(files)[0]

    def test_each_case_is_refused_or_read_like_the_plain_project(self):
        cases = [case for case in (*corpus.variations(), *corpus.cases(pathlib.Path("/w"), crowded=False))
                 if case[1] != EITHER and (case[1] != OPENED or len(case[2]) < 2 ** 20)]
        found, copies = self.open_files([made(lambda p: None), *(data for *_, data in cases)])
        for project in found:
            for item in project.get("items", []):
                for key in ("rectcolor", "boardercolor", "circlecolor"):
                    (item[key] or {}).pop("kept", None)
        # The first row of what begins like a set of rows; all else is none.
        rows = {"rows from 5, 2": 5, "rows from 0, 0": 0, f"rows from {LARGEST}, {LARGEST}": LARGEST,
                "2 ranges in 02010501, 4 bytes": 2, "2 ranges in 02, 1 bytes": 2, f"{LARGEST} ranges in 0101, 2 bytes": 1,
                "2 ranges in feffffff07fe, 20 bytes": LARGEST - 1}
        for (name, expected, data), project, copy in zip(cases, found[1:], copies[1:], strict=True):
            with self.subTest(name):
                self.assertEqual("refused" in project, expected == REFUSED, project)
                if expected == SAME:
                    self.assertEqual(project, found[0])
                if copy:
                    self.assertLess(len(copy), len(data) + 1000)
                self.assertEqual(project.get("row"), rows.pop(name, None))
        self.assertEqual(rows, {})

    def test_a_project_is_written_as_it_came(self):
        _, (copy,) = self.open_files([plistlib.dumps(SAMPLE, fmt=plistlib.FMT_BINARY)])
        self.assertEqual(plistlib.loads(copy), SAMPLE)
        self.assertEqual(self.open_files([copy])[1], [copy])

    def test_values(self):
        def labelled(p):
            p.entries[LABEL] = p.utf16("a\0\ud800\u00e4\udfff\U0001f600")

        def without(p):
            p.remove(SCREEN, "col", "visible", "label", "rectcolor")
            p.remove(STILL, "imageURL")

        projects = self.read([made(lambda p: None), made(labelled), made(without)] + [
            made(lambda p: p.entries.__setitem__(HEIGHT, p.raw(data))) for data in HEIGHTS])
        (screen, still), (with_text, _), (bare_screen, bare_still) = (project["items"] for project in projects[:3])
        keys = "kind", "col", "row", "xpoint", "visible", "circlecolor"
        self.assertEqual([screen[key] for key in keys], ["screen", 4, 3, -5, True, None])
        self.assertEqual([still[key] for key in keys], ["still", 4, 3, -5, True, None])
        self.assertEqual((projects[0]["height"], projects[0]["width"]), (108, 192))
        self.assertEqual(still["imageFile"], "/w/a b.png")
        self.assertEqual(screen["label"], list(b"Wall A"))
        self.assertEqual(with_text["label"], [0x61, 0, 0xd800, 0xe4, 0xdfff, 0xd83d, 0xde00])
        self.assertEqual([bare_screen[key] for key in ("col", "visible", "label", "rectcolor")], [0, False, None, None])
        self.assertNotIn("imageFile", bare_still)
        self.assertEqual(dict(zip(HEIGHTS, (project["height"] for project in projects[3:]), strict=True)), HEIGHTS)

    def test_what_is_not_read_is_kept(self):
        def records(data):
            """The keys of each colour and each location."""
            return collections.Counter(
                tuple(sorted(entry)) for entry in plistlib.loads(data)["$objects"] if isinstance(entry, dict)
                and not entry.keys().isdisjoint(("NSRGB", "NSColorSpace", "NS.base", "NS.relative")))

        texts = {"file:///w \u00e4\\%.png": "/w \u00e4\\%.png", "/with space": "none", "file:///" + "x" * 2 ** 15: "none"}
        files = [made(lambda p: p.entries.__setitem__(LINK_TEXT, p.utf16(text))) for text in texts]
        files += [made(oddity) for oddity in corpus.ODDITIES.values()]
        found, copies = self.open_files(files)
        for (text, file), project, copy in zip(texts.items(), found, copies):
            self.assertEqual(project["items"][1]["imageFile"], file)
            self.assertIn(text, plistlib.loads(copy)["$objects"])
        for name, data, project, copy in zip([*texts, *corpus.ODDITIES], files, found, copies, strict=True):
            self.assertFalse(records(data) - records(copy), name)
            self.assertTrue("URL" not in name or project["items"][1]["imageFile"] == "none", name)
        self.assertEqual(self.open_files(copies)[1], copies)

    def test_the_first_error_is_told(self):
        fault = made(lambda p: p.set(SCREEN, col=p.text("4"), label=p.uid(999)))
        self.assertEqual(self.read([fault]), [{"refused": 'GXScreen: the value of "col" is not an integer'}])

    def test_colours(self):
        def coloured(p, space, key, data):
            p.remove(COLOUR, "NSRGB")
            p.set(COLOUR, NSColorSpace=p.integer(space), **{key: p.data(data)})

        def with_own_space(p, key, number):
            p.set(COLOUR, NSComponents=p.data(b"0.1 0.2 0.3 0.4"),
                  NSCustomColorSpace=colour_space(p, **{key: p.integer(number)}))

        files = [made(coloured, *row[:3]) for row in COLOURS] + [made(with_own_space, *row[:2]) for row in OWN_SPACES]
        found = [project["items"][0]["rectcolor"] for project in self.read(files)]
        for row, colour in zip(COLOURS + OWN_SPACES, found, strict=True):
            with self.subTest(row[:2]):
                if len(row) == 3:
                    self.assertEqual((colour["rgba"], colour["kept"]), (row[2], True))
                else:
                    self.assertEqual((colour["space"], colour["components"], colour["alpha"]), row[3:])

if __name__ == "__main__":
    unittest.main(verbosity=2)
