#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a build folder, as many at once as there are processors.

A file that was found clean is not looked at again, in this checkout or in another one on this
machine, until it, a header of this project that it includes, its compiler command or the
configuration of the lint changes.
"""
import argparse
import concurrent.futures
import hashlib
import json
import os
import re
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TIDY = "clang-tidy-14"
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)
FOLDERS = [ROOT / folder for folder in ("src/base", "tests", "bench", "fuzz", "examples", "tools")]


def project_header(name, includer):
    """The file of this project that an include means, or None for a header from elsewhere."""
    for folder in (includer.parent, *FOLDERS):
        if (folder / name).is_file():
            return folder / name
    return None


def with_headers(source):
    """The source and all headers of this project that it reaches."""
    found, todo = {source}, [source]
    while todo:
        path = todo.pop()
        for name in INCLUDE.findall(path.read_text()):
            header = project_header(name, path)
            if header and header not in found:
                found.add(header)
                todo.append(header)
    return sorted(found)


def configurations():
    found = [ROOT / ".clang-tidy"]
    for folder in FOLDERS:
        found += sorted(folder.rglob(".clang-tidy"))
    return found


def fingerprint(source, command):
    """A name for all that decides what the lint says; where the checkout lies does not."""
    digest = hashlib.sha256(command.replace(str(ROOT), ".").encode())
    for path in [*configurations(), *with_headers(source)]:
        digest.update(path.read_bytes())
    return digest.hexdigest()


def lint(build, source):
    """The complaints about a source; empty if it is clean."""
    ran = subprocess.run([TIDY, "--quiet", "-p", build, source],
                         capture_output=True, text=True, check=False)
    return "" if ran.returncode == 0 else (ran.stdout or ran.stderr)


def outdated(build, stamps):
    """Pairs of a source and the stamp that it earns by being clean, the largest first."""
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = Path(entry["file"]).resolve()
        generated = build.resolve() in source.parents
        stamp = stamps / fingerprint(source, entry["command"]) if not generated else None
        if stamp and stamp.exists():
            stamp.touch()
        elif stamp:
            yield source, stamp


def forget_old(stamps):
    """Takes away what no lint has asked for in a month."""
    for stamp in stamps.iterdir():
        if stamp.stat().st_mtime < time.time() - 30 * 24 * 3600:
            stamp.unlink()


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("build", type=Path, help="with compile_commands.json")
    arguments.add_argument("stamps", type=Path, help="folder for the names of what was clean")
    options = arguments.parse_args()
    build, stamps = options.build, options.stamps
    stamps.mkdir(parents=True, exist_ok=True)
    work = sorted(outdated(build, stamps), key=lambda pair: -pair[0].stat().st_size)
    clean = True
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        for (_, stamp), found in zip(work, pool.map(lambda pair: lint(build, pair[0]), work)):
            if found:
                clean = False
                print(found)
            else:
                stamp.touch()
    forget_old(stamps)
    return 0 if clean else 1


if __name__ == "__main__":
    sys.exit(main())
