# SPDX-License-Identifier: MIT
"""Property lists and project files put together byte by byte and without any check, to make what no writer makes."""

import struct

NULL, ROOT, HEIGHT, WIDTH, ITEMS, SCREEN, STILL, LABEL, COLOUR, LINK, LINK_TEXT, ARRAY_CLASS, SCREEN_CLASS, STILL_CLASS, \
    COLOUR_CLASS, LINK_CLASS, ENTRY_COUNT = range(17)


def number(value, width):
    return (value % (1 << (8 * width))).to_bytes(width, "big")


def head(marker, size):
    return bytes([marker | size]) if size < 15 else bytes([marker | 15, 0x12]) + number(size, 4)


class Plist:
    """Objects in the order in which they are added, each named by its number. What the trailer and the offset table
    claim can be set to something else than the truth."""

    def __init__(self, offsets=4, references=4):
        self.offsets, self.references = offsets, references
        self.objects = []
        self.claimed = {}  # "offsets", "references", "count", "top", "table"
        self.claimed_offsets = {}

    def raw(self, data):
        """An object by its bytes, given as such or in hexadecimal digits."""
        self.objects.append(bytes.fromhex(data) if isinstance(data, str) else data)
        return len(self.objects) - 1

    def next(self):
        return len(self.objects)

    def text(self, text):
        return self.raw(head(0x50, len(text)) + text.encode("ascii"))

    def utf16(self, text):
        data = text.encode("utf-16-be", "surrogatepass")
        return self.raw(head(0x60, len(data) // 2) + data)

    def data(self, data):
        return self.raw(head(0x40, len(data)) + data)

    def integer(self, value):
        return self.raw(b"\x13" + number(value, 8))

    def boolean(self, value):
        return self.raw(b"\x09" if value else b"\x08")

    def real(self, value):
        return self.raw(b"\x23" + struct.pack(">d", value))

    def uid(self, value, width=4):
        return self.raw(bytes([0x80 | (width - 1)]) + number(value, width))

    def refs(self, refs):
        return b"".join(number(ref, self.references) for ref in refs)

    def array(self, elements):
        return self.raw(head(0xA0, len(elements)) + self.refs(elements))

    def dictionary(self, pairs):
        return self.raw(head(0xD0, len(pairs)) + self.refs([k for k, _ in pairs] + [v for _, v in pairs]))

    def write(self, top):
        body, table = [b"bplist00"], []
        at = 8
        for i, each in enumerate(self.objects):
            table.append(number(self.claimed_offsets.get(i, at), self.offsets))
            body.append(each)
            at += len(each)
        claim = self.claimed.get
        return b"".join(body + table + [
            bytes(6), number(claim("offsets", self.offsets), 1), number(claim("references", self.references), 1),
            number(claim("count", len(self.objects)), 8), number(claim("top", top), 8), number(claim("table", at), 8)])


class Project(Plist):
    """A project of 192 x 108 with a screen and a still, in which each part can be replaced."""

    def __init__(self, offsets=4, references=4):
        super().__init__(offsets, references)
        self.entries = [{} for _ in range(ENTRY_COUNT)]  # fields by key, or the number of an object
        self.replaced = {}  # of the top dictionary; None leaves a key out
        self.roots = None
        self.top_object = self.last_object = None
        self.newer_order = self.wide_keys = False
        self.names = {}
        self.entries[NULL] = self.text("$null")
        self.entries[HEIGHT], self.entries[WIDTH] = self.integer(108), self.integer(192)
        self.entries[LABEL], self.entries[LINK_TEXT] = self.text("Wall A"), self.text("file:///w/a%20b.png")
        for entry, *names in ((ARRAY_CLASS, "NSMutableArray", "NSArray", "NSObject"), (SCREEN_CLASS, "GXScreen", "NSObject"),
                              (STILL_CLASS, "GXStill", "NSObject"), (COLOUR_CLASS, "NSColor", "NSObject"),
                              (LINK_CLASS, "NSURL", "NSObject")):
            self.entries[entry] = self.description(names)
        self.set(ROOT, NS_objects=self.uids(HEIGHT, WIDTH, ITEMS), class_=ARRAY_CLASS)
        self.set(ITEMS, NS_objects=self.uids(SCREEN, STILL), class_=ARRAY_CLASS)
        for item, described in ((SCREEN, SCREEN_CLASS), (STILL, STILL_CLASS)):
            self.set(item, col=self.integer(4), row=self.integer(3), xpoint=self.integer(-5), visible=self.boolean(True),
                     panelwidth=self.integer(20), panelheight=self.integer(20), bgenable=self.boolean(True),
                     label=self.uid(LABEL), rectcolor=self.uid(COLOUR), circlecolor=self.uid(0), class_=described)
        self.set(STILL, imageURL=self.uid(LINK))
        self.set(COLOUR, NSColorSpace=self.integer(1), NSRGB=self.data(b"1 0.5 0\0"), class_=COLOUR_CLASS)
        self.set(LINK, NS_base=self.uid(0), NS_relative=self.uid(LINK_TEXT), class_=LINK_CLASS)

    def set(self, entry, **fields):
        """Fields of a record. `NS_x` is the key "NS.x"; `class_` takes the number of a class description."""
        for key, value in fields.items():
            if key == "class_":
                key, value = "$class", self.uid(value)
            self.entries[entry][key.replace("NS_", "NS.")] = value

    def remove(self, entry, *keys):
        for key in keys:
            del self.entries[entry][key]

    def add(self, entry):
        self.entries.append(entry)
        return len(self.entries) - 1

    def record(self, class_, **fields):
        uid = self.add({})
        self.set(uid, **fields, class_=class_)
        return uid

    def description(self, names, **fields):
        return {"$classname": self.text(names[0]), "$classes": self.array([self.text(name) for name in names])} | fields

    def class_named(self, *names):
        return self.add(self.description(names))

    def uids(self, *uids):
        return self.array([self.uid(uid) for uid in uids])

    def items(self, *uids):
        self.set(ITEMS, NS_objects=self.uids(*uids))

    def size(self, width, height):
        self.entries[WIDTH], self.entries[HEIGHT] = self.integer(width), self.integer(height)

    def value(self, value):
        """Of a record: numbers and flags as such, a text or a calibrated colour of three or four numbers by reference."""
        if isinstance(value, (bool, int)):
            return self.boolean(value) if isinstance(value, bool) else self.integer(value)
        if value is None or isinstance(value, str):
            return self.uid(0 if value is None else self.add(self.utf16(value)))
        numbers = " ".join(f"{number:.10g}" for number in value).encode() + b"\0"
        return self.uid(self.record(COLOUR_CLASS, NSColorSpace=self.integer(1), NSRGB=self.data(numbers)))

    def item(self, class_, **values):
        return self.record(class_, **{key: self.value(value) for key, value in values.items()})

    def key(self, key):
        """Keys are shared, as every writer shares them."""
        if key not in self.names:
            self.names[key] = (self.utf16 if self.wide_keys else self.text)(key)
        return self.names[key]

    def fields(self, fields):
        return self.dictionary([(self.key(key), value) for key, value in fields.items()])

    def file(self):
        objects = self.array([self.fields(entry) if isinstance(entry, dict) else entry for entry in self.entries])
        top = {"$version": self.integer(100000), "$objects": objects, "$archiver": self.text("NSKeyedArchiver"),
               "$top": self.fields({"root": self.uid(ROOT)} if self.roots is None else self.roots)}
        if self.newer_order:
            top = {key: top[key] for key in ("$version", "$archiver", "$top", "$objects")}
        top = {key: value for key, value in (top | self.replaced).items() if value is not None}
        top = self.fields(top) if self.top_object is None else self.top_object
        if self.last_object is not None:
            self.raw(self.last_object)
        return self.write(top)
