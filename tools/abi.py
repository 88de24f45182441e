#!/usr/bin/env python3
"""Holds the interface of the shared library against the one that is kept.

What programs were compiled against must stay as it is, until the soname says otherwise: functions,
the order of virtual ones, the layout of classes. libabigail reads all of it out of the debug
information; what is of no concern is left out, so that the file with the interface is small and its
changes can be read. docs/abi.md has the rules. Prints what is wrong and ends with 1, or with 2
where the library cannot be read.
"""
import argparse
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

TOP = Path(__file__).resolve().parents[1]
HEADERS = TOP / "src/base/kyr"
HERE = TOP / "abi"
RENEW = "./dev abi --renew"

READ = ["--no-show-locs", "--no-corpus-path", "--no-comp-dir-path", "--no-architecture",
        "--no-elf-needed", "--no-parameter-names", "--no-write-default-sizes",
        "--exported-interfaces-only", "--type-id-style", "hash"]
COMPARE = ["--no-added-syms", "--non-reachable-types"]

DEFINED = re.compile(
    r"(?:class|struct|enum|union)(?: class)? (?:KYR_\w+(?:\(.*?\))? )*(\w+)[^;{]*\{")
CLASSES = {"class-decl", "union-decl"}
PLACES = {"abi-instr", "namespace-decl", "member-type", *CLASSES}
REFERENCES = ("type-id", "naming-typedef-id", "method-class-id", "def-of-decl-id")
DESTROYS_OR_COPIES = re.compile(r"~|operator=$")


class CannotRead(Exception):
    """The tools of libabigail fail, or there is nothing to read."""


def run(*command, allowed=(0,)):
    ran = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                         check=False)
    if ran.returncode not in allowed:
        raise CannotRead(f"{command[0]} ended with {ran.returncode}\n{ran.stdout}{ran.stderr}")
    return ran


def public_headers(folder):
    """Their texts without comments."""
    paths = [path for path in folder.rglob("*.h") if not path.name.endswith("_p.h")]
    return [re.sub(r"//.*", "", path.read_text()) for path in paths]


def exported(element):
    """Whether a function or variable has a name in the library's table."""
    return any("elf-symbol-id" in part.attrib for part in element.iter())


class Interface:
    """The library as abidw describes it, without what is no concern of programs."""

    def __init__(self, root, headers):
        self.root = root
        self.public = {name for text in headers for name in DEFINED.findall(text)}
        self.types, self.foreign, self.wanted = {}, set(), set()
        self._empty_foreign(root, [])
        for part in root.iter():
            if "id" in part.attrib:
                self.types.setdefault(part.get("id"), []).append(part)
        self._want_public(root, [], self._is_called)
        called = set(self.wanted)
        self._want_public(root, [], self._is_public)
        # What only templates lead to; libabigail looks at it when it is told so.
        root.set("tracking-non-reachable-types", "yes")
        for part in self.wanted - called:
            if part.tag in CLASSES | {"enum-decl"}:
                part.set("is-non-reachable", "yes")
        self._drop_unwanted(root)

    def _empty_foreign(self, element, names):
        """Classes of Qt and of the standard library keep names, sizes and nested types."""
        for part in element:
            if part.tag in ("namespace-decl", "abi-instr", "member-type"):
                name = [part.get("name")] if part.tag == "namespace-decl" else []
                self._empty_foreign(part, [*names, *name])
            elif part.tag in CLASSES and names[:1] == ["Kyr"]:
                self._drop_inline(part)
            elif part.tag in CLASSES:
                self.foreign.add(part)
                part[:] = part.findall("member-type")
                self._empty_foreign(part, names)

    def _drop_inline(self, described):
        """Functions that live in the programs themselves are none of the library's; virtual ones
        have their place in a table."""
        for part in list(described):
            if part.tag == "member-function" and "vtable-offset" not in part.attrib:
                if not exported(part):
                    described.remove(part)
            elif part.tag == "member-type":
                for nested in part.findall("class-decl"):
                    self._drop_inline(nested)

    @staticmethod
    def _is_called(part, names):
        """Functions and data, be they members of a class."""
        return (part.tag in ("function-decl", "var-decl")
                or part.tag in CLASSES and names[:1] == ["Kyr"] and exported(part))

    def _is_public(self, part, names):
        return (part.tag in CLASSES | {"enum-decl"} and names[:1] == ["Kyr"]
                and part.get("name").partition("<")[0] in self.public)

    def _want_public(self, element, names, is_root):
        for part in element:
            if part.tag in ("namespace-decl", "abi-instr"):
                name = [part.get("name")] if part.tag == "namespace-decl" else []
                self._want_public(part, [*names, *name], is_root)
            elif is_root(part, names):
                self._want(part)

    def _want(self, element):
        waiting = [element]
        while waiting:
            part = waiting.pop()
            if part not in self.wanted:
                self.wanted.add(part)
                waiting += [] if part in self.foreign else list(part)
                for name in REFERENCES:
                    waiting += self.types.get(part.get(name), [])

    def _drop_unwanted(self, element):
        for part in list(element):
            if part.tag.startswith("elf-") or (part in self.wanted and part not in self.foreign):
                continue
            if part.tag in PLACES:
                self._drop_unwanted(part)
            if part not in self.wanted and (part.tag not in PLACES or len(part) == 0):
                element.remove(part)

    def text(self):
        ElementTree.indent(self.root, " ")
        return ElementTree.tostring(self.root, encoding="unicode") + "\n"


def interface_of(library, headers):
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "read.abi"
        run("abidw", *READ, "--suppressions", HERE / "foreign.ini", library, "--out-file", path)
        return Interface(ElementTree.parse(path).getroot(), headers)


def private_names(element):
    """(class, name) of private members that the library exports, but for those that programs call
    without naming them: virtual functions, and copies that are private to be refused."""
    for described in element.iter("class-decl"):
        name = described.get("name")
        for member in described:
            if member.get("access") != "private" or "vtable-offset" in member.attrib:
                continue
            if member.tag in ("member-function", "data-member") and exported(member):
                inner = member[0].get("name")
                if inner != name and not DESTROYS_OR_COPIES.search(inner):
                    yield name, inner


def unneeded(interface, headers):
    """Those that no inline code of the public headers calls: they stand in a declaration only."""
    for name, member in sorted(set(private_names(interface.root))):
        texts = [text for text in headers
                 if re.search(rf"\b(?:class|struct) [^;{{]*\b{name}\b[^;]*{{", text)]
        lines = [line for text in texts for line in text.splitlines()
                 if re.search(rf"\b{member}\b", line)]
        declared = re.compile(rf"^ +(?:static )?(?:[\w:]+(?:<.*>)?[&*]? )+[&*]?{member}\b")
        if all(declared.match(line) for line in lines):
            yield f"{name}::{member} is private and exported: it wants KYR_HIDDEN"


def compared(kept, now):
    """What abidiff says of incompatible changes."""
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "now.abi"
        path.write_text(now)
        ran = run("abidiff", *COMPARE, "--suppressions", HERE / "compatible.ini", kept, path,
                  allowed=(0, 4, 8, 12))
    return ran.stdout if ran.returncode else ""


def soname(text):
    return re.search(r'soname="([^"]*)"', text)[1]


def faults_of(interface, headers, kept):
    yield from unneeded(interface, headers)
    text = interface.text()
    if not kept.exists():
        yield f"there is no {kept.name}: keep the interface with {RENEW}"
    elif soname(text) != soname(kept.read_text()):
        yield f"the soname is {soname(text)} now: keep its interface with {RENEW}"
    elif difference := compared(kept, text):
        yield difference
        yield ("Programs that were compiled before may not run with this library. If that is "
               f"meant, move the soname; if they do run, or nothing was released yet: {RENEW}")


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("library", type=Path)
    arguments.add_argument("kept", type=Path, help="the file with the interface")
    arguments.add_argument("--headers", type=Path, default=HEADERS)
    arguments.add_argument("--renew", action="store_true", help="keep the interface of the library")
    given = arguments.parse_args()
    headers = public_headers(given.headers)
    try:
        interface = interface_of(given.library, headers)
        if given.renew:
            given.kept.write_text(interface.text())
            return 0
        faults = list(faults_of(interface, headers, given.kept))
    except CannotRead as fault:
        print(fault)
        return 2
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
