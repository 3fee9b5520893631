# SPDX-License-Identifier: MIT
"""Reads and writes 8-bit RGBA PNG files with nothing but zlib."""

import struct
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def wrapped(width, height, data):
    """The file around what claims to be the compressed rows."""
    return SIGNATURE + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)) + chunk(b"IDAT", data) + chunk(
        b"IEND", b"")


def write(path, width, height, pixels):
    """`pixels` are (r, g, b, a), row by row."""
    rows = b"".join(b"\0" + b"".join(bytes(pixels[y * width + x]) for x in range(width)) for y in range(height))
    path.write_bytes(wrapped(width, height, zlib.compress(rows)))


def paeth(a, b, c):
    p = a + b - c
    return min((abs(p - a), 0, a), (abs(p - b), 1, b), (abs(p - c), 2, c))[2]


def read(data):
    """(width, height, pixels, names of the chunks); checks every checksum."""
    assert data[:8] == SIGNATURE
    position, kinds, body = 8, [], b""
    while position < len(data):
        length, kind = struct.unpack(">I4s", data[position:position + 8])
        content = data[position + 8:position + 8 + length]
        assert data[position:position + 12 + length] == chunk(kind, content)
        kinds.append(kind.decode())
        if kind == b"IHDR":
            width, height, *rest = struct.unpack(">IIBBBBB", content)
            assert rest == [8, 6, 0, 0, 0], rest
        elif kind == b"IDAT":
            body += content
        position += 12 + length
    raw, stride = zlib.decompress(body), width * 4
    assert len(raw) == height * (stride + 1)
    pixels, above = [], bytes(stride)
    for y in range(height):
        start = y * (stride + 1)
        kind, row = raw[start], bytearray(raw[start + 1:start + 1 + stride])
        if kind == 2:  # up, the common case, without a look at each byte's neighbours
            row = bytearray((a + b) & 255 for a, b in zip(row, above))
        for i in range(stride if kind not in (0, 2) else 0):
            left = row[i - 4] if i >= 4 else 0
            corner = above[i - 4] if i >= 4 else 0
            row[i] = (row[i] + (0, left, 0, (left + above[i]) // 2, paeth(left, above[i], corner))[kind]) & 255
        pixels += [tuple(row[x:x + 4]) for x in range(0, stride, 4)]
        above = row
    return width, height, pixels, kinds
