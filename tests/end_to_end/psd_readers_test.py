# SPDX-License-Identifier: MIT
"""Writes documents that the program itself cannot make and has two readers that are not ours read them back."""

import json
import os
import pathlib
import random
import subprocess
import tempfile
import unittest

import numpy
from psd_tools.constants import Resource

from psd_readers import Document, Layer, ReadBack, psd_tools

MODES = [key.ljust(4) for key in (
    "norm dark lite hue sat colr lum mul scrn diss over hLit sLit diff smud div idiv lbrn lddg vLit lLit pLit hMix "
    "pass dkCl lgCl").split()]
EFFECTS = b"cmnS", b"dsdw", b"isdw", b"oglw", b"iglw", b"sofi", b"bevl"
RESOLUTIONS = {1: (72, 72 << 16), 2: (28.35, 4719182)}  # by unit: what is asked for, and pixels per inch in 16.16
PROFILES = None, "GenericRGB", "sRGB", "AdobeRGB1998"
PROFILE_FOLDER = pathlib.Path(__file__).parents[2] / "resources" / "icc"


def nearest_quotient(a, b):
    return (2 * a + b) // (2 * b)


class Sample:
    """What the writer is told and what the file should hold then."""

    def __init__(self, path, width, height, transparent=True, resolution=72, unit=1, profile=0):
        self.channels = 4 if transparent else 3
        self.told = dict(file=f"{path}.psd", images=f"{path}.rgba", width=width, height=height, transparent=transparent,
                         resolution=resolution, unit=unit, profile=profile, layers=[])
        self.images = b""
        self.merged = numpy.full((height, width, 4), 0 if transparent else 255, int)
        self.stack = [[]]
        self.any_layer = False

    def tell(self, kind, name="", opacity=1, effects=False, **more):
        self.told["layers"].append(dict(kind=kind, opacity=opacity, effects=effects,
                                        name=list(memoryview(name.encode("utf-16-le")).cast("H")), **more))
        return Layer(name, int(numpy.ceil(numpy.float32(opacity) * numpy.float32(255))))

    def open(self, name, opened=False, **more):
        group = self.tell("open", name, opened=opened, **more)
        group.opened, group.children = opened, []
        self.stack[-1].insert(0, group)
        self.stack.append(group.children)
        self.any_layer = True

    def close(self):
        self.tell("close")
        self.stack.pop()

    def add(self, picture, name, x=0, y=0, mode="norm", flip=False, divide=False, **more):
        """The picture is rows of columns of premultiplied RGBA."""
        self.images += picture.astype(numpy.uint8).tobytes()
        height, width = picture.shape[:2]
        layer = self.tell("layer", name, width=width, height=height, x=x, y=y, mode=mode, flip=flip, divide=divide,
                          **more)
        below = self.merged[max(y, 0):max(y + height, 0), max(x, 0):max(x + width, 0)]
        if not below.size:
            return
        visible = picture[max(-y, 0):, max(-x, 0):][:below.shape[0], :below.shape[1]].astype(int)
        source = nearest_quotient(visible * layer.opacity, 255)
        below[:] = source + nearest_quotient(below * (255 - source[..., 3:]), 255)

        if divide:
            color, alpha = numpy.split(visible.astype(numpy.float32), [3], 2)
            with numpy.errstate(all="ignore"):
                visible[..., :3] = numpy.fmin(color / (alpha / numpy.float32(255)), 255)
        layer.pixels = numpy.full(self.merged.shape, 0 if self.channels == 4 else 255)
        layer.pixels[max(y, 0):, max(x, 0):][:below.shape[0], :below.shape[1]] = visible[::-1] if flip else visible
        layer.pixels = layer.pixels[..., :self.channels]
        self.stack[-1].insert(0, layer)
        self.any_layer = True

    def document(self):
        return Document(self.stack[0], self.merged[..., :self.channels])


class PsdReaders(ReadBack, unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.choose = numpy.random.default_rng(2026)

    def sample(self, name, *values, **more):
        return Sample(self.folder / name, *values, **more)

    def picture(self, width, height):
        """Noise, plain rows and transparent parts; no colour is greater than its alpha."""
        alpha = self.choose.choice([0, 1, 90, 128, 254, 255], (height, width, 1))
        alpha[:, width // 2:] = self.choose.choice([0, 255, 255])
        alpha[self.choose.random(height) < .3] = 255
        color = self.choose.integers(0, alpha + 1, (height, width, 3))
        color[self.choose.random(height) < .3] //= 255
        return numpy.concatenate([color, alpha], 2)

    def write(self, samples):
        """Returns the documents that the files should hold, by path."""
        for sample in samples:
            pathlib.Path(sample.told["images"]).write_bytes(sample.images)
        description = self.folder / "samples.json"
        description.write_text(json.dumps([sample.told for sample in samples]))
        subprocess.run([os.environ["WRITE_PSD_SAMPLES"], description], check=True, timeout=300)
        return {pathlib.Path(sample.told["file"]): sample.document() for sample in samples}

    def test_groups_and_effects(self):
        sample = self.sample("groups", 40, 30)
        sample.add(self.picture(50, 40), "ground", -5, -5)
        sample.open("outer", opacity=.5, effects=True)
        sample.add(self.picture(9, 8), "Wand \u00e4 \U0001f600", 3, 4, opacity=.1)
        sample.open("inner \u58c1", opened=True)
        sample.add(self.picture(20, 30), "effects", 30, 20, effects=True)
        sample.close()
        sample.add(self.picture(3, 3), "", 36, 1)
        sample.open("empty", opened=True, opacity=0)
        sample.close()
        sample.close()
        sample.add(self.picture(4, 4), "off the canvas", 40, 0)
        sample.open("x" * 300)
        sample.open("left open", opened=True)
        sample.add(self.picture(40, 30), "top")
        plain = self.sample("three", 40, 30, False)
        plain.open("group")
        plain.add(self.picture(9, 8), "a", 30, 20, opacity=.3, effects=True)
        expected = self.write([sample, plain])
        self.assertReadBack(expected)

        outer, ground = psd_tools(next(iter(expected))).layers[1:]
        for layer in outer, outer.children[2].children[0]:
            self.assertEqual(sorted(layer.effects), sorted(EFFECTS))
            self.assertTrue(all(layer.effects[key].enabled for key in EFFECTS[1:]))
        self.assertIsNone(ground.effects)

    def test_modes_profiles_and_resolutions(self):
        profiles = []
        for number, name in enumerate(PROFILES):
            unit = 1 + number % 2
            profiles.append(self.sample(f"{name}", 12, 9, transparent=number < 2, resolution=RESOLUTIONS[unit][0],
                                        unit=unit, profile=number))
        for sample in profiles:
            sample.add(self.picture(9, 9), "a", -2, 3)
        modes = self.sample("modes", 20, 20)
        for mode in MODES:
            modes.add(self.picture(20, 20), mode.strip(), mode=mode, opacity=.7)
        *paths, modes_path = expected = self.write([*profiles, modes])
        self.assertReadBack(expected)

        self.assertEqual([x.mode.decode() for x in psd_tools(modes_path).layers], MODES[::-1])
        for path, sample, name in zip(paths, profiles, PROFILES):
            found = psd_tools(path).resources
            self.assertEqual(found.get(Resource.ICC_PROFILE), name and (PROFILE_FOLDER / name).read_bytes())
            resolution, unit = found[Resource.RESOLUTION_INFO], sample.told["unit"]
            self.assertEqual((resolution.horizontal, resolution.horizontal_unit, resolution.width_unit),
                             (RESOLUTIONS[unit][1], unit, 1))
            self.assertEqual((resolution.vertical, resolution.vertical_unit, resolution.height_unit),
                             (RESOLUTIONS[unit][1], unit, 1))

    def test_random_documents(self):
        choose, samples = random.Random(2026), []

        def size():
            return choose.randint(1, 300) if choose.random() < .8 else choose.randint(1, 3)

        while len(samples) < 25:
            width, height = size(), size()
            sample = self.sample(f"random{len(samples)}", width, height, choose.random() < .7)
            for number in range(choose.randint(0, 20)):
                w, h = size(), size()
                sample.add(self.picture(w, h), f"Layer {number}", choose.randint(-w - 5, width + 5),
                           choose.randint(-h - 5, height + 5), opacity=choose.choice([1, 0, .5, choose.random()]),
                           flip=choose.random() < .2, divide=choose.random() < .2)
            if sample.any_layer:
                samples.append(sample)
        self.assertReadBack(self.write(samples))


if __name__ == "__main__":
    unittest.main(verbosity=2)
