#!/usr/bin/env python3
"""Checks that the shared library exports nothing but the namespace Kyr.

Weak symbols are let through: they are instances of the templates of Qt and of the standard
library, which every user of those has as well. A DLL has no weak exports: there every name of its table counts.
Prints one line for each breach and ends with 1 if there is any.
"""
import argparse
import re
import subprocess
import sys

SYMBOL = re.compile(r"^[0-9a-f]+ (\w) (.+)$")
OURS = re.compile(
    r"((vtable|VTT|typeinfo|typeinfo name|guard variable|(non-)?virtual thunk|"
    r"covariant return thunk) (for|to) |construction vtable for .*-in-)?Kyr::")

# The library puts these in front of the C and C++ libraries' own: the first two on Linux only, and
# operator new with the type that sizes have on the system.
IN_FRONT = {"pthread_create", "__cxa_throw"} | {
    f"operator new{array}(unsigned {size})" for array in ("", "[]") for size in ("long", "int")}

TABLE_OF_NAMES = "[Ordinal/Name Pointer] Table"
NAME = re.compile(r"^\t\[ *\d+\] .*?(\S+)$", re.MULTILINE)


def output_of(*command, text=None):
    return subprocess.run(command, input=text, check=True, capture_output=True, text=True).stdout


def strong_names(library):
    """What a shared object exports, without its weak symbols."""
    for line in output_of("nm", "-DC", "--defined-only", library).splitlines():
        if (match := SYMBOL.match(line)) and match[1] not in "WVu":
            yield match[2]


def table_names(library):
    """What a DLL exports."""
    table = output_of("objdump", "-p", library).partition(TABLE_OF_NAMES)[2]
    mangled = "\n".join(NAME.findall(table))
    return output_of("c++filt", text=mangled).splitlines()


def exported_names(library):
    with open(library, "rb") as file:
        is_dll = file.read(2) == b"MZ"
    names = table_names(library) if is_dll else strong_names(library)
    return [name for name in names if name not in IN_FRONT]


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("library")
    library = arguments.parse_args().library
    names = exported_names(library)
    if not any(OURS.match(name) for name in names):
        print(f"{library} exports nothing of Kyr")
        return 1
    foreign = [name for name in names if not OURS.match(name)]
    for name in foreign:
        print(f"{library} exports {name}")
    return 1 if foreign else 0


if __name__ == "__main__":
    sys.exit(main())
