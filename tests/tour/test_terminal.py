#!/usr/bin/env python3
"""The tour as its user meets it: on a terminal, and stopped with Ctrl-C.

argument: the program
"""
import os
import pty
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOUR = sys.argv.pop()
# Neither the user's language nor the user's settings.
SETTINGS = tempfile.TemporaryDirectory()
os.environ.update(KYR_CONFIG_DIR=SETTINGS.name, LC_ALL="C.UTF-8")
# Far more work than any test waits for, in little memory.
ENDLESS = ("--smoothing", "100000", "--copies", "10000")


class Terminal(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.scan = self.folder / "scan.obj"
        self.scan.write_text("v 0 0 0\nv 2 0 0\nv 0 2 0\nv 0 0 2\nf 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n")

    def start(self, *options, **streams):
        return subprocess.Popen([TOUR, "--output", self.folder, *options, self.scan], **streams)

    def assert_stopped(self, tour):
        _, errors = tour.communicate(timeout=20)
        self.assertEqual(tour.returncode, 3)
        self.assertIn("stopped by the user", errors)

    def test_interrupt_stops_the_analysis(self):
        project = self.folder / "scan.kyr"
        for before in (None, b"an older project"):
            if before:
                project.write_bytes(before)
            files = sorted(self.folder.iterdir())
            tour = self.start(*ENDLESS, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            self.assertTrue(any("working" in line for line in tour.stdout), "it never began")
            tour.send_signal(signal.SIGINT)
            self.assert_stopped(tour)
            self.assertEqual(sorted(self.folder.iterdir()), files, "something is left behind")
        self.assertEqual(project.read_bytes(), before)

    def test_interrupt_stops_the_reading(self):
        self.scan.unlink()
        os.mkfifo(self.scan)
        tour = self.start(stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        with open(self.scan, "w") as scan:  # opens when the tour reads
            tour.send_signal(signal.SIGINT)
            with self.assertRaises(BrokenPipeError, msg="it reads on for ever"):
                for _ in range(20000):  # far more than it takes to notice
                    scan.write("v 1 2 3\n" * 1000)
            os.dup2(os.open(os.devnull, os.O_WRONLY), scan.fileno())  # for the rest in its buffer
        self.assert_stopped(tour)

    def test_a_bar_is_drawn_on_a_terminal(self):
        ours, theirs = pty.openpty()
        tour = self.start(stdout=theirs)
        os.close(theirs)
        shown = b""
        try:
            while piece := os.read(ours, 4096):
                shown += piece
        except OSError:  # the end of a terminal
            pass
        os.close(ours)
        self.assertEqual(tour.wait(), 0)
        self.assertRegex(shown, rb"\r   Computing curvatures +\[#+\.*\] +\d+%")
        self.assertNotIn(b"working", shown, "rows and a bar")
        self.assertRegex(shown, rb"\r {79}\r   curvatures", "a bar that is left behind")

    def test_without_any_language_names_and_units_are_utf8(self):
        scan = self.scan.rename(self.folder / "Möbel.obj")
        said = subprocess.run([TOUR, "--output", self.folder, scan], stdout=subprocess.PIPE, check=True,
                              env={"KYR_CONFIG_DIR": SETTINGS.name}).stdout.decode()
        self.assertIn("Möbel.kyr", said)
        self.assertIn("µm", said)


if __name__ == "__main__":
    unittest.main()
