# SPDX-License-Identifier: MIT
"""What two readers that are not ours find in PSD files: psd_tools and ImageMagick."""

import subprocess
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
    effects: Any = None


@dataclass
class Document:
    layers: list
    merged: Any
    resources: Any = None


def outline(layers):
    """Names, opacities and nesting, for comparing."""
    return [(x.name, x.opacity, None if x.children is None else (x.opened, outline(x.children))) for x in layers]


def pixel_layers(layers):
    for layer in layers:
        yield from [layer] if layer.children is None else pixel_layers(layer.children)


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
            found.effects = {key.value: record for key, record in records.items()}
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


def imagemagick(path):
    """(name, RGBA pixels) of the merged picture and of each layer, bottom first. Names are the bytes of the short form.
    Of the merged picture ImageMagick reads no alpha, and each layer's alpha it multiplies by the layer's opacity."""
    def run(*words):
        result = subprocess.run(words, capture_output=True, timeout=120)
        assert (result.returncode, result.stderr) == (0, b""), (words, result)
        return result.stdout
    lines = run("identify", "-format", "%w %h %l\n", f"psd:{path}").splitlines()
    width, height = map(int, lines[0].split()[:2])
    pixels = numpy.frombuffer(run("convert", f"psd:{path}", "-depth", "8", "rgba:-"), numpy.uint8)
    return [(line.split(b" ", 2)[2], picture)
            for line, picture in zip(lines, pixels.reshape(-1, height, width, 4), strict=True)]


class ReadBack:
    """For test cases: what each reader finds in a file against what it should hold."""

    def assertSamePixels(self, actual, expected):
        """A reader may add an alpha that is 255 everywhere."""
        channels = expected.shape[2]
        self.assertEqual((actual.shape[:2], set(actual[..., channels:].ravel()) - {255}), (expected.shape[:2], set()))
        wrong = numpy.argwhere((actual[..., :channels] != expected).any(2))
        self.assertFalse(len(wrong), len(wrong) and f"{len(wrong)} pixels, first in row and column {wrong[0]}: "
                                                    f"{actual[tuple(wrong[0])]}, not {expected[tuple(wrong[0])]}")

    def assertReadBack(self, expected):
        """`expected` are documents by path."""
        for path, document in expected.items():
            found = psd_tools(path)
            with self.subTest(file=path.name, reader="psd_tools"):
                self.assertEqual(outline(found.layers), outline(document.layers))
                self.assertSamePixels(found.merged, document.merged)
                for layer, read in zip(pixel_layers(document.layers), pixel_layers(found.layers)):
                    self.assertSamePixels(read.pixels, layer.pixels)
            if all(layer.children is None for layer in document.layers):
                with self.subTest(file=path.name, reader="ImageMagick"):
                    self.assertReadByImageMagick(path, document)

    def assertReadByImageMagick(self, path, document):
        (_, merged), *pictures = imagemagick(path)
        self.assertSamePixels(merged[..., :3], document.merged[..., :3])
        for layer, (name, pixels) in zip(reversed(document.layers), pictures, strict=True):
            units = min(len(layer.name.encode("utf-16-le")) // 2, 255)
            self.assertEqual(name, layer.name.encode()[:units])
            if layer.opacity == 255:
                self.assertSamePixels(pixels, layer.pixels)
            else:
                self.assertSamePixels(pixels[..., :3], layer.pixels[..., :3])
                self.assertTrue(layer.opacity or not pixels[..., 3].any())
