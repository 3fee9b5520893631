# SPDX-License-Identifier: MIT
"""Reads and exports every file of tests/hostile/corpus.py with the program: refused with one sentence or opened, never a
signal, and never more than half of the machine's memory. For the program as it is shipped; with sanitizers, tests/hostile
opens the small ones."""

import concurrent.futures
import hashlib
import os
import subprocess
import tempfile
import unittest

from corpus import OPENED, REFUSED, SAME, cases, write_images
from program import WALLGRID, ProgramTest

MOST_KILOBYTES = os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") // 2048


@unittest.skipUnless(os.environ.get("WALLGRID_PROGRAM"), "for the program as it is shipped")
class HostileFiles(ProgramTest):
    def runs_of(self, number, name, expected, data):
        """Of each command: its words, exit code, output, errors and the most memory that it took."""
        project, psd = self.folder / f"{number}.mpr", self.folder / f"{number}.psd"
        project.write_bytes(data)
        runs = []
        for words in ("info", "--json"), ("export", "--png", "-"), ("export", "--psd", psd.name):
            with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
                process = subprocess.Popen(["timeout", "-s", "KILL", "300", WALLGRID, *words, project.name], cwd=self.folder,
                                           stdout=out, stderr=err, stdin=subprocess.DEVNULL,
                                           env=os.environ | {"QT_QPA_PLATFORM": "offscreen"})
                _, status, usage = os.wait4(process.pid, 0)
                process.returncode = os.waitstatus_to_exitcode(status)
                out.seek(0)
                err.seek(0)
                digest = hashlib.sha256(out.read()).digest() if expected == SAME else None
                runs.append((words, process.returncode, digest, err.read().decode(errors="replace"), usage.ru_maxrss))
        project.unlink()
        psd.unlink(missing_ok=True)
        return name, expected, runs

    def test_command_line(self):
        write_images(self.folder)
        os.mkfifo(self.folder / "pipe")
        with concurrent.futures.ThreadPoolExecutor() as pool:
            files = list(pool.map(lambda each: self.runs_of(*each), ((i, *case) for i, case in enumerate(cases(self.folder)))))
        plain = [run[2] for run in files[0][2]]
        for name, expected, runs in files:
            for words, code, _, errors, kilobytes in runs:
                with self.subTest(name, words=words):
                    self.assertIn(code, (0, 1), errors)
                    if code == 1:  # else the libraries of image formats may have complained
                        self.assertEqual(errors.count("\n"), 1, errors)
                    if expected == REFUSED or expected in (SAME, OPENED) and words[0] == "info":
                        self.assertEqual(code, expected == REFUSED, errors)
                    self.assertLess(kilobytes, MOST_KILOBYTES)
            if expected == SAME:
                with self.subTest(name):
                    self.assertEqual([run[2] for run in runs[:2]], plain[:2])


if __name__ == "__main__":
    unittest.main(verbosity=2)
