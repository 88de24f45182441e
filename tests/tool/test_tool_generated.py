#!/usr/bin/env python3
"""What is made from the tool's table of commands: the manual page, and the completion of bash.

arguments: the tool, the folder with what was made
"""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

FOLDER = Path(sys.argv.pop())
TOOL = Path(sys.argv.pop())

COMPLETE = r"""
source "$1"
shift
COMP_WORDS=("$@")
COMP_CWORD=$(( $# - 1 ))
_kyr
printf '%s\n' "${COMPREPLY[@]}"
"""


class Generated(unittest.TestCase):
    def complete(self, *words):
        said = subprocess.run(["bash", "-u", "-c", COMPLETE, "bash", FOLDER / "kyr", "kyr", *words],
                              env={**os.environ, "PATH": f"{TOOL.parent}:{os.environ['PATH']}"},
                              check=True, capture_output=True, text=True)
        self.assertEqual(said.stderr, "", words)
        return said.stdout.split("\n")[:-1]

    def test_bash_completes(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        os.chdir(folder.name)
        Path("zip of mine").touch()
        for words, offered, why in (
            (["un"], ["units"], "a command"),
            (["zip", "pa"], ["pack"], "its second word"),
            (["help", "tar", ""], ["list", "create", "extract"], "the same behind help"),
            (["help", "--"], [""], "help explains no options"),
            (["zip", "pack", "--f"], ["--file-version"], "an option"),
            (["zip", "pack", "zip", "--engine", ""], ["zlib", "fastest"], "an option's value"),
            (["zip", "pack", "zip", "--engine", "=", "f"], ["fastest"], "the same behind ="),
            (["zip", "pack", "zip", "--engine", "="], ["zlib", "fastest"], "nothing of it yet"),
            (["zip", "pack", "--workers", ""], [""], "a number"),
            (["zip", "pack", "zi"], ["zip of mine"], "a file"),
            (["zip", "pack", "--", "--f"], [""], "no options any more"),
            (["convert", "1", "µm/s"], ["µm/s", "µm/s²"], "a unit"),
            (["convert", "1", "degC"], ["degC"], "a unit for all keyboards"),
            (["convert", "--kind", "LEN"], ["LENGTH"], "a kind"),
        ):
            self.assertEqual(sorted(self.complete(*words)), sorted(offered), why)

    def test_the_manual_page_can_be_set(self):
        page = (FOLDER / "kyr.1").read_text()
        for part in (".SS zip pack\n", "\\fB\\-f\\fR, \\fB\\-\\-force\\fR\n", "130 ended by the user"):
            self.assertIn(part, page)
        if not shutil.which("groff"):
            self.skipTest("there is no groff")
        said = subprocess.run(["groff", "-man", "-ww", "-Kutf8", "-Tutf8"], input=page, check=True,
                              capture_output=True, text=True)
        self.assertEqual(said.stderr, "")


if __name__ == "__main__":
    unittest.main()
