#!/usr/bin/env python3
"""Compares what two builds have made, byte by byte, and says what differs.

  compare_builds.py FOLDER FOLDER PATTERN...

The patterns say which files of both folders count, as "*.deb" or "**/*". Of Debian's packages that
differ the files inside that do are named. Ends with 1 if anything differs or is missing.
"""
import hashlib
import subprocess
import sys
import tarfile
from pathlib import Path


def sums_of(folder, patterns):
    found = {path for pattern in patterns for path in folder.glob(pattern) if path.is_file()}
    return {path.relative_to(folder).as_posix(): hashlib.sha256(path.read_bytes()).hexdigest()
            for path in found}


def inside(package):
    """What the two archives in a package hold: rights, times, and sums or targets of links."""
    entries = {}
    for part in ("--ctrl-tarfile", "--fsys-tarfile"):
        with subprocess.Popen(["dpkg-deb", part, package], stdout=subprocess.PIPE) as unpack:
            with tarfile.open(fileobj=unpack.stdout, mode="r|") as tar:
                for entry in tar:
                    content = tar.extractfile(entry).read() if entry.isfile() else b""
                    entries[entry.name] = (entry.mode, entry.mtime, entry.uname, entry.linkname,
                                           hashlib.sha256(content).hexdigest())
    return entries


def differing(one, other):
    return sorted(name for name in one.keys() | other.keys() if one.get(name) != other.get(name))


def main():
    one, other = Path(sys.argv[1]), Path(sys.argv[2])
    first, second = sums_of(one, sys.argv[3:]), sums_of(other, sys.argv[3:])
    if not first:
        sys.exit(f"nothing of {sys.argv[3:]} is in {one}")
    changed = differing(first, second)
    for name in changed:
        print(f"differs: {name}" if name in first and name in second else f"only one has: {name}")
        if name.endswith(".deb") and name in first and name in second:
            for entry in differing(inside(one / name), inside(other / name)):
                print(f"  in it: {entry}")
    print(f"{len(first.keys() | second.keys()) - len(changed)} files are the same, "
          f"{len(changed)} are not")
    sys.exit(1 if changed else 0)


main()
