# SPDX-License-Identifier: MIT
"""Reads and exports every file of tests/hostile/corpus.py with the program: refused with one sentence or opened, never a
signal, and never more than half of the machine's memory. For the program as it is shipped; with sanitizers, tests/hostile
opens the small ones."""

import collections
import concurrent.futures
import hashlib
import os
import subprocess
import tempfile
import unittest

from corpus import OPENED, REFUSED, SAME, cases, write_images
from program import WALLGRID, ProgramTest

MOST_KILOBYTES = os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") // 2048
Run = collections.namedtuple("Run", "case, words, code, output, errors, seconds, kilobytes")


@unittest.skipUnless(os.environ.get("WALLGRID_PROGRAM"), "for the program as it is shipped")
class HostileFiles(ProgramTest):
    def run_measured(self, case, *words):
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            process = subprocess.Popen(["timeout", "-s", "KILL", "300", WALLGRID, *words], cwd=self.folder, stdout=out,
                                       stdin=subprocess.DEVNULL, stderr=err, env=os.environ | {"QT_QPA_PLATFORM": "offscreen"})
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            out.seek(0)
            err.seek(0)
            return Run(case, words, process.returncode, out.read(1 << 16), err.read().decode(errors="replace"),
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
        return expected, picture, runs

    def test_command_line(self):
        write_images(self.folder)
        os.mkfifo(self.folder / "pipe")
        with concurrent.futures.ThreadPoolExecutor() as pool:
            files = list(pool.map(lambda each: self.runs_of(*each), ((i, *case) for i, case in enumerate(cases(self.folder)))))
        _, plain_picture, (plain, *_) = files[0]
        self.assertIn(b'"name": "Wall A"', plain.output)
        self.assertIsNotNone(plain_picture)
        every = [run for *_, runs in files for run in runs]
        for figure in "seconds", "kilobytes":
            print("most", figure, max((getattr(run, figure), run.case, run.words) for run in every))
        for expected, picture, runs in files:
            for run in runs:
                with self.subTest(run.case, words=run.words):
                    self.assertIn(run.code, (0, 1), run.errors)
                    if run.code == 1:  # else the libraries of image formats may have complained
                        self.assertEqual(run.errors.count("\n"), 1, run.errors)
                    if expected == REFUSED or expected in (SAME, OPENED) and run.words[0] == "info":
                        self.assertEqual(run.code, expected == REFUSED, run.errors)
                    self.assertLess(run.kilobytes, MOST_KILOBYTES)
            if expected == SAME:
                with self.subTest(runs[0].case):
                    self.assertEqual((runs[0].output, picture), (plain.output, plain_picture))


if __name__ == "__main__":
    unittest.main(verbosity=2)
