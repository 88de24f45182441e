#!/usr/bin/env python3
"""What gdb shows of the library's values, with the script that it finds beside the library, and by
the expressions of kyr.natvis."""
import os
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

PROGRAM, LIBRARY, NATVIS = sys.argv[1:]
HERE = Path(__file__).resolve().parent
QUIET = ["set startup-with-shell off", "set disable-randomization off", "set debuginfod enabled off",
         f"add-auto-load-safe-path {Path(LIBRARY).resolve().parent}", f'set $natvis = "{NATVIS}"']

SHOWN = [
    ("p shortText", '"a \\"b\\""', "no text, or one without quotes"),
    ("p german", '"Größe"', "bytes are not those of the user's character set"),
    ("p noText", '""', "an empty text is no text"),
    ("p item", '"item9"', "parts instead of the text"),
    ("p noItem", '""', "an empty text of Qt is no text"),
    ("p umlaut", '"Größe 7"', "letters of Qt are not UTF-16"),
    ("p span", "12.500000 s", "a span is no moment of 1970"),
    ("p moment", "1265356657.000123 s (2010-02-05 07:57:37.000123 UTC)", "no moment, or local"),
    ("p strange", "3 s + 4000000 us", "microseconds are lost"),
    ("p name", '"C:/data/scan.tif"', "parts instead of the name"),
    ("p scan", '{<Kyr::Filename::NameWithNumber> = "/data/img0007.tif", <No data fields>}', ""),
    ("p numbers", "3 elements, room for 3 = {1.5, 2, 3}", "no elements"),
    ("p none", "0 elements, room for 2", "what is not in use is shown"),
    ("frame 0", None, ""),
    ("p aName", '"/data/img0007.tif"', "a reference hides the class"),
    ("up", None, ""),
    ("natvis shortText", '"a "b""\n  5\n  5\n  97 \'a\'', ""),
    ("natvis umlaut", '"Größe 7"', ""),
    ("natvis span", "12 s + 500000 us", ""),
    ("natvis name", "C:/data/scan.tif", ""),
    ("natvis *(Kyr::Filename::NameWithNumber*)&scan", "/data/img7.tif\n  4", ""),
    ("natvis numbers", "3 elements, room for 3\n  3\n  3\n  3\n  1.5", ""),
]
CLASSES = ["KString", "NumString", "Time", "Filename::Name", "Filename::NameWithNumber",
           "StructVector<double>"]


class Gdb(unittest.TestCase):
    maxDiff = None

    def said(self, commands):
        """What gdb says to each of the commands in the stopped program."""
        marked = [part for line in commands for part in ("echo \\n@@", line)]
        lines = ["break stop", "run", "up", *marked, "echo \\n@@", "kill"]
        command = [shutil.which("gdb"), "-nx", "-q", "-batch"]
        command += [part for line in QUIET for part in ("-iex", line)] + ["-x", HERE / "natvis.py"]
        command += [part for line in lines for part in ("-ex", line)] + [PROGRAM]
        ran = subprocess.run(command, env={**os.environ, "LC_ALL": "C.UTF-8"}, check=False,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8")
        print(ran.stdout)
        said = ran.stdout.split("\n@@")[1:-1]
        self.assertEqual(len(said), len(commands), ran.stdout)
        return said

    def test_values(self):
        for (command, shown, fault), said in zip(SHOWN, self.said([row[0] for row in SHOWN])):
            if shown is not None:
                with self.subTest(command, fault=fault):
                    self.assertEqual(said.rstrip().partition(" = ")[2] if command.startswith("p ")
                                     else said.rstrip(), shown)

    def test_no_values(self):
        pairs = [(name, memory) for name in CLASSES for memory in ("zeros", "ones", "mixed")]
        for pair, said in zip(pairs, self.said([f"p *(Kyr::{name}*)&{memory}"
                                                for name, memory in pairs])):
            with self.subTest(pair):
                self.assertNotIn("Python", said)
                self.assertRegex(said, r"^\$\d+ = (<not a valid Kyr::|\d+ s \+|\d+\.\d{6} s|\"\"|0 el)")


if __name__ == "__main__":
    if not shutil.which("gdb"):
        print("skipped: there is no gdb")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1])
