# SPDX-License-Identifier: MIT
"""What a program asks of the system, watched by strace: the programs that it starts, the sockets that it connects, the files
that it opens and changes."""

import pathlib
import re

# Of a thread each; the tracer is no parent of the program, so that its process id and exit code stay the program's.
CALL = re.compile(r"(?P<name>\w+)\((?P<arguments>.*)\) += (?P<result>-?\d+|\?)")
STRING = re.compile(r'(?:(?P<folder>AT_FDCWD|\d+)<(?P<base>[^>]*)>(?:\(deleted\))?, )?(?P<text>@?"(?:[^"\\]|\\.)*")')
CHANGES = {"chmod", "chown", "creat", "fchmodat", "fchownat", "fsetxattr", "lchown", "link", "linkat", "lsetxattr",
           "mkdir", "mkdirat", "mknod", "mknodat", "mount", "removexattr", "rename", "renameat", "renameat2", "rmdir",
           "setxattr", "symlink", "symlinkat", "truncate", "unlink", "unlinkat", "utime", "utimensat", "utimes"}


def watched(prefix, command):
    """The command that runs another one and writes what its threads do to files that start so."""
    return ["strace", "-D", "-ff", "-q", "-y", "-s", "4096", "--seccomp-bpf", "-e",
            "trace=%file,%network,%process", "-o", prefix, "--", *map(str, command)]


class Calls:
    """The calls of a program that was started in a folder, and has ended."""

    def __init__(self, prefix, folder):
        self.folder = folder
        self.started, self.sockets, self.changed, self.read = [], set(), set(), set()
        prefix = pathlib.Path(prefix)
        for path in prefix.parent.glob(prefix.name + ".*"):
            for line in path.read_text().splitlines():
                if call := CALL.match(line):
                    self.take(call["name"], call["arguments"], call["result"])

    def take(self, name, arguments, result):
        paths = [str(pathlib.Path(found["base"] or self.folder, found["text"][1:-1])) for found in STRING.finditer(arguments)]
        if name in ("execve", "execveat", "fork", "vfork") or \
                name in ("clone", "clone3") and "CLONE_THREAD" not in arguments:
            self.started.append(f"{name}({arguments})")
        elif name in ("connect", "sendto", "sendmsg") and "sa_family" in arguments:
            peer = re.search(r'sa_family=AF_UNIX, sun_path=@?"([^"]*)"', arguments)
            self.sockets.add(peer[1] if peer else f"{name}({arguments})")
        elif name in ("bind", "listen", "accept", "accept4") or \
                name in ("socket", "socketpair") and not arguments.startswith("AF_UNIX,"):
            self.sockets.add(f"{name}({arguments})")
        elif name.startswith("open"):
            to = self.changed if re.search("O_WRONLY|O_RDWR|O_CREAT|O_TRUNC", arguments) else self.read
            if to is self.changed or result != "-1":
                to.update(paths)
        elif name in CHANGES:
            self.changed.update(paths)
