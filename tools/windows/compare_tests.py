#!/usr/bin/env python3
"""Checks that what a Linux build tests, a Windows build tests as well.

  compare_tests.py LINUX WINDOWS EXCLUSIONS

LINUX and WINDOWS are what CTest says about the two builds: a list of tests, as written by
"ctest --show-only=json-v1", or the results of a run, as written by "ctest --output-junit FILE";
then only tests that passed count. EXCLUSIONS names the tests of Linux that Windows may lack: on
each line a name, in which "*" stands for any characters, a blank, and the reason. Prints one line
for each breach and ends with 1 if there is any.
"""
import argparse
import fnmatch
import json
import sys
import xml.etree.ElementTree
from pathlib import Path


class Tests:
    """The tests of a build: all, and those that count."""

    def __init__(self, path):
        text = path.read_text("utf-8")
        if text.lstrip().startswith("<"):
            cases = list(xml.etree.ElementTree.fromstring(text).iter("testcase"))
            self.all = {case.get("name") for case in cases}
            self.good = {case.get("name") for case in cases if case.get("status") == "run"}
        else:
            self.all = self.good = {test["name"] for test in json.loads(text)["tests"]}


def read_exclusions(path):
    """Number of the line, name and reason of each entry."""
    for number, line in enumerate(path.read_text("utf-8").splitlines(), 1):
        if line.strip() and not line.startswith("#"):
            name, _, reason = line.strip().partition(" ")
            yield number, name, reason.strip()


def breaches(linux, windows, exclusions):
    excluded = set()
    for number, name, reason in exclusions:
        place = f"exclusions, line {number}: {name}"
        named = set(fnmatch.filter(linux.all, name))
        if not named:
            yield f"{place} is no test of Linux"
        if named & excluded:
            yield f"{place} stands there twice"
        if not reason:
            yield f"{place} has no reason"
        for test in sorted(named & windows.good):
            yield f"{place} is tested on Windows as well" + ("" if test == name else f": {test}")
        excluded |= named
    for name in sorted(linux.good - windows.good - excluded):
        fate = "did not pass on Windows" if name in windows.all else "is missing on Windows"
        yield f"{name} {fate} and is not excluded"


def main():
    arguments = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    for name in ("linux", "windows", "exclusions"):
        arguments.add_argument(name, type=Path)
    arguments = arguments.parse_args()
    linux, windows = Tests(arguments.linux), Tests(arguments.windows)
    exclusions = list(read_exclusions(arguments.exclusions))
    found = list(breaches(linux, windows, exclusions))
    if not linux.good:
        found.append(f"{arguments.linux}: no tests")
    for breach in found:
        print(breach)
    shared = len(linux.good & windows.good)
    print(f"{len(linux.good)} tests on Linux: {shared} of them on Windows as well, "
          f"{len(linux.good - windows.good)} not; {len(windows.good - linux.all)} on Windows alone")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
