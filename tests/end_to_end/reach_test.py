# SPDX-License-Identifier: MIT
"""What the program reaches: the scripted session and the command line once more, watched call by call. It opens no network
connection, runs no other program, changes no file but those that it was told to write and its own state, and opens nothing
that is neither a file nor a folder. Runs on two displays (tools/with-display --two). For the program as it is shipped; with
sanitizers, session_test.py runs the session."""

import os
import pathlib
import re
import stat
import subprocess
import tempfile
import unittest
import unittest.mock

import session_test
from composition import Still
from program import WALLGRID, project
from system_calls import Calls, watched

# The sockets of a desktop, beside the session bus: the X server's, and the name service's of the C library.
SOCKETS = re.compile(r"/tmp/\.X11-unix/X\d+|/var/run/nscd/socket")
# Qt names a file that has no name yet so when it links it to its place.
UNNAMED = re.compile(r"/proc/self/fd/\d+")
BESIDE = re.compile(r"\.wallgrid-\w{6}")  # the new file, until it is renamed over the old one


@unittest.skipUnless(os.environ.get("WALLGRID_PROGRAM"), "for the program as it is shipped")
class Reach(session_test.Session):
    def setUp(self):
        super().setUp()
        other = tempfile.TemporaryDirectory()
        self.addCleanup(other.cleanup)
        self.traces = pathlib.Path(other.name)
        self.runtime = self.traces / "runtime"
        self.runtime.mkdir(mode=0o700)
        self.bus = self.runtime / "bus"
        environment = unittest.mock.patch.dict(os.environ, XDG_RUNTIME_DIR=str(self.runtime))
        environment.start()
        self.addCleanup(environment.stop)
        for name in "DBUS_SESSION_BUS_ADDRESS", "SESSION_MANAGER", "WAYLAND_DISPLAY", "XDG_CONFIG_HOME", "XDG_CACHE_HOME":
            os.environ.pop(name, None)
        self.targets = set()

    def start(self, *command):
        if command[0] == WALLGRID:
            command = watched(self.traces / "window", command)
        return super().start(*command)

    def write(self, keys, panel, name):
        self.targets.add(self.folder / name)
        return super().write(keys, panel, name)

    def calls_of(self, prefix, pid):
        """Of a program that has ended; the tracer writes the end last."""
        log = self.traces / f"{prefix}.{pid}"
        self.wait_until(lambda: log.exists() and log.read_text().endswith("+++\n"), "the trace has no end")
        return Calls(self.traces / prefix, self.folder)

    def may_change(self, path):
        path = pathlib.Path(path)
        beside = BESIDE.fullmatch(path.name) and path.parent in {target.parent for target in self.targets}
        # The folder of the desktop's session is where Qt looks for a display; it makes it where there is none.
        return path in self.targets or beside or path.is_relative_to(self.folder / "wallgrid") or \
            path in (pathlib.Path("/dev/null"), self.runtime) or UNNAMED.fullmatch(str(path))

    def judge(self, calls):
        self.assertEqual(len(calls.started), 1, calls.started)
        self.assertEqual({path for path in calls.sockets if not SOCKETS.fullmatch(path) and path != str(self.bus)}, set())
        self.assertEqual({path for path in calls.changed if not self.may_change(path)}, set())
        special = {path for path in calls.read if not path.startswith(("/proc/", "/sys/")) and os.path.lexists(path) and
                   stat.S_IFMT(os.stat(path).st_mode) not in (stat.S_IFREG, stat.S_IFDIR)}
        self.assertLessEqual(special, {"/dev/null", "/dev/urandom"})
        self.assertLessEqual({str(target) for target in self.targets}, calls.changed, "not everything was seen")

    def test_from_the_first_wall_to_the_second_display(self):
        super().start("dbus-daemon", "--session", "--nofork", "--nopidfile", f"--address=unix:path={self.bus}")
        self.wait_until(self.bus.exists, "there is no session bus")
        super().test_from_the_first_wall_to_the_second_display()
        calls = self.calls_of("window", self.program.pid)
        self.judge(calls)
        self.assertIn(str(self.bus), calls.sockets)

    def test_command_line_with_locations_of_every_kind(self):
        pixels, image = self.logo(8, 8)
        os.mkfifo(self.folder / "pipe")
        (self.folder / "zero").symlink_to("/dev/zero")
        locations = (image, self.folder, self.folder / "pipe", self.folder / "zero", "/dev/tty", "http://127.0.0.1/logo.png",
                     "file://127.0.0.1/logo.png")
        stage = self.folder / "stage.mpr"
        stage.write_bytes(project(8, 8, [Still(pixels, location, 0, 0) for location in locations]))
        for words in (["info"], ["export", "--png", "stage.png"], ["export", "--psd", "stage.psd"]):
            with self.subTest(words):
                self.targets = {self.folder / name for name in words[2:]}
                prefix = self.traces / "-".join(words)
                without = "DISPLAY", "QT_QPA_PLATFORM"
                environment = {key: value for key, value in os.environ.items() if key not in without}
                run = subprocess.Popen(watched(prefix, [WALLGRID, *words, stage]), cwd=self.folder, env=environment,
                                       stdout=subprocess.PIPE)
                run.communicate(timeout=120)
                self.assertEqual(run.returncode, 0)
                calls = self.calls_of(prefix.name, run.pid)
                self.judge(calls)
                self.assertIn(str(image), calls.read)


if __name__ == "__main__":
    unittest.main(verbosity=2)
