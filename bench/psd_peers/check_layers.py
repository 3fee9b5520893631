#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""check_layers.py FOLDER: fails unless each PSD in FOLDER has the layers that names.txt lists, each covering the canvas."""

import pathlib
import sys

from psd_tools import PSDImage

folder = pathlib.Path(sys.argv[1])
names = (folder / "names.txt").read_text().split("\n")[:-1]
for file in sorted(folder.glob("*.psd")):
    psd = PSDImage.open(file)
    if [layer.name for layer in psd] != names:
        sys.exit(f"{file.name} has other layers: {[layer.name for layer in psd]}")
    if any(layer.bbox != (0, 0, psd.width, psd.height) for layer in psd):
        sys.exit(f"{file.name} has layers that do not cover the canvas")
