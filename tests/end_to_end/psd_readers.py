# SPDX-License-Identifier: MIT
"""What a reader that is not ours, psd_tools, finds in PSD files."""

from dataclasses import dataclass
from typing import Any

import numpy
from psd_tools import PSDImage
from psd_tools.constants import SectionDivider, Tag
from psd_tools.psd import PSD


@dataclass
class Layer:
    """A layer, or a group when it has children; those come top layer first. Pixels are rows of columns of samples."""

    name: str
    opacity: int = 255
    pixels: Any = None
    children: Any = None
    opened: bool = False
    mode: bytes = b"norm"
    effects: Any = ()

    def outline(self):
        """All but the pixels, for comparing."""
        children = self.children and [child.outline() for child in self.children]
        return self.name, self.opacity, children, self.opened, self.mode, tuple(self.effects)


@dataclass
class Document:
    layers: list
    merged: Any
    resources: Any


def check_packed(data, rows):
    """Nothing stands between or behind the packed rows whose lengths come first."""
    lengths = numpy.frombuffer(data[:2 * rows], ">u2")
    assert len(data) == 2 * rows + lengths.sum(), (len(data), rows, lengths)


def psd_tools(path):
    """With the samples as they stand in the file, neither composed nor divided by alpha."""
    with open(path, "rb") as file:
        psd = PSD.read(file)
    shape = height, width = psd.header.height, psd.header.width
    check_packed(psd.image_data.data, height * psd.header.channels)
    planes = [numpy.frombuffer(plane, numpy.uint8).reshape(shape) for plane in psd.image_data.get_data(psd.header)]

    def layer_of(layer):
        # This reader gives the halves of a surrogate pair one by one.
        found = Layer(layer.name.encode("utf-16", "surrogatepass").decode("utf-16"), layer.opacity,
                      mode=layer.blend_mode.value)
        if Tag.EFFECTS_LAYER in layer.tagged_blocks:
            records = layer.tagged_blocks.get_data(Tag.EFFECTS_LAYER)
            found.effects = {key.value: records[key] for key in sorted(records, key=lambda key: key.value)}
        if layer.is_group():
            found.children = [layer_of(child) for child in reversed(layer)]
            divider = layer.tagged_blocks.get_data(Tag.SECTION_DIVIDER_SETTING)
            found.opened = divider.kind == SectionDivider.OPEN_FOLDER
        else:
            assert (layer.top, layer.left, layer.height, layer.width) == (0, 0, height, width), layer
            found.pixels = numpy.rint(layer.numpy() * 255).astype(numpy.uint8)
        return found

    for channels in psd.layer_and_mask_information.layer_info.channel_image_data:
        for channel in channels:
            if channel.data:
                check_packed(channel.data, height)
    resources = {key: block.data for key, block in psd.image_resources.items()}
    return Document([layer_of(layer) for layer in reversed(PSDImage(psd))], numpy.stack(planes, 2), resources)
