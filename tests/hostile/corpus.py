#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The files that nobody should have sent: corpus.py [--largest BYTES] [--varied] FOLDER writes all cases or those that are
small, and with --varied also the plain project in its every variation.

Each has a name and says what becomes of it: REFUSED (with a sentence), SAME (reads like the plain project), or OPENED or
EITHER (whichever, within the limits of time and memory)."""

import argparse
import itertools
import pathlib
import struct
import zlib

from raw_archive import *

REFUSED, SAME, OPENED, EITHER = "refused", "same", "opened", "either"
HUGE = 2 ** 64 - 1
LARGEST, SMALLEST = 2 ** 31 - 1, -2 ** 31
KINDS = {"null": "00", "boolean": "09", "integer": "1005", "wide integer": "13 FFFFFFFF FFFFFFFF",
         "integer of 16 bytes": "14 00000000 00000001 00000000 00000000", "unsigned integer of 32 bits": "12 80000000",
         "low integer": "13 FFFFFFFF 7FFFFFFF", "real": "23 7FF80000 00000000", "date": "33 00000000 00000000",
         "data": "43 312030", "string": "51 41", "UTF-16": "61 D800", "UID": "80 01", "UID of nil": "80 00",
         "UID of a number": "80 02", "UID of a text": "80 07", "UID of a colour": "80 08",
         "UID out of range": "87 FFFFFFFF FFFFFFFF", "array": "A0", "set": "C0", "dictionary": "D0"}
NUMBERS = {kind for kind in KINDS if "integer" in kind} | {"boolean", "real"}
TEXTS = {"string", "UTF-16", "UID of nil", "UID of a text"}


def made(change, *arguments, **project):
    p = Project(**project)
    change(p, *arguments)
    return p.file()


# The property list around the archive -----------------------------------------------------------------------------------

TRAILERS = [dict(offsets=0), dict(offsets=9), dict(offsets=255), dict(references=0), dict(references=9),
            dict(references=1), dict(count=0), dict(count=100000), dict(count=2 ** 62), dict(count=HUGE),
            dict(top=1000000), dict(top=HUGE), dict(table=0), dict(table=1000000), dict(table=HUGE)]

# By their bytes, as the last object of the file, so that only the check of the whole file sees them: of no known kind, of
# fewer bytes than they say, and with counts that are missing, damaged, or too large as they are or when multiplied.
OBJECTS = [f"{marker:02X}" for marker in range(256) if marker >> 4 in (7, 9, 0xB, 0xE, 0xF) or marker in (1, 0xA, 0xF, 0x30)]
OBJECTS += ["13 00", "23 00", "33 00", "8F 00", "52 41 E4", "D1 00000000 00100000"]
for _marker in "456ACD":
    OBJECTS += [f"{_marker}2 00", f"{_marker}1 00100000 00000000" if _marker > "6" else f"{_marker}E 41"] + [
        f"{_marker}F {count}" for count in ("", "51 41", "13 00", "14" + " 00000000" * 3 + " 00000001 41",
                                            *(f"13 {high} 00000001 0041" for high in ("FFFFFFFF", "80000000", "40000000", "20000000")))]


def property_lists():
    sound = Project().file()
    yield "plain", SAME, sound
    for name, data in {"empty file": b"", "header alone": b"bplist00", "header and trailer alone": b"bplist00" + bytes(32),
                       "XML": b'<?xml version="1.0"?>\n<plist version="1.0"><dict/></plist>\n',
                       "picture": b"\x89PNG\r\n\x1a\n" + bytes(64), "header of another version": b"bplist01" + sound[8:],
                       "first byte lost": sound[1:], "byte inserted": sound[:8] + b"\0" + sound[8:],
                       "line end added": sound + b"\n"}.items():
        yield name, REFUSED, data
    for claim in TRAILERS:
        yield f"claims {claim}", REFUSED, made(lambda p: p.claimed.update(claim))
    for width, offset in ((4, 3), (4, 100000), (8, HUGE), (4, 8)):  # header, table, far away, the first object again
        yield f"offset {offset}", REFUSED, made(lambda p: p.claimed_offsets.update({p.boolean(True): offset}), offsets=width)
    # Within "$null", the first object; its n reads as the mark of a string.
    yield "object inside another", REFUSED, made(lambda p: p.claimed_offsets.update({p.raw(""): 10}))
    count = int.from_bytes(sound[-24:-16], "big") + 1
    for data in OBJECTS + [f"A1 {count:08X}", f"D1 {count:08X} 00000000"]:  # just out of range
        yield f"object {data}", REFUSED, made(lambda p: setattr(p, "last_object", bytes.fromhex(data)))
    for marker, known in ((0x10, range(5)), (0x20, (2, 3))):
        for n in range(10):
            yield f"number {marker | n:02X}", SAME if n in known else REFUSED, made(
                lambda p: p.raw(bytes([marker | n]) + bytes(2 ** n)))
    for offsets, references in ((2, 2), (3, 5), (7, 7), (8, 8)):
        yield f"widths {offsets} and {references}", SAME, Project(offsets, references).file()


def nested(p, depth, width=1):
    ref = p.array([])
    for _ in range(depth):
        ref = p.array([ref] * width)
    return ref


def hostile_graphs():
    def put(p, ref):
        p.set(SCREEN, bomb=ref)
        p.set(COLOUR, bomb=ref)
        p.add(ref)

    yield "nested 100,000 deep", SAME, made(lambda p: put(p, nested(p, 100000)))
    yield "nested 1,000,000 deep", SAME, made(lambda p: put(p, nested(p, 1000000)))
    yield "40 arrays that stand for 2^40 leaves", SAME, made(lambda p: put(p, nested(p, 40, 2)))
    yield "array of itself", SAME, made(lambda p: put(p, p.array([p.next(), p.next()])))
    yield "dictionary of itself", SAME, made(lambda p: put(p, p.dictionary([(p.next(), p.next())])))
    yield "keys of every kind", SAME, made(lambda p: put(p, p.dictionary([(p.raw(o), p.raw(o)) for o in KINDS.values()])))
    yield "entries of each other", SAME, made(lambda p: put(p, p.uids(ENTRY_COUNT, ENTRY_COUNT + 1)))
    yield "unknown keys of every kind", SAME, made(lambda p: p.set(SCREEN, **{f"x{o}": p.raw(o) for o in KINDS.values()}))

    def one_record(p):
        p.set(SCREEN, **{f"key{i * 7919 % 90}": p.boolean(False) for i in range(90)})
        flag = p.boolean(True)
        ref = p.dictionary([(flag, flag)])
        p.entries += [ref] * 100000
    yield "100,000 entries that are one record", SAME, made(one_record)


FRAME = ("$version", "$archiver", "$objects", "$top")


def readable(uid, key):
    """The kinds of object that may stand there."""
    if key in ("$classes", "NSColorSpace", "NSRGB", "NS.base", "NS.relative"):
        return set(KINDS)
    if key in ("col", "row", "xpoint", "panelwidth", "panelheight"):
        return {"integer", "wide integer"}
    if key in ("visible", "bgenable"):
        return NUMBERS - {"real"}
    if uid == ITEMS and key == "NS.objects":
        return {"array"}
    return {"label": TEXTS, "imageURL": {"UID of nil"}, "rectcolor": {"UID of nil", "UID of a colour"},
            "circlecolor": {"UID of nil", "UID of a colour"}}.get(key, ())


def variations():
    """The plain project cut at every byte, without each key, and with an object of each kind in each place of it."""
    sound = Project()
    for size in range(len(data := sound.file())):
        yield f"cut at {size}", REFUSED, data[:size]
    fields = [(uid, key) for uid, entry in enumerate(sound.entries) if isinstance(entry, dict) for key in entry]
    for uid, key in fields:
        needed = key in ("$class", "$classname", "NS.objects")
        yield f"no {key} of {uid}", REFUSED if needed else OPENED, made(lambda p: p.remove(uid, key))
    for kind, data in KINDS.items():
        for key in FRAME:
            yield f"{key} is {kind}", REFUSED, made(lambda p: p.replaced.update({key: p.raw(data)}))
        yield f"top is {kind}", REFUSED, made(lambda p: setattr(p, "top_object", p.raw(data)))
        yield f"root is {kind}", SAME if kind == "UID" else REFUSED, made(lambda p: setattr(p, "roots", {"root": p.raw(data)}))
        yield f"item is {kind}", REFUSED, made(lambda p: p.set(ITEMS, NS_objects=p.array([p.raw(data)])))
        for uid in range(ENTRY_COUNT):
            is_number = uid in (HEIGHT, WIDTH) and kind in NUMBERS
            is_text = uid == LINK_TEXT or uid == LABEL and kind in ("string", "UTF-16")
            expected = OPENED if is_number or is_text else SAME if uid == NULL else REFUSED
            yield f"entry {uid} is {kind}", expected, made(lambda p: p.entries.__setitem__(uid, p.raw(data)))
        for uid, key in fields:
            expected = OPENED if kind in readable(uid, key) else REFUSED
            yield f"{key} of {uid} is {kind}", expected, made(lambda p: p.entries[uid].update({key: p.raw(data)}))


# The archive ------------------------------------------------------------------------------------------------------------

def frames():
    for key in FRAME:
        yield f"no {key}", REFUSED, made(lambda p: p.replaced.update({key: None}))
    for name, root in {"just out of range": "80 10", "2^32 too high": "87 00000001 00000001",
                       "2^64 too high": "88 01 00000000 00000001"}.items():
        yield f"root is {name}", REFUSED, made(lambda p: setattr(p, "roots", {"root": p.raw(root)}))
    yield "root under another key", REFUSED, made(lambda p: setattr(p, "roots", {"Root": p.uid(ROOT)}))
    yield "root as in XML", REFUSED, made(lambda p: setattr(p, "roots", {"root": p.fields({"CF$UID": p.integer(1)})}))
    for key, value in {"$version": "12 000186A1", "$archiver": "5F 10 10" + b"NSKeyedArchiver2".hex()}.items():
        yield f"{key} of another", REFUSED, made(lambda p: p.replaced.update({key: p.raw(value)}))
    yield "version 2^64 too high", REFUSED, made(
        lambda p: p.replaced.update({"$version": p.raw("14 0000000000000001 00000000000186A0")}))


def chain(p, class_, link, last, length, **fields):
    for _ in range(length):
        last = p.record(class_, **{link: p.uid(last)}, **fields)
    return last


def named_colour(p, stands_for, **fields):
    return p.record(COLOUR_CLASS, NSColorSpace=p.integer(6), NSColor=p.uid(stands_for), **fields)


def colour_space(p, **fields):
    return p.uid(p.record(p.class_named("NSColorSpace", "NSObject"), **fields))


def mutable_string(p, value):
    return p.uid(p.record(p.class_named("NSMutableString", "NSString", "NSObject"), NS_string=value))


# What must be refused, each by itself.
FAULTS = {
    "unknown class": lambda p: p.entries[SCREEN_CLASS].update({"$classname": p.text("GXCircle")}),
    "unknown class, unknown hints": lambda p: p.entries[SCREEN_CLASS].update(
        {"$classname": p.text("GXCircle"), "$classhints": p.array([p.integer(1), p.text("GXShape"), p.array([])])}),
    "root is two": lambda p: p.set(ROOT, NS_objects=p.uids(HEIGHT, WIDTH)),
    "root holds itself": lambda p: p.set(ROOT, NS_objects=p.uids(ROOT, ROOT, ROOT)),
    "element just out of range": lambda p: p.items(ENTRY_COUNT),
    "inline element": lambda p: p.set(ROOT, NS_objects=p.array([p.integer(1), p.integer(1), p.uid(ITEMS)])),
    "label of itself": lambda p: p.set(SCREEN, label=mutable_string(p, p.uid(ENTRY_COUNT + 1))),
    "colour out of range": lambda p: p.set(SCREEN, rectcolor=p.uid(2 ** 64 + COLOUR, 16)),
}

# Colours and locations that no system writes. They are shown as well as can be, and kept.
ODDITIES = {
    "colour of no space": lambda p: p.remove(COLOUR, "NSColorSpace"),
    "URL of no text": lambda p: p.remove(LINK, "NS.relative"),
    "colour space out of range": lambda p: p.set(COLOUR, NSCustomColorSpace=p.uid(ENTRY_COUNT)),
    "colour space is the colour": lambda p: p.set(COLOUR, NSComponents=p.data(b"1 0 0 1"), NSCustomColorSpace=p.uid(COLOUR)),
    "colour space with a name for a number": lambda p: p.set(
        COLOUR, NSComponents=p.data(b"1 0 0 1"), NSCustomColorSpace=colour_space(p, NSID=p.text("7"))),
    "named colour of itself": lambda p: p.set(COLOUR, NSColorSpace=p.integer(6), NSColor=p.uid(COLOUR)),
    "named colours without end": lambda p: p.set(
        SCREEN, rectcolor=p.uid(chain(p, COLOUR_CLASS, "NSColor", COLOUR, 20000, NSColorSpace=p.integer(6)))),
    "URL on a string": lambda p: p.set(LINK, NS_base=p.uid(LINK_TEXT)),
    "URL on a base with a base": lambda p: p.set(
        STILL, imageURL=p.uid(chain(p, LINK_CLASS, "NS_base", LINK, 2, NS_relative=p.uid(LINK_TEXT)))),
    "URL based on itself": lambda p: p.set(LINK, NS_base=p.uid(LINK)),
    "URL with bases without end": lambda p: p.set(
        STILL, imageURL=p.uid(chain(p, LINK_CLASS, "NS_base", LINK, 20000, NS_relative=p.uid(LINK_TEXT)))),
}


def twice(p):
    fields = [(p.key(key), value) for key, value in p.entries[SCREEN].items()]
    p.entries[SCREEN] = p.dictionary([*fields, (p.key("col"), p.text("second"))])


def with_base(p):
    p.set(LINK, NS_base=p.uid(p.record(LINK_CLASS, NS_relative=p.uid(p.add(p.text("file:///x/y"))))))
    p.entries[LINK_TEXT] = p.text("../w/a%20b.png")


# Forms that no longer or not yet occur. All read like the plain project.
FORMS = {
    "top keys in the order of newer systems": lambda p: setattr(p, "newer_order", True),
    "keys as UTF-16": lambda p: setattr(p, "wide_keys", True),
    "immutable arrays": lambda p: p.entries[ARRAY_CLASS].update({"$classname": p.text("NSArray")}),
    "classes by name only": lambda p: p.remove(SCREEN_CLASS, "$classes"),
    "unknown class with a hint": lambda p: p.entries[SCREEN_CLASS].update(
        {"$classname": p.text("GXRoundScreen"), "$classhints": p.array([p.text("GXOvalScreen"), p.text("GXScreen")])}),
    "class of an endless name, with a hint": lambda p: p.entries[SCREEN_CLASS].update(
        {"$classname": p.text("x" * 100000), "$classhints": p.array([p.text("GXScreen")])}),
    "integers of 1 and 16 bytes": lambda p: p.set(SCREEN, col=p.raw("1004"), row=p.raw("14" + "0" * 31 + "3"),
                                                  xpoint=p.raw("14" + "F" * 31 + "B")),
    "sizes beyond 32 bits, cut": lambda p: p.entries.__setitem__(HEIGHT, p.integer(2 ** 34 + 108)),
    "a key twice": twice,
    "label as a mutable string": lambda p: p.set(SCREEN, label=mutable_string(p, p.text("Wall A"))),
    "counts of 1, 2 and 8 bytes": lambda p: (
        p.entries.__setitem__(LABEL, p.raw("5F 1006" + b"Wall A".hex())), p.set(
            COLOUR, NSRGB=p.raw("4F 13 0000000000000008" + b"1 0.5 0\0".hex())), p.set(
            STILL, label=p.raw("5F 110006" + b"Wall A".hex()))),
    "colour of sRGB": lambda p: p.set(COLOUR, NSRGB=p.data(b"0.9 0.4 0.1\0"), NSComponents=p.data(b"1 0.5 0 1"),
                                      NSCustomColorSpace=colour_space(p, NSID=p.integer(7))),
    "colour of Display P3": lambda p: p.set(COLOUR, NSComponents=p.data(b"0.9 0.5 0.2 1"),
                                            NSCustomColorSpace=colour_space(p, NSSpaceID=p.integer(12))),
    "named colour": lambda p: p.set(SCREEN, rectcolor=p.uid(named_colour(
        p, COLOUR, NSCatalogName=p.uid(p.add(p.text("System"))), NSColorName=p.uid(p.add(p.text("controlColor")))))),
    "URL with a base": with_base,
    "URL with a bookmark": lambda p: p.set(LINK, NS_minimalBookmarkData=p.uid(p.add(p.data(b"book")))),
}


def index_sets():
    """Dragged rows; as projects they are refused."""
    def rows(p, count, location=None, length=None, data=None):
        uid = p.record(p.class_named("NSIndexSet", "NSObject"), NSRangeCount=p.integer(count))
        if location is not None:
            p.set(uid, NSLocation=p.integer(location), NSLength=p.integer(length))
        if data is not None:
            p.set(uid, NSRangeData=p.uid(p.add(p.data(data))))
        p.roots = {"root": p.uid(uid)}

    for location, length in ((5, 2), (0, 0), (-1, 1), (2 ** 31, 1), (2 ** 63 - 1, 2 ** 63 - 1), (LARGEST, LARGEST)):
        yield f"rows from {location}, {length}", REFUSED, made(rows, 1, location, length)
    for count, data in ((0, b""), (2, b"\x02\x01\x05\x01"), (2, b""), (2, b"\x02"), (-1, b"\x02\x01"), (2, b"\xff" * 9),
                        (2, b"\xff" * 100000), (2 ** 31 - 1, b"\x01\x01"), (2, b"\xfe\xff\xff\xff\x07" * 4)):
        yield f"{count} ranges in {data[:6].hex()}, {len(data)} bytes", REFUSED, made(rows, count, None, None, data)


# The meaning ------------------------------------------------------------------------------------------------------------

INTEGERS = ("row", "col", "panelwidth", "panelheight", "xpoint", "ypoint", "boarderwidth", "circlebwidth", "xyfontsize",
            "screenfontsize")
FLAGS = ("bgenable", "boarderenable", "xyenable", "fontenable", "circleenable", "visible")


def screen(p, **values):
    """A screen with everything switched on."""
    colours = {key: p.uid(COLOUR) for key in ("rectcolor", "boardercolor", "circlecolor")}
    item = p.item(SCREEN_CLASS, **dict.fromkeys(FLAGS, True) | dict(
        row=2, col=3, panelwidth=40, panelheight=30, xpoint=5, ypoint=5, boarderwidth=1, circlebwidth=4, xyfontsize=20,
        screenfontsize=20, label="Wall A") | values)
    p.set(item, **colours)
    return item


def sizes():
    for size in ((0, 0), (-1, 108), (1, 1), (LARGEST, 1), (1, LARGEST), (LARGEST, LARGEST), (SMALLEST, SMALLEST),
                 (65536, 65536), (30000, 30000), (32767, 32767)):
        yield f"output of {size}", OPENED, made(lambda p: p.size(*size))
        yield f"screen of {size}", OPENED, made(lambda p: p.items(screen(p, row=1, col=1, panelwidth=size[0],
                                                                         panelheight=size[1])))
        yield f"{size} panels", OPENED, made(lambda p: p.items(screen(p, row=size[0], col=size[1])))
        yield f"still of {size}", OPENED, made(lambda p: p.set(STILL, panelwidth=p.integer(size[0]),
                                                               panelheight=p.integer(size[1])))
    for extreme in (LARGEST, SMALLEST, -1, 0, 46341, 65536):
        for key in INTEGERS:
            yield f"{key} {extreme}", OPENED, made(lambda p: p.items(screen(p, **{key: extreme})))
        yield f"everything {extreme}", OPENED, made(lambda p: p.items(screen(p, **dict.fromkeys(INTEGERS, extreme))))
        yield f"all lines {extreme} on a large screen", OPENED, made(lambda p: p.items(screen(
            p, panelwidth=5000, panelheight=5000, **dict.fromkeys(INTEGERS[4:], extreme))))


def names():
    for name, text in {"of 10 MB": "x" * 10_000_000, "with NUL": "a\0b", "of lone surrogates": "\udc00\ud800" * 300,
                       "of half a pair": "x" * 254 + "\U0001f600", "of controls": "".join(map(chr, range(32))) * 9,
                       "to the left": "\u202e" * 1000, "of combining marks": "a" + "\u0301" * 100000}.items():
        yield f"name {name}", OPENED, made(lambda p: p.entries.__setitem__(LABEL, p.utf16(text)))


def many(p, count, item, width=1920, height=1080):
    """A list of one item again and again."""
    p.size(width, height)
    ref = p.uid(item)
    p.set(ITEMS, NS_objects=p.array([ref] * count))


def alike(p, count, item):
    """Many items that are one record of the file, and so hardly take a byte each."""
    ref = p.fields(p.entries[item])
    first = len(p.entries)
    p.entries += [ref] * count
    p.items(*range(first, first + count))


def crowds():
    """Files of less than a megabyte that stand for much."""
    full = dict(row=1, col=1, panelwidth=1920, panelheight=1080, xpoint=0, ypoint=0)

    def translucent(p, **values):
        p.set(COLOUR, NSRGB=p.data(b"1 0.5 0 0.5\0"))
        return screen(p, **full | values)

    def texted(p, entry, text, item):
        p.entries[entry] = p.text(text)
        return item

    def relative_locations(p):
        base = p.record(LINK_CLASS, NS_relative=p.uid(p.add(p.text("file:///" + "x" * 2 ** 20 + "/"))))
        text = p.uid(p.add(p.text("a")))
        p.items(*[p.record(STILL_CLASS, imageURL=p.uid(p.record(LINK_CLASS, NS_base=p.uid(base), NS_relative=text)))
                  for _ in range(100)])
    for name, references, change in (
            ("400,000 times one screen", 2, lambda p: many(p, 400000, SCREEN)),
            ("100 times one translucent screen of 16,000 x 16,000", 2,
             lambda p: many(p, 100, translucent(p, panelwidth=16000, panelheight=16000), 16000, 16000)),
            ("50,000 screens alike with large texts", 3,
             lambda p: alike(p, 50000, screen(p, xyfontsize=5000, screenfontsize=LARGEST))),
            ("1,000 screens of 4,000 x 4,000", 2,
             lambda p: alike(p, 1000, screen(p, row=1, col=1, panelwidth=4000, panelheight=4000))),
            ("250,000 times one screen with a name of 400 kB", 2,
             lambda p: many(p, 250000, texted(p, LABEL, "x" * 400000, SCREEN))),
            ("30,000 stills at one location of 500 kB", 3,
             lambda p: alike(p, 30000, texted(p, LINK_TEXT, "file:///" + "x" * 500000, STILL)))):
        yield name, EITHER, made(change, references=references)
    yield "100 locations on a base of a megabyte", OPENED, made(relative_locations)


def png(width, height, data):
    """A file around what claims to be the compressed rows of 8-bit RGBA."""
    chunks = ((b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)), (b"IDAT", data), (b"IEND", b""))
    return b"\x89PNG\r\n\x1a\n" + b"".join(
        struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body)) for kind, body in chunks)


def write_images(folder):
    """What the locations below lead to."""
    (folder / "huge.png").write_bytes(png(60000, 60000, zlib.compress(bytes(1000))))
    (folder / "huge.bmp").write_bytes(b"BM" + struct.pack("<IIIIiiHHIIiiII", 0, 0, 54, 40, 60000, 60000, 1, 32, 0, 0, 0, 0, 0, 0))
    (folder / "cut.png").write_bytes(png(9, 9, zlib.compress(bytes(9 * 37)))[:-30])
    row = b"\0" + b"\x80\x40\x20\x90" * 2000
    (folder / "large.png").write_bytes(png(2000, 2000, zlib.compress(row * 2000)))
    with open(folder / "endless.png", "wb") as file:
        file.truncate(2 ** 40)


def locations(folder, crowded):
    at = f"file://{folder}/"
    texts = [at + name for name in ("huge.png", "huge.bmp", "cut.png", "large.png", "endless.png", "pipe", "", "gone")]
    texts += ["file:///dev/zero", "file:///dev/stdin", "file:///dev/full", "file:///proc/self/mem", "file:///proc/kmsg",
              "file:///proc/self/fd/100", "file:///", "file:", "", "http://localhost/x.png", "ftp://x/y", "data:image/png,x",
              "file://elsewhere/share/x.png", "file:///a%00b", "file:///" + "../" * 3000, "file:///" + "a/" * 8000, "%zz"]
    for text in texts:
        yield f"still at {text[-40:]}", OPENED, made(lambda p: p.entries.__setitem__(LINK_TEXT, p.text(text)))
    if not crowded:
        return
    yield "10,000 stills of one large image", EITHER, made(
        lambda p: (p.entries.__setitem__(LINK_TEXT, p.text(at + "large.png")), alike(p, 10000, STILL)), references=2)


def cases(folder, crowded=True):
    """(name, expected, bytes) of each file. `folder` is where write_images() and a FIFO "pipe" are."""
    yield from property_lists()
    yield from hostile_graphs()
    yield from frames()
    for name, fault in FAULTS.items():
        yield name, REFUSED, made(fault)
    for name, oddity in ODDITIES.items():
        yield name, OPENED, made(oddity)
    for name, form in FORMS.items():
        yield name, SAME, made(form)
    for each in (index_sets, sizes, names, *[crowds] * crowded):
        yield from each()
    yield from locations(folder, crowded)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--largest", type=int, default=2 ** 40)
    parser.add_argument("--varied", action="store_true")
    parser.add_argument("folder", type=pathlib.Path)
    arguments = parser.parse_args()
    arguments.folder.mkdir(parents=True, exist_ok=True)
    files = cases(arguments.folder.resolve())
    for name, _, data in itertools.chain(files, variations()) if arguments.varied else files:
        if len(data) <= arguments.largest:
            (arguments.folder / name.replace("/", "|")).write_bytes(data)


if __name__ == "__main__":
    main()
