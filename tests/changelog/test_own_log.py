#!/usr/bin/env python3
"""Holds the library's change log against its headers: every exported class has its entry, and
every entry names something that stands in a header of its folder. Takes the command of the tool."""
import re
import subprocess
import sys
from pathlib import Path

LIBRARY = Path(__file__).resolve().parents[2] / "src/base/kyr"
CLASS = re.compile(r"^(?:class|struct) KYR_EXPORT (?:KYR_\w+(?:\(.*?\))? )?(\w+)(?= [:{]|$)", re.M)

command = [*sys.argv[1:], "changelog"]
page = subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout.decode()
entries = {folder: set(re.findall(r'token">(?:\w+::)*(\w+)', listing))
           for folder, listing in re.findall(r'<h2 [^>]*>(\w+)(.*?)</ul>', page, re.S)}
faults = []
for folder in sorted(entries.keys() | {path.parent.name for path in LIBRARY.glob("*/Kyr*.h")}):
    text = "\n".join(path.read_text() for path in (LIBRARY / folder).glob("Kyr*.h"))
    listed = entries.get(folder, set())
    faults += [f"{folder}: {name} has no entry in kyr_library_change_log.cpp"
               for name in sorted(set(CLASS.findall(text)) - listed)]
    faults += [f"{folder}: no header has the element {name}"
               for name in sorted(listed) if not re.search(rf"\b{name}\b", text)]
print(*faults, sep="\n")
sys.exit(1 if faults or not entries else 0)
