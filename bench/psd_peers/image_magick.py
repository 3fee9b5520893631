#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""image_magick.py FOLDER WIDTH HEIGHT: has ImageMagick write ImageMagick.psd of the layers in FOLDER, each covering the
canvas, and prints how many milliseconds the encoder took. The layers are in memory before."""

import pathlib
import sys
import time
from ctypes import byref, c_size_t, string_at

from wand.api import library
from wand.image import Image

RUNS = 5
folder, width, height = pathlib.Path(sys.argv[1]), int(sys.argv[2]), int(sys.argv[3])
names = (folder / "names.txt").read_text().split("\n")[:-1]



def layer(file, name):
    header = f"P7\nWIDTH {width}\nHEIGHT {height}\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n"
    image = Image(blob=header.encode() + (folder / file).read_bytes(), format="pam")
    image.compression = "rle"
    library.MagickSetImageProperty(image.wand, b"label", name.encode())
    return image


stack = layer("merged.rgba", "")  # the first image is the merged one, the others are the layers
for i, name in enumerate(names):
    with layer(f"{i}.rgba", name) as image:
        library.MagickSetLastIterator(stack.wand)
        library.MagickAddImage(stack.wand, image.wand)
library.MagickSetFormat(stack.wand, b"PSD")
times = []
for run in range(RUNS):
    library.MagickResetIterator(stack.wand)
    length = c_size_t()
    start = time.perf_counter()
    blob = library.MagickGetImagesBlob(stack.wand, byref(length))
    times.append(time.perf_counter() - start)
    stack.raise_exception()
    if run == 0:
        (folder / "ImageMagick.psd").write_bytes(string_at(blob, length.value))
    library.MagickRelinquishMemory(blob)
print(sorted(times)[RUNS // 2] * 1e3)
