# SPDX-License-Identifier: MIT
"""What three readers that are not ours find in PSD files: psd_tools, GIMP and ImageMagick."""

import os
import pathlib
import subprocess
import tempfile
from dataclasses import dataclass
from itertools import zip_longest
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


def outline(layers, name_of=str):
    """Names, opacities and nesting, for comparing."""
    return [(name_of(x.name), x.opacity, None if x.children is None else (x.opened, outline(x.children, name_of)))
            for x in layers]


def name_in_gimp(name):
    """GIMP gives a name to layers that have none, and saves no more than 255 letters of one."""
    return name[:255] or "Layer"


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


GIMP_SCRIPT = """
(define (top-layer image) (vector-ref (cadr (gimp-image-get-layers image)) 0))
(define (copy in out)
  (let* ((image (car (file-psd-load RUN-NONINTERACTIVE in in)))
         (merged (car (file-psd-load-merged RUN-NONINTERACTIVE in in))))
    (gimp-image-insert-layer image (car (gimp-layer-new-from-drawable (top-layer merged) image)) 0 0)
    (file-psd-save RUN-NONINTERACTIVE image (top-layer image) out out 0 0)
    (gimp-image-delete image)
    (gimp-image-delete merged)))
"""


def gimp(paths):
    """GIMP opens each file, adds the merged picture as a layer on top and saves a PSD of its own, which psd_tools
    reads: GIMP keeps all that is asked here, pixels to the bit. Returns the documents and what GIMP complained about.
    """
    with tempfile.TemporaryDirectory() as folder:
        outputs = [pathlib.Path(folder) / f"{number}.psd" for number in range(len(paths))]
        calls = [f'(copy "{path}" "{output}")' for path, output in zip(paths, outputs)]
        result = subprocess.run(
            ["gimp-console", "--no-interface", "--no-data", "--no-fonts", "--new-instance", "--batch", "-"],
            input="\n".join([GIMP_SCRIPT, *calls, "(gimp-quit 0)"]), text=True, capture_output=True, timeout=300,
            env=os.environ | {"HOME": folder})  # which GIMP fills with settings
        documents = []
        for path, output in zip(paths, outputs):
            assert output.exists(), f"GIMP did not read {path}:\n{result.stdout}\n{result.stderr}"
            merged, *layers = psd_tools(output).layers
            documents.append(Document(layers, merged.pixels))
    return documents, [line for line in result.stderr.splitlines() if "rror" in line or "nsupported" in line]


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

    def assertReadBack(self, expected, most_in_gimp=None):
        """`expected` are documents by path. GIMP, which takes its time, reads so many of them. Returns what it
        complained about."""
        from_gimp, complaints = gimp(list(expected)[:most_in_gimp])
        for (path, document), reread in zip_longest(expected.items(), from_gimp):
            for reader, found, name_of in ("psd_tools", psd_tools(path), str), ("GIMP", reread, name_in_gimp):
                if found:
                    with self.subTest(file=path.name, reader=reader):
                        self.assertEqual(outline(found.layers), outline(document.layers, name_of))
                        self.assertSamePixels(found.merged, document.merged)
                        for layer, read in zip(pixel_layers(document.layers), pixel_layers(found.layers)):
                            self.assertSamePixels(read.pixels, layer.pixels)
            if all(layer.children is None for layer in document.layers):
                with self.subTest(file=path.name, reader="ImageMagick"):
                    self.assertReadByImageMagick(path, document)
        return complaints

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
