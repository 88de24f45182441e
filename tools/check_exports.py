#!/usr/bin/env python3
"""Checks that the shared library exports nothing but the namespace Kyr.

Weak symbols are let through: they are instances of the templates of Qt and of the standard
library, which every user of those has as well. Prints one line for each breach and ends with 1
if there is any.
"""
import argparse
import re
import subprocess
import sys

SYMBOL = re.compile(r"^[0-9a-f]+ (\w) (.+)$")
OURS = re.compile(
    r"((vtable|VTT|typeinfo|typeinfo name|guard variable|(non-)?virtual thunk|"
    r"construction vtable|covariant return thunk) (for|to) )?Kyr::")


def foreign(listing):
    """The names in nm's listing that are neither ours nor weak."""
    for line in listing.splitlines():
        match = SYMBOL.match(line)
        if match and match[1] not in "WVu" and not OURS.match(match[2]):
            yield match[2]


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("library")
    library = arguments.parse_args().library
    listing = subprocess.run(["nm", "-DC", "--defined-only", library],
                             check=True, capture_output=True, text=True).stdout
    if "Kyr::" not in listing:
        print(f"{library} exports nothing of Kyr")
        return 1
    names = list(foreign(listing))
    for name in names:
        print(f"{library} exports {name}")
    return 1 if names else 0


if __name__ == "__main__":
    sys.exit(main())
