# SPDX-License-Identifier: MIT
"""Reads a project that our code wrote with Python's own property-list reader."""

import os
import pathlib
import subprocess
import tempfile
import unittest

from project_files import Unarchive


class ProjectFile(unittest.TestCase):
    def setUp(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "sample.mpr"
            subprocess.run([os.environ["WRITE_SAMPLE_PROJECT"], path], check=True, timeout=60)
            self.archive = Unarchive(path.read_bytes())

    def named(self, record, *names):
        """The record's own keys, its class being as expected."""
        self.assertEqual(self.archive.class_of(record), {"$classname": names[0], "$classes": list(names)})
        return {key: value for key, value in record.items() if key != "$class"}

    def test_container(self):
        plist = self.archive.plist
        self.assertEqual((sorted(plist), plist["$version"], plist["$archiver"], list(plist["$top"])),
                         (["$archiver", "$objects", "$top", "$version"], 100000, "NSKeyedArchiver", ["root"]))
        self.assertEqual(self.archive.objects[0], "$null")

    def test_items(self):
        archive = self.archive
        height, width, items = archive.elements(archive.root())
        self.assertEqual((height, width), (1080, 1920))
        uids = items["NS.objects"]
        self.assertEqual((len(uids), uids[0]), (3, uids[2]))
        screen, still, _ = archive.elements(items)

        fill = screen["rectcolor"]
        record = self.named(screen, "GXScreen", "NSObject")
        references = {key: record.pop(key) for key in ("rectcolor", "boardercolor", "circlecolor", "label")}
        self.assertEqual(record, {
            "col": 300, "bgenable": True, "boarderenable": False, "panelwidth": 40, "panelheight": 100000, "row": 2,
            "visible": True, "screenheight": 200000, "screenwidth": 12000, "xpoint": -70000, "ypoint": 0,
            "xyfontsize": -1, "xyenable": False, "fontenable": False, "circleenable": True, "screenfontsize": 0,
            "boarderwidth": 1, "circlebwidth": 4})
        self.assertEqual([type(record[key]) for key in ("visible", "bgenable", "col")], [bool, bool, int])
        self.assertEqual(archive[references["label"]], "Wand \N{LATIN SMALL LETTER A WITH DIAERESIS} \N{GRINNING FACE}")
        for key, expected in (("rectcolor", {"NSColorSpace": 1, "NSRGB": b"0.1 0.3333333333 1 0.5\0"}),
                              ("boardercolor", {"NSColorSpace": 3, "NSWhite": b"1\0"}),
                              ("circlecolor", {"NSColorSpace": 2, "NSRGB": b"0 0 1\0"})):
            self.assertEqual(self.named(archive[references[key]], "NSColor", "NSObject"), expected)

        record = self.named(still, "GXStill", "NSObject")
        self.assertEqual(len(record), 23)
        self.assertEqual(record["rectcolor"], fill, "one colour object is one entry")
        self.assertEqual([archive[record[key]] for key in ("label", "boardercolor", "circlecolor")], [None] * 3)
        url = self.named(archive[record["imageURL"]], "NSURL", "NSObject")
        self.assertEqual((archive[url["NS.base"]], archive[url["NS.relative"]]), (None, "file:///logos/a%20b.png"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
