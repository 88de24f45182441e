#!/usr/bin/env python3
"""Checks that the shared library exports nothing but what its public headers declare.

That is the namespace Kyr, without what stands in private headers and sources, and without the
classes that a public header only mentions. Instances of the templates of Qt and of the standard
library stay inside as well. Prints one line for each breach and ends with 1 if there is any.
"""
import argparse
import re
import subprocess
import sys
from pathlib import Path

# Functions and data, and what the compiler makes for classes: tables, type information, thunks.
OURS = re.compile(r"_?_Z(?:T[VTISC]|GV|T[hvc][nhv\d_]*_)?N[KVRO]*(3Kyr.*)")

# The library puts these in front of the C and C++ libraries' own: the first on Linux only, and
# operator new with the type that sizes have on the system.
IN_FRONT = {"pthread_create", "__cxa_throw", "_Znwm", "_Znam", "_Znwj", "_Znaj"}

TABLE_OF_NAMES = "[Ordinal/Name Pointer] Table"
NAME = re.compile(r"^\t\[ *\d+\] .*?(\S+)$", re.MULTILINE)

DEFINED = re.compile(r"(?:class|struct) (?:KYR_\w+(?:\(.*?\))? )*(\w+)(?: : .*)?\s*\{")
MENTIONED = re.compile(r"(?:class|struct) (\w+);")


def output_of(*command, text=None):
    return subprocess.run(command, input=text, check=True, capture_output=True, text=True).stdout


def exported_names(library):
    """The names as they stand in the file, that is mangled."""
    with open(library, "rb") as file:
        is_dll = file.read(2) == b"MZ"
    if is_dll:
        names = NAME.findall(output_of("objdump", "-p", library).partition(TABLE_OF_NAMES)[2])
    else:
        names = output_of("nm", "-D", "--defined-only", library).split()[2::3]
    return [name for name in names if name not in IN_FRONT]


def parts_of(mangled):
    """The identifiers that a mangled name begins with, from namespace to function."""
    parts = []
    while length := re.match(r"\d+", mangled):
        end = length.end() + int(length[0])
        parts.append(mangled[length.end():end])
        mangled = mangled[end:]
    return parts


class Public:
    """What the public headers declare."""

    def __init__(self, folder):
        headers = [path for path in folder.rglob("*.h") if not path.name.endswith("_p.h")]
        text = "\n".join(re.sub(r"//.*", "", path.read_text()) for path in headers)
        self.words = set(re.findall(r"\w+", text))
        self.mentioned = set(MENTIONED.findall(text)) - set(DEFINED.findall(text))

    def declares(self, mangled):
        parts = set(parts_of(mangled))
        return parts <= self.words and not parts & self.mentioned


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("library")
    arguments.add_argument("--headers", type=Path,
                           default=Path(__file__).resolve().parents[1] / "src/base/kyr")
    given = arguments.parse_args()
    public = Public(given.headers)
    names = {name: OURS.fullmatch(name) for name in exported_names(given.library)}
    if not any(names.values()):
        print(f"{given.library} exports nothing of Kyr")
        return 1
    breaches = [(name, ", which no public header declares" if match else "")
                for name, match in names.items() if not match or not public.declares(match[1])]
    readable = output_of("c++filt", text="\n".join(name for name, _ in breaches)).splitlines()
    for name, (_, why) in zip(readable, breaches):
        print(f"{given.library} exports {name}{why}")
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
