#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds our keyed archives against Python's plistlib: it reads what we write, and we read what it writes."""

import pathlib
import plistlib
import subprocess
import sys
import tempfile

UID = plistlib.UID
COLOUR = {"$classname": "NSColor", "$classes": ["NSColor", "NSObject"]}
ARRAY = {"$classname": "NSMutableArray", "$classes": ["NSMutableArray", "NSArray", "NSObject"]}


def archive(objects, root=1):
    return {"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": UID(root)}, "$objects": objects}


def check_written(tool, path):
    """The whole archive, entry by entry in the order in which they are met."""
    subprocess.run([tool, "write", path], check=True)
    expected = archive([
        "$null",
        {"NS.objects": [UID(2), UID(3), UID(4)], "$class": UID(16)},
        1080,
        1920,
        {"NS.objects": [UID(5), UID(10), UID(5)], "$class": UID(16)},
        {"col": 300, "xpoint": -1, "visible": True, "rectcolor": UID(6), "label": UID(8), "$class": UID(9)},
        {"NSRGB": b"0 0.5 0.3333333333 0.25\0", "NSColorSpace": 2, "$class": UID(7)},
        COLOUR,
        "W\u00e4nde \U0001F5A5",
        {"$classname": "GXScreen", "$classes": ["GXScreen", "NSObject"]},
        {"col": 100000, "xpoint": 0, "visible": False, "rectcolor": UID(6), "label": UID(11), "imageURL": UID(12),
         "$class": UID(15)},
        "Wall A",
        {"NS.base": UID(0), "NS.relative": UID(13), "$class": UID(14)},
        "file:///w/a%20b.png",
        {"$classname": "NSURL", "$classes": ["NSURL", "NSObject"]},
        {"$classname": "GXStill", "$classes": ["GXStill", "NSObject"]},
        ARRAY,
    ])
    found = plistlib.loads(path.read_bytes(), fmt=plistlib.FMT_BINARY)
    assert found == expected, f"wrote\n{found}\ninstead of\n{expected}"


def foreign_project():
    """A project with a colour that has a profile, as newer systems archive it, and a label outside ASCII."""
    return archive([
        "$null",
        {"$class": UID(2), "NS.objects": [UID(3), UID(4), UID(5)]},
        ARRAY,
        2 ** 32 + 96,
        8704,
        {"$class": UID(2), "NS.objects": [UID(6), UID(14)]},
        {"$class": UID(7), "col": 7, "xpoint": -(2 ** 31), "visible": True, "label": UID(8), "rectcolor": UID(9)},
        {"$classname": "GXScreen", "$classes": ["GXScreen", "NSObject"]},
        "\u5899 \U0001F5A5",
        {"$class": UID(10), "NSColorSpace": 1, "NSRGB": b"0.1565 0.4131 0.9984\0", "NSComponents": b"0.1973 0.513 1 0.5",
         "NSLinearExposure": b"1", "NSCustomColorSpace": UID(11)},
        COLOUR,
        {"$class": UID(12), "NSID": 7, "NSICC": UID(13)},
        {"$classname": "NSColorSpace", "$classes": ["NSColorSpace", "NSObject"]},
        bytes(range(256)) * 13,
        {"$class": UID(15), "col": 2 ** 31 - 1, "visible": False, "label": UID(0), "rectcolor": UID(0),
         "imageURL": UID(16), "future": {"list": [1.5, "x", [UID(1)]]}},
        {"$classname": "GXStill", "$classes": ["GXStill", "NSObject"]},
        {"$class": UID(17), "NS.base": UID(18), "NS.relative": UID(20)},
        {"$classname": "NSURL", "$classes": ["NSURL", "NSObject"]},
        {"$class": UID(17), "NS.base": UID(0), "NS.relative": UID(19)},
        "file:///w/walls/",
        "../a%20b.png",
    ])


def check_read(tool, path):
    path.write_bytes(plistlib.dumps(foreign_project(), fmt=plistlib.FMT_BINARY))
    found = subprocess.run([tool, "read", path], check=True, capture_output=True, text=True).stdout
    expected = ("96 8704\n"
                "GXScreen 7 -2147483648 1 5899 0020 d83d dda5 (0.1973 0.513 1 0.5)\n"
                "GXStill 2147483647 0 0 file:///w/a%20b.png\n")
    assert found == expected, f"read\n{found}\ninstead of\n{expected}"


def resolved(objects, value):
    """What a value stands for, UIDs followed; only for archives without cycles."""
    if isinstance(value, UID):
        return resolved(objects, objects[value.data])
    if isinstance(value, dict):
        return {key: resolved(objects, each) for key, each in value.items()}
    if isinstance(value, list):
        return [resolved(objects, each) for each in value]
    return value


def check_recoloured(tool, path, copy):
    subprocess.run([tool, "recolour", path, copy], check=True)
    project = foreign_project()["$objects"]
    found = plistlib.loads(copy.read_bytes(), fmt=plistlib.FMT_BINARY)
    assert found["$objects"][0] == "$null" and len(found["$objects"]) == 6, found
    assert resolved(found["$objects"], found["$top"]["root"]) == resolved(project, UID(9)), found


def index_set(**values):
    return archive(["$null", values | {"$class": UID(3)}, b"\x02\x01\x05\x01",
                    {"$classname": "NSIndexSet", "$classes": ["NSIndexSet", "NSObject"]}])


def check_rows(tool, path):
    """Sets of rows, whole; the data of two ranges and more is an object of its own."""
    written = {
        (): {"NSRangeCount": 0},
        (0,): {"NSRangeCount": 1, "NSLocation": 0, "NSLength": 1},
        (200, 201, 202): {"NSRangeCount": 1, "NSLocation": 200, "NSLength": 3},
        (2, 5): {"NSRangeCount": 2, "NSRangeData": b"\x02\x01\x05\x01"},
        (127, 128, 300, 70000): {"NSRangeCount": 3, "NSRangeData": b"\x7f\x02\xac\x02\x01\xf0\xa2\x04\x01"},
    }
    for rows, expected in written.items():
        subprocess.run([tool, "rows", path, *map(str, rows)], check=True)
        root = plistlib.loads(path.read_bytes(), fmt=plistlib.FMT_BINARY)
        found = resolved(root["$objects"], root["$top"]["root"])
        assert found.pop("$class") == {"$classname": "NSIndexSet", "$classes": ["NSIndexSet", "NSObject"]}, found
        if "NSRangeData" in found:
            data = found["NSRangeData"]
            assert data.pop("$class")["$classes"] == ["NSMutableData", "NSData", "NSObject"], data
            found["NSRangeData"] = data["NS.data"]
        assert found == expected, f"{rows}: wrote {found}"
        check_first(tool, path, rows[0] if rows else None)

    read = [
        (index_set(NSRangeCount=2, NSRangeData=UID(2)), 2),
        (index_set(NSRangeCount=1, NSLocation=2 ** 31 - 1, NSLength=9), 2 ** 31 - 1),
        (index_set(NSRangeCount=1, NSLocation=-1, NSLength=1), None),
        (index_set(NSRangeCount=1, NSLocation=2 ** 31, NSLength=1), None),
        (index_set(NSRangeCount=-1, NSRangeData=UID(2)), None),
        (index_set(NSRangeCount=2, NSRangeData=UID(0)), None),
        (index_set(NSRangeCount=2, NSRangeData=UID(3)), None),
        (index_set(NSRangeCount=2, NSRangeData="text"), None),
        (foreign_project(), None),
    ]
    for root, first in read:
        path.write_bytes(plistlib.dumps(root, fmt=plistlib.FMT_BINARY))
        check_first(tool, path, first)


def check_first(tool, path, expected):
    """Without an expected number the set must be refused."""
    run = subprocess.run([tool, "first", path], capture_output=True, text=True)
    found = int(run.stdout) if run.returncode == 0 else run.returncode
    assert found == (1 if expected is None else expected), f"{found} instead of {expected}: {run.stderr}"
    assert (expected is None) == bool(run.stderr), run.stderr


def main():
    tool = sys.argv[1]
    with tempfile.TemporaryDirectory() as folder:
        project, copy = pathlib.Path(folder, "project.mpr"), pathlib.Path(folder, "colour")
        check_written(tool, project)
        check_read(tool, project)
        check_recoloured(tool, project, copy)
        check_rows(tool, copy)


main()
