#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a build folder, as many at once as there are processors.

Most of its time goes into the headers of others, so sources of one folder are looked at together, as
one that includes them. Whatever it has to say then, that they share a name included, may come from
their company: each of them is looked at alone, and only what is said of it there counts.

A file that was found clean is not looked at again, in this checkout or in another one on this
machine, until it, a header of this project that it includes, its compiler command or the
configuration of the lint changes.
"""
import argparse
import collections
import concurrent.futures
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TIDY = "clang-tidy-14"
TOGETHER = 8  # more would share more names, and one of them changed would cost more
Entry = collections.namedtuple("Entry", "source stamp options")
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


def tidy(*options):
    """What clang-tidy complains of; empty if it finds nothing."""
    ran = subprocess.run([TIDY, "--quiet", *options], capture_output=True, text=True, check=False)
    return "" if ran.returncode == 0 else (ran.stdout or ran.stderr)


def clean_together(build, entries):
    """Whether clang-tidy finds nothing in sources of one folder with the same options."""
    if len(entries) == 1:
        return False
    # The analyzer looks into an included source only for a file of this name.
    together = build / "lint" / f"UnifiedSource{entries[0].stamp.name}.cpp"
    together.write_text("".join(f'#include "{entry.source}"\n' for entry in entries))
    return not tidy("--checks=-bugprone-suspicious-include", together, "--", *entries[0].options)


def lint(build, entries):
    """Gives the clean ones of such sources their stamps; the complaints about the others."""
    if clean_together(build, entries):
        found = [""] * len(entries)
    else:
        found = [tidy("-p", build, entry.source) for entry in entries]
    for entry, complaints in zip(entries, found):
        if not complaints:
            entry.stamp.touch()
    return "".join(found)


def options(command):
    """A compiler's options without the names of what it reads and writes."""
    words = shlex.split(command)
    output = words.index("-o")
    del words[output:output + 2]
    return tuple(words[next(i for i, word in enumerate(words) if word.startswith("-")):
                       words.index("-c")])


def outdated(build, stamps):
    """What has not been found clean as it is now."""
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = Path(entry["file"]).resolve()
        if build in source.parents:
            continue
        stamp = stamps / fingerprint(source, entry["command"])
        if stamp.exists():
            stamp.touch()
        else:
            yield Entry(source, stamp, options(entry["command"]))


def batches(entries):
    """Entries that can be looked at together, the longest first."""
    alike = collections.defaultdict(list)
    for entry in entries:
        own = (entry.source.parent / ".clang-tidy").exists()
        alike[entry.source if own else entry.source.parent, entry.options].append(entry)
    found = [group[begin:begin + TOGETHER]
             for group in alike.values() for begin in range(0, len(group), TOGETHER)]
    return sorted(found, key=lambda batch: -sum(e.source.stat().st_size for e in batch))


def forget_old(stamps):
    """Takes away what no lint has asked for in a month."""
    for stamp in stamps.iterdir():
        if stamp.stat().st_mtime < time.time() - 30 * 24 * 3600:
            stamp.unlink()


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("build", type=Path, help="with compile_commands.json")
    arguments.add_argument("stamps", type=Path, help="folder for the names of what was clean")
    told = arguments.parse_args()
    build, stamps = told.build.resolve(), told.stamps
    stamps.mkdir(parents=True, exist_ok=True)
    (build / "lint").mkdir(exist_ok=True)
    work = batches(outdated(build, stamps))
    clean = True
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        for found in pool.map(lambda batch: lint(build, batch), work):
            if found:
                clean = False
                print(found)
    forget_old(stamps)
    return 0 if clean else 1


if __name__ == "__main__":
    sys.exit(main())
