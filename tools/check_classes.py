#!/usr/bin/env python3
"""Holds the table of all classes in docs/ARCHITECTURE.md against the public headers.

Every exported class, and every public class without code of its own, has a row that names its
header and an example, but for what stands in for classes of Qt. The names of a row stand in that header, and one of them in the sources of
the example. README.md names every class as well. Prints one line for each breach and ends with 1
if there is any.
"""
import argparse
import re
import sys
from pathlib import Path

CLASS = re.compile(r"^(?:template <.*>\n)?(?:class|struct) (?:KYR_\w+(?:\(.*?\))? )*(\w+)(?= [:{]|$)",
                   re.M)
STAND_INS = "KyrQtVersion.h"
ROW = re.compile(r"^\| (`.*?) \| (.+?) \| \[(\S+?)\]\((\S+?)\) \| \[(\S+?)\]\((\S+?)\) \|$", re.M)


def names_in(text):
    """All words of the code in a text of Markdown, but for code in paragraphs of its own."""
    inline = re.sub(r"^```.*?^```$", "", text, flags=re.M | re.S)
    return {word for code in re.findall(r"`([^`]+)`", inline) for word in re.findall(r"\w+", code)}


def check_row(docs, header, example, names):
    """Breaches of one row; both places are relative to the folder of the table."""
    found = []
    if not (docs / header).is_file():
        found.append(f"there is no {header}")
    else:
        text = (docs / header).read_text()
        found += [f"{header} does not name {name}" for name in sorted(names)
                  if not re.search(rf"\b{name}\b", text)]
    sources = [docs / example, *(docs / example).glob("*.cpp"), *(docs / example).glob("*.h")]
    text = "\n".join(path.read_text() for path in sources if path.is_file())
    if not any(re.search(rf"\b{name}\b", text) for name in names):
        found.append(f"{example} uses none of {', '.join(sorted(names))}")
    return found


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parents[1])
    root = parser.parse_args().root
    table = root / "docs/ARCHITECTURE.md"
    breaches = []
    listed = set()
    for names, _, _, header, _, example in ROW.findall(table.read_text()):
        listed |= names_in(names)
        breaches += check_row(table.parent, header, example, names_in(names))
    inside = names_in((root / "README.md").read_text())
    for header in sorted((root / "src/base/kyr").glob("*/Kyr*.h")):
        if header.name == STAND_INS:
            continue
        for name in CLASS.findall(header.read_text()):
            place = header.relative_to(root)
            if name not in listed:
                breaches.append(f"{place}: {name} has no row in docs/ARCHITECTURE.md")
            if name not in inside:
                breaches.append(f"{place}: README.md does not name {name}")
    print(*breaches, sep="\n", end="\n" if breaches else "")
    return 1 if breaches or not listed else 0


if __name__ == "__main__":
    sys.exit(main())
