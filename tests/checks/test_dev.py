#!/usr/bin/env python3
"""./dev on machines that lack something: what it says and which commands it calls."""
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

DEV = Path(__file__).resolve().parents[2] / "dev"
REAL = ("cat chmod date dirname env find grep head id mkdir nproc printf rm sed sh tail touch "
        "xargs").split()

CALLED = 'echo "$(basename "$0") $*" >>"$CALLS"\n'
NOTHING_INSTALLED = "echo 'unknown ok installed'"
FORMATTER_INSTALLED = "echo 'installed clang-format-14'"
OLD_LISTS = CALLED + 'case $* in update*) touch "$CALLS.new" ;; *) [ -e "$CALLS.new" ] ;; esac'
NO_NETWORK = CALLED + "echo 'Could not resolve the host'; exit 100"
SUDO = CALLED + 'while [ "${1#-}" != "$1" ]; do shift; done; exec "$@"'
INSTALL = "apt-get install -y -q --no-install-recommends"

# What is there; the arguments; exit code; what it says; what it calls; the fault that shows.
MACHINES = [
    ({}, "", 0, "sanitize", "", "does not explain itself"),
    ({}, "demp", 2, 'no verb "demp"', "", "takes a typing error for a verb"),
    ({}, "check src", 2, 'check takes no argument', "", "an argument that is ignored"),
    ({"find": ""}, "format", 1, "no sources", "", "nothing at all is taken for formatted"),
    ({"apt-get": None}, "demo", 1, "glmark2-data", "", "no help on other systems"),
    ({"id": "echo 1000"}, "format", 1, "neither root nor sudo", "", "calls apt-get without right"),
    ({"id": "echo 1000"}, "format", 1, "apt-get install clang-format-14", "", "names no package"),
    ({"id": "echo 1000", "sudo": SUDO}, "format", 0, "Installing clang-format-14",
     "sudo env DEBIAN_FRONTEND=noninteractive " + INSTALL, "root's work without sudo"),
    ({"dpkg-query": FORMATTER_INSTALLED}, "format", 0, "", "", "not quiet with all installed"),
    ({"apt-get": OLD_LISTS}, "format", 0, "Installing", "apt-get update", "no fresh lists"),
    ({"apt-get": NO_NETWORK}, "format", 1, "Could not resolve", INSTALL, "hides apt's reason"),
    ({"apt-get": NO_NETWORK}, "format", 1, "Is there a network?", "", "no way out is named"),
]


class Machine:
    """A folder with a space in its name, a copy of dev, and a PATH of its own."""

    def __init__(self, root, commands):
        self.root = root
        self.calls = root / "calls"
        (root / "bin").mkdir(parents=True)
        for folder in ("src", "tests", "bench", "examples", "fuzz"):
            (root / folder).mkdir()
        shutil.copytree(DEV.parent / "tools/dev", root / "tools/dev")
        (root / "src/any.cpp").touch()
        shutil.copy(DEV, root / "dev")
        for name in [*REAL, "basename"]:
            (root / "bin" / name).symlink_to(shutil.which(name))
        usual = {"id": "echo 0", "apt-get": CALLED, "dpkg-query": NOTHING_INSTALLED,
                 "clang-format-14": ""}
        for name, body in {**usual, **commands}.items():
            if body is not None:
                (root / "bin" / name).unlink(missing_ok=True)
                (root / "bin" / name).write_text("#!/bin/sh\n" + body + "\n")
                (root / "bin" / name).chmod(0o755)

    def dev(self, verb):
        return subprocess.run([self.root / "dev", *verb.split()], cwd="/", text=True,
                              env={"PATH": str(self.root / "bin"), "CALLS": str(self.calls)},
                              capture_output=True, stdin=subprocess.DEVNULL, check=False)


class Dev(unittest.TestCase):
    def test_machines(self):
        for commands, verb, code, says, calls, fault in MACHINES:
            with self.subTest(fault), tempfile.TemporaryDirectory(prefix="kyr dev ") as folder:
                machine = Machine(Path(folder) / "tree", commands)
                ran = machine.dev(verb)
                called = machine.calls.read_text() if machine.calls.exists() else ""
                self.assertEqual(ran.returncode, code, ran.stderr)
                self.assertIn(says, ran.stdout + ran.stderr)
                self.assertIn(calls, called)
                if not says:
                    self.assertEqual((ran.stdout, ran.stderr, called), ("", "", ""))


if __name__ == "__main__":
    unittest.main()
