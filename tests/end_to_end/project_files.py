# SPDX-License-Identifier: MIT
"""Writes project files with Python's own property-list writer, so that no line of ours stands on both sides."""

import plistlib
from plistlib import UID


class Archive:
    """A keyed archive in the making: objects are added and referred to by UID."""

    def __init__(self):
        self.objects = ["$null"]
        self.classes = {}

    def add(self, entry):
        self.objects.append(entry)
        return UID(len(self.objects) - 1)

    def class_named(self, *names):
        if names not in self.classes:
            self.classes[names] = self.add({"$classname": names[0], "$classes": list(names)})
        return self.classes[names]

    def array(self, elements):
        return self.add({"NS.objects": elements, "$class": self.class_named("NSArray", "NSObject")})

    def color(self, r, g, b, a=1):
        numbers = [r, g, b] if a == 1 else [r, g, b, a]
        text = " ".join(f"{n:.10g}" for n in numbers).encode() + b"\0"
        return self.add({"NSColorSpace": 1, "NSRGB": text, "$class": self.class_named("NSColor", "NSObject")})

    def url(self, text):
        return self.add({"NS.base": UID(0), "NS.relative": self.add(text),
                         "$class": self.class_named("NSURL", "NSObject")})

    def item(self, kind, values):
        record = {"col": 0, "bgenable": False, "boarderenable": False, "panelwidth": 0, "panelheight": 0, "row": 0,
                  "rectcolor": UID(0), "visible": True, "screenheight": 0, "screenwidth": 0, "xpoint": 0, "ypoint": 0,
                  "xyfontsize": 0, "xyenable": False, "fontenable": False, "circleenable": False, "screenfontsize": 0,
                  "circlecolor": UID(0), "boardercolor": UID(0), "label": UID(0), "boarderwidth": 0, "circlebwidth": 0}
        if kind == "GXStill":
            record["imageURL"] = UID(0)
        assert set(values) <= set(record), set(values) - set(record)
        record.update(values)
        record["$class"] = self.class_named(kind, "NSObject")
        return self.add(record)

    def data(self, root):
        return plistlib.dumps({"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": root},
                               "$objects": self.objects}, fmt=plistlib.FMT_BINARY)


class Unarchive:
    """What an archive holds, followed by UID."""

    def __init__(self, data):
        self.plist = plistlib.loads(data)
        self.objects = self.plist["$objects"]

    def root(self):
        return self[self.plist["$top"]["root"]]

    def __getitem__(self, uid):
        return None if uid.data == 0 else self.objects[uid.data]

    def class_of(self, record):
        return self[record["$class"]]

    def elements(self, record):
        return [self[uid] for uid in record["NS.objects"]]
