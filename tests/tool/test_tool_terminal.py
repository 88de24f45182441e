#!/usr/bin/env python3
"""The tool as people meet it in a terminal.

argument: the tool
"""
import glob
import os
import re
import shutil
import sys
import tempfile
import time
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).parent.parent / "support"))
from screen import Screen, columns  # noqa: E402

TOOL = sys.argv.pop()
os.environ["LC_ALL"] = "C.UTF-8"
SIGINT, SIGTERM = 2, 15


def catches_interrupts(process):
    """Whether the process has a handler already."""
    caught = re.search(r"SigCgt:\s*(\w+)", Path(f"/proc/{process.pid}/status").read_text())[1]
    return int(caught, 16) >> (SIGINT - 1) & 1


class Terminal(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        os.chdir(folder.name)
        Path("large").touch()
        os.truncate("large", 10**11)

    def test_a_bar_shows_what_takes_long(self):
        os.truncate("large", 10**9)
        for width, words, said in ((40, ("crc16", "large"), "0000  large\r\n"),
                                   (200, ("tar", "create", "-f", "archive", "large"), "")):
            screen = Screen(width, TOOL, *words)
            self.assertEqual(screen.end(200), 0)  # ThreadSanitizer takes its time
            bars = screen.bars()
            self.assertTrue(bars and bars[0].startswith("large"), screen.text)
            self.assertLess(max(map(columns, bars)), width)
            self.assertRegex(screen.text, rf"\r +\r{said}\Z", "a bar that is left behind")

    def test_ctrl_c_ends_it_and_leaves_nothing(self):
        for words in ("zip pack - new", "zip salvage - new", "zip verify -", "tar list -", "sort",
                      "base64 encode -", "tar extract - new", "crc16 large -", "tar create new large"):
            with self.subTest(words):
                screen = Screen(80, TOOL, *words.split(), control=True)
                for _ in range(3000):
                    if catches_interrupts(screen.program):
                        break
                    time.sleep(0.01)
                os.write(screen.ours, b"\x03")
                self.assertEqual(screen.end(), 130)
                self.assertRegex(screen.text, r" ended by the user before all was done\r\n\Z")
                self.assertEqual(os.listdir(), ["large"])

    def test_ctrl_c_ends_an_extraction_between_files(self):
        names = [f"{number:02}" for number in range(20)]
        for name in names:
            Path(name).touch()
            os.truncate(name, 10**7)
        Screen(80, TOOL, "tar", "create", "--engine=fastest", "archive", *names).end()
        for folder in "abcdefgh":  # the first may be quicker than the wish
            screen = Screen(80, TOOL, "tar", "extract", "archive", folder, control=True)
            while screen.program.poll() is None and not Path(folder, "00").exists():
                time.sleep(0.0001)
            os.write(screen.ours, b"\x03")
            if screen.end() == 130 and len(os.listdir(folder)) < len(names):
                break
            shutil.rmtree(folder, ignore_errors=True)
        else:
            self.fail("no wish was heard in time")
        written = sorted(os.listdir(folder))
        self.assertEqual(written, names[:len(written)], "half-written files")
        self.assertTrue(written)
        self.assertIn(f"archive: files that are written: {len(written)} of 20\r\n", screen.text)
        self.assertTrue(all(os.path.getsize(f"{folder}/{name}") == 10**7 for name in written))

    def test_a_second_wish_to_end_leaves_nothing_hidden(self):
        os.truncate("large", 2 * 10**8)
        Screen(80, TOOL, "tar", "create", "--engine=fastest", "archive", "large").end()
        for folder in "1234":  # the first may be quicker than the wishes
            screen = Screen(80, TOOL, "tar", "extract", "archive", folder)
            while screen.program.poll() is None and not glob.glob(folder + "/.*"):
                time.sleep(0.0001)
            for wish in SIGINT, SIGTERM:  # two of the same might come as one
                screen.program.send_signal(wish)
            screen.end()
            self.assertEqual(glob.glob(folder + "/.*"), [])

    def test_colours_are_for_terminals_that_want_them(self):
        for wish, coloured in (({"TERM": "xterm"}, True), ({"TERM": "xterm", "NO_COLOR": ""}, True),
                               ({"TERM": "xterm", "NO_COLOR": "1"}, False), ({"TERM": "dumb"}, False)):
            environment = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
            for words, red in (("help zip pack", "kyr zip pack"), ("zip info missing", "kyr:")):
                screen = Screen(80, TOOL, *words.split(), environment={**environment, **wish})
                screen.end()
                self.assertEqual(bool(re.match(rf"\x1b\[[0-9;]+m{red} ?\x1b\[0m", screen.text)), coloured)
                self.assertEqual("\x1b" in screen.text, coloured)


if __name__ == "__main__":
    unittest.main()
