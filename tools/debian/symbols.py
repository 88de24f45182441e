#!/usr/bin/env python3
"""Writes down what a library exports, and since which version, as dpkg-gensymbols reads it.

  symbols.py LIBRARY VERSION SYMBOLS_FILE

The file keeps the versions of symbols that it knows; new ones get VERSION, those that are gone leave
it. Names of C++ stand as people write them: so the constructors and destructors that the compiler makes
of one are one line. Prints what has changed.
"""
import re
import subprocess
import sys
from pathlib import Path

HEAD = "libKyr.so.{0} libkyr{0} #MINVER#\n* Build-Depends-Package: libkyr-dev\n"
LINE = re.compile(r' (?:\(c\+\+\)"(?P<cxx>.+)@Base"|(?P<plain>\S+)@Base) (?P<version>\S+)$')


def output_of(*command, **options):
    return subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE, **options).stdout


def exported(library):
    """The names of C++, as people write them, and the others."""
    table = output_of("nm", "-D", "--defined-only", "--format=posix", library)
    symbols = [line.split()[0] for line in table.splitlines()]
    names = output_of("c++filt", input="\n".join(symbols)).splitlines()
    cxx = {name for symbol, name in zip(symbols, names) if symbol != name}
    return cxx, set(symbols) & set(names)


def known(path):
    """The version of each line's name."""
    lines = path.read_text().splitlines() if path.exists() else []
    found = filter(None, map(LINE.match, lines))
    return {line["cxx"] or line["plain"]: line["version"] for line in found}


def main():
    library, version, path = sys.argv[1], sys.argv[2], Path(sys.argv[3])
    since = known(path)
    cxx, plain = exported(library)
    if not cxx:
        sys.exit(f"{library} exports nothing of C++")
    lines = [f' {name}@Base {since.get(name, version)}\n' for name in sorted(plain)]
    lines += [f' (c++)"{name}@Base" {since.get(name, version)}\n' for name in sorted(cxx)]
    path.write_text(HEAD.format(version.split(".")[0]) + "".join(lines))
    for sign, names in (("-", set(since) - cxx - plain), ("+", (cxx | plain) - set(since))):
        for name in sorted(names):
            print(sign, name)


main()
