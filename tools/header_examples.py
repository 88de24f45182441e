#!/usr/bin/env python3
"""Writes a source that compiles only if the examples in the public headers do.

An example stands in a docstring, between \\code and \\endcode, and is the inside of a function of an
application, or consists of functions, which later examples of the header may call. What it takes
for given is declared in a header, which the source includes first. Ends with 1 if an example has no
end, if one of the two words does not stand alone in its line, or if there is no example.
"""
import argparse
import re
import sys
from pathlib import Path


def examples_in(header):
    """Pairs of the number of the first line of an example and its lines."""
    found, lines = [], None
    for number, line in enumerate(header.read_text().splitlines(), 1):
        text = line.strip()
        if text == r"/// \code":
            lines = []
            found.append((number + 1, lines))
        elif text == r"/// \endcode" and lines is not None:
            lines = None
        elif text.startswith("///") and re.search(r"\\(end)?code\b", text):
            raise SyntaxError(f"{header}:{number}: the example does not begin and end with a line")
        elif lines is not None:
            if not text.startswith("///"):
                raise SyntaxError(f"{header}:{number}: the example has no \\endcode")
            lines.append(text[4:])
    return found


FUNCTION = re.compile(r"[\w:<>]+[ &*]+\w+\(.*\) \{$")


def as_code(header, number, lines, count):
    """The lines of the source for one example."""
    place = f'#line {number} "{header}"'
    if any(FUNCTION.match(line) for line in lines):
        return [f"namespace in_{header.stem} {{", place, *lines, "}"]
    return [f"void example{count}();", f"void example{count}() {{", place, *lines, "}"]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("output", type=Path)
    parser.add_argument("given", help="the header with what examples take for given")
    parser.add_argument("headers", type=Path, nargs="+")
    arguments = parser.parse_args()
    source = ["#include <kyr/Kyr.h>", f'#include "{arguments.given}"', "using namespace Kyr;"]
    try:
        examples = [(header, *example)
                    for header in arguments.headers for example in examples_in(header)]
    except SyntaxError as fault:
        print(fault)
        return 1
    for count, (header, number, lines) in enumerate(examples):
        source += as_code(header, number, lines, count)
    arguments.output.write_text("\n".join(source) + "\n")
    print("" if examples else "there is no example in any header\n", end="")
    return 0 if examples else 1


if __name__ == "__main__":
    sys.exit(main())
