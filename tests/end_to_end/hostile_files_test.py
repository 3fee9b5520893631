# SPDX-License-Identifier: MIT
"""Reads and exports every file of tests/hostile/corpus.py with the program: refused with one sentence or opened, never a
signal, and never more than half of the machine's memory. On a quiet machine HOSTILE_SECONDS=10 also holds each run on a file
below a megabyte to so many seconds of a processor. For the program as it is shipped; with sanitizers, tests/hostile opens the
small ones."""

import collections
import concurrent.futures
import hashlib
import os
import pathlib
import subprocess
import sys
import tempfile
import threading
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "hostile"))
from corpus import OPENED, REFUSED, SAME, cases, write_images
from program import WALLGRID, ProgramTest

MOST_SECONDS = float(os.environ.get("HOSTILE_SECONDS", "inf"))
MOST_KILOBYTES = os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") // 2048
SHOWN = int(os.environ.get("HOSTILE_SHOWN", 1))  # how many of the slowest and the largest are printed
WALL_SECONDS = 300  # for a program that waits for something


Run = collections.namedtuple("Run", "case, command, code, output, errors, seconds, kilobytes")


@unittest.skipUnless(os.environ.get("WALLGRID_PROGRAM"), "for the program as it is shipped")
class HostileFiles(ProgramTest):
    def setUp(self):
        super().setUp()
        write_images(self.folder)
        os.mkfifo(self.folder / "pipe")

    def run_measured(self, case, command, *words):
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            process = subprocess.Popen([WALLGRID, command, *words], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=out,
                                       stderr=err, env=os.environ | {"QT_QPA_PLATFORM": "offscreen"})
            watchdog = threading.Timer(WALL_SECONDS, process.kill)
            watchdog.start()
            _, status, usage = os.wait4(process.pid, 0)
            watchdog.cancel()
            process.returncode = os.waitstatus_to_exitcode(status)
            out.seek(0)
            err.seek(0)
            return Run(case, command, process.returncode, out.read(1 << 16), err.read().decode(errors="replace"),
                       usage.ru_utime + usage.ru_stime, usage.ru_maxrss)

    def runs_of(self, number, name, expected, data):
        project, png, psd = (self.folder / f"{number}.{extension}" for extension in ("mpr", "png", "psd"))
        project.write_bytes(data)
        runs = [self.run_measured(name, "info", "--json", project.name),
                self.run_measured(name, "export", project.name, "--png", png.name)]
        picture = hashlib.sha256(png.read_bytes()).digest() if expected == SAME and png.exists() else None
        if runs[1].code == 0:
            runs.append(self.run_measured(name, "export", project.name, "--psd", psd.name))
        for file in (project, png, psd):
            file.unlink(missing_ok=True)
        return expected, len(data), picture, runs

    def check(self, run, expected, size):
        self.assertIn(run.code, (0, 1), f"{run.command}: {run.errors}")
        if run.code == 1:  # else the libraries of image formats may have complained
            self.assertEqual(run.errors.count("\n"), 1, f"{run.command}: {run.errors}")
        if expected in (SAME, OPENED) and run.command == "info":
            self.assertEqual(run.code, 0, run.errors)
        if expected == REFUSED:
            self.assertEqual(run.code, 1)
        self.assertLess(run.kilobytes, MOST_KILOBYTES, run.command)
        if size < 2 ** 20:
            self.assertLess(run.seconds, MOST_SECONDS, run.command)

    def test_command_line(self):
        # Two at a time slow each other down, so not where seconds count.
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count() if MOST_SECONDS == float("inf") else 1) as pool:
            files = list(pool.map(lambda each: self.runs_of(*each),
                                  ((i, *case) for i, case in enumerate(cases(self.folder)))))
        _, _, plain_picture, (plain, *_) = files[0]
        self.assertIn(b'"name": "Wall A"', plain.output)
        self.assertIsNotNone(plain_picture)
        refused = sum(runs[0].code == 1 for *_, runs in files)
        print(f"{len(files)} files: {refused} refused, {len(files) - refused} opened")
        every = [run for *_, runs in files for run in runs]
        for run in sorted(every, key=lambda run: -run.seconds)[:SHOWN]:
            print(f"  slowest: {run.seconds:.1f} s, {run.command}, {run.case}")
        for run in sorted(every, key=lambda run: -run.kilobytes)[:SHOWN]:
            print(f"  largest: {run.kilobytes // 1024} MB, {run.command}, {run.case}")
        for expected, size, picture, runs in files:
            for run in runs:
                with self.subTest(run.case):
                    self.check(run, expected, size)
            if expected == SAME:
                with self.subTest(runs[0].case):
                    self.assertEqual((runs[0].output, picture), (plain.output, plain_picture))


if __name__ == "__main__":
    unittest.main(verbosity=2)
