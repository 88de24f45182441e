#!/usr/bin/env python3
"""Keeps what differs between platforms in its places.

Conditions on a compiler or platform stand in core/KyrPlatform.h alone, those on the version of Qt in
core/KyrQtVersion.h. Headers of an operating
system are included only by whole files for one system, named *_posix.cpp or *_win.cpp; those of
the library lie in a folder "platform". Prints one line for each breach and ends with 1 if there
is any.
"""
import argparse
import re
import sys
from pathlib import Path

PLATFORM_HEADER = "src/base/kyr/core/KyrPlatform.h"
QT_HEADER = "src/base/kyr/core/KyrQtVersion.h"
FOLDERS = ("src", "tests", "bench", "fuzz", "examples", "tools")

CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b(.*)")
# Names that compilers and Qt predefine: _WIN32, __linux__, __has_feature, Q_OS_WIN, ...
PLATFORM_NAME = re.compile(
    r"\b(_\w+|WIN32|WIN64|UNICODE|linux|unix|MINGW\w*|Q_(?:OS|CC|PROCESSOR)_\w+|QT_BUILD\w*)\b")

QT_NAME = re.compile(r"\b(QT_VERSION\w*|KYR_QT)\b")

INCLUDE = re.compile(r"^\s*#\s*include\s*<([^>]+)>")
# Every other header whose name ends in .h belongs to an operating system.
PORTABLE = re.compile(
    r"(kyr|gtest|gmock|benchmark|boost|spdlog|tbb|openssl)/.+|archive(_entry)?\.h|zlib\.h|"
    r"cxxabi\.h|unwind\.h|isa-l\.h|libdeflate\.h|"
    r"(assert|ctype|errno|float|inttypes|limits|locale|math|setjmp|signal|stdarg|stddef|stdint|"
    r"stdio|stdlib|string|time|wchar)\.h")
WINDOWS = re.compile(
    r"(windows\w*|win\w+|io|direct|process|shl\w+|shellapi|tlhelp32|psapi|dbghelp|crtdbg|"
    r"tchar|eh|new|conio|share|mbstring|malloc|objbase|knownfolders|sddl|aclapi|lm\w*|"
    r"ext/stdio_filebuf)\.h",
    re.IGNORECASE)
# Both systems have these, each with its own content.
BOTH = re.compile(r"fcntl\.h|sys/(types|stat)\.h")


def is_home(path, relative, ends):
    """Whether the file may know a system whose files end like one of these."""
    in_place = path.parent.name == "platform" or not relative.startswith("src/")
    return in_place and path.name.endswith(ends)


def ends_for(header):
    """The ends of the names of files that may include a header of an operating system."""
    if BOTH.fullmatch(header):
        return "_posix.cpp", "_win.cpp"
    return ("_win.cpp",) if WINDOWS.fullmatch(header) else ("_posix.cpp",)


def header_breach(path, relative, header):
    """What is wrong with including a header here; empty if nothing is."""
    if not header.endswith(".h") or PORTABLE.fullmatch(header):
        return ""
    ends = ends_for(header)
    if is_home(path, relative, ends):
        return ""
    folder = "platform/" if relative.startswith("src/") else ""
    places = " and ".join(f"{folder}*{end}" for end in ends)
    return f"<{header}> belongs to an operating system; only files {places} may include it"


def condition_breach(condition, relative):
    """What is wrong with a condition here; empty if nothing is."""
    for home, names in ((PLATFORM_HEADER, PLATFORM_NAME), (QT_HEADER, QT_NAME)):
        if relative != home and (name := names.search(condition)):
            return f"asks for {name[1]}; only {home} may"
    return ""


def breaches_of(path, relative):
    if relative == PLATFORM_HEADER:
        return
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if (match := CONDITION.match(line)) and (breach := condition_breach(match[1], relative)):
            yield f"{relative}:{number}: {breach}"
        if (match := INCLUDE.match(line)) and (breach := header_breach(path, relative, match[1])):
            yield f"{relative}:{number}: {breach}"


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--root", type=Path, default=Path(__file__).resolve().parent.parent)
    root = arguments.parse_args().root
    found = False
    for folder in FOLDERS:
        for path in sorted([*(root / folder).rglob("*.h"), *(root / folder).rglob("*.cpp")]):
            for breach in breaches_of(path, path.relative_to(root).as_posix()):
                print(breach)
                found = True
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
