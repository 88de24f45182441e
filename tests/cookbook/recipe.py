#!/usr/bin/env python3
"""A program that stands in a document, and what the document says that it prints.

  recipe.py extract DOCUMENT OUTPUT       writes the program for a compiler
  recipe.py run DOCUMENT COMMAND...       runs it in an empty folder, and compares

The first block of C++ with a main() is the program, at most 40 lines unless the document is the
README; the block of text behind it is its output. There "..." stands for anything within a line.
"""
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.M | re.S)
MOST_LINES = 40


def program_and_output(document):
    """The number of the program's first line, the program, and its output; ends with what is wrong."""
    text = document.read_text(encoding="utf-8")
    blocks = list(BLOCK.finditer(text))
    for block, following in zip(blocks, [*blocks[1:], None]):
        if block[1] == "cpp" and re.search(r"^int main\(", block[2], re.M):
            if following is None or following[1] != "text":
                sys.exit(f"{document}: no output stands behind the program")
            if block[2].count("\n") > MOST_LINES and document.parent.name == "cookbook":
                sys.exit(f"{document}: the program has {block[2].count(chr(10))} lines")
            return text.count("\n", 0, block.start()) + 2, block[2], following[2]
    sys.exit(f"{document}: there is no program")


def pattern(expected):
    """What the output matches as a whole."""
    return re.escape(expected.rstrip()).replace(r"\.\.\.", "[^\n]*")


def run(document, command):
    _, _, expected = program_and_output(document)
    with tempfile.TemporaryDirectory(prefix="kyr-recipe-") as folder:
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "TMPDIR": folder}
        for name in ("LANGUAGE", "KYR", "KYR_CONSOLE", "KYR_CONFIG_DIR"):
            environment.pop(name, None)
        ran = subprocess.run(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    said = ran.stdout.decode("utf-8", "replace").replace("\r\n", "\n")
    if ran.returncode != 0 or not re.fullmatch(pattern(expected), said.rstrip()):
        print(f"{document} ends with {ran.returncode} and prints\n{said}\ninstead of\n{expected}")
        return 1
    return 0


def main():
    verb, document, *rest = sys.argv[1:]
    if verb == "run":
        return run(Path(document), rest)
    line, program, _ = program_and_output(Path(document))
    Path(rest[0]).write_text(f'#line {line} "{document}"\n{program}', encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
