#!/usr/bin/env python3
"""Holds the includes of the library against the rooms that it declares.

Each room's CMakeLists.txt says with kyr_room(NAME ... NEEDS ... OFFERS ...) what it is made of,
which rooms it may include, and which of its private headers others may; what is declared is used,
and the table of rooms in docs/ARCHITECTURE.md tells the same needs.
A public header includes what its functions are called with, where its room may, and kyr/Kyr.h
includes all public headers. Prints one line for each breach and ends with 1 if there is any.
"""
import argparse
import re
import sys
from pathlib import Path

LISTS = ("SOURCES", "POSIX", "WINDOWS", "MACHINES", "ENGINES", "NEEDS", "OFFERS")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
CLASS = r"^(?:class|struct) (?:KYR_\w+(?:\(.*?\))? )*(\w+)"
DEFINED = re.compile(CLASS + r"(?: : .*)?\s*\{", re.M)
DECLARED = re.compile(CLASS + r";", re.M)


class Room:
    def __init__(self, folder, words):
        self.folder = folder
        self.parts = {name: [] for name in LISTS}
        self.name = words[words.index("NAME") + 1]
        part = None
        for word in words:
            if word == "NAME":
                part = None
            elif word in LISTS:
                part = self.parts[word]
            elif part is not None:
                part.append(word)

    def listed(self):
        engines = [f"engines/{start}{name}_pieces.cpp"
                   for name in self.parts["ENGINES"] for start in ("", "no_")]
        return engines + [name for part in ("SOURCES", "POSIX", "WINDOWS", "MACHINES")
                          for name in self.parts[part]]


def read_rooms(library):
    """The rooms by name; every folder with a CMakeLists.txt below the library is one."""
    rooms = {}
    for lists in sorted(library.glob("*/CMakeLists.txt")):
        text = re.sub(r"#.*", "", lists.read_text())
        for call in re.findall(r"kyr_room\(([^)]*)\)", text):
            room = Room(lists.parent, call.split())
            rooms[room.name] = room
    return rooms


def reach(rooms, name):
    """The rooms that a room may include: its needs and theirs."""
    found, todo = set(), list(rooms[name].parts["NEEDS"])
    while todo:
        need = todo.pop()
        if need in rooms and need not in found:
            found.add(need)
            todo += rooms[need].parts["NEEDS"]
    return found


def cycle(graph):
    """Some cycle of a graph, as a list that ends where it begins; empty if there is none."""
    done, path = set(), []

    def visit(node):
        if node in path:
            return path[path.index(node):] + [node]
        if node in done:
            return []
        path.append(node)
        for successor in graph.get(node, ()):
            if found := visit(successor):
                return found
        path.pop()
        done.add(node)
        return []

    for node in sorted(graph):
        if found := visit(node):
            return found
    return []


def includes(path):
    """Line number, kind of bracket and name of each include."""
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if match := INCLUDE.match(line):
            yield number, match[1], match[2]


def check_declarations(rooms):
    for room in rooms.values():
        place = room.folder / "CMakeLists.txt"
        if room.name != room.folder.name:
            yield f"{place}: the room is called {room.name}, its folder {room.folder.name}"
        for need in room.parts["NEEDS"]:
            if need not in rooms:
                yield f"{place}: {room.name} needs {need}, which is no room"
        present = {path.relative_to(room.folder).as_posix() for path in room.folder.rglob("*.cpp")}
        for name in sorted(present - set(room.listed())):
            yield f"{place}: {name} is in the folder, but not in the list of sources"
        for name in sorted(set(room.listed()) - present):
            yield f"{place}: {name} is in the list of sources, but not in the folder"
        for part, end in (("POSIX", "_posix.cpp"), ("WINDOWS", "_win.cpp"),
                          ("MACHINES", "_(x86|x64|arm64)_(posix|win).cpp")):
            for name in room.parts[part]:
                if not re.fullmatch(rf"platform/\w+{end}", name):
                    yield f"{place}: {part} file {name} is not called platform/...{end}"
    if loop := cycle({room.name: room.parts["NEEDS"] for room in rooms.values()}):
        yield f"the needs of rooms run in a circle: {' -> '.join(loop)}"


def check_library_include(place, room, allowed, path, bracket, name, library):
    parts = name.split("/")
    if bracket == '"':
        yield f'{place}: includes "{name}"; write <kyr/room/...>'
    elif parts[0] == "kyr" and not (library / "/".join(parts[1:])).is_file():
        yield f"{place}: includes {name}, which does not exist"
    elif parts[0] == "kyr" and parts[1] != room.name and parts[1] not in allowed:
        yield f"{place}: includes room {parts[1]}, which {room.name} does not need"
    if name.endswith("_p.h") and path.suffix == ".h" and not path.name.endswith("_p.h"):
        yield f"{place}: a public header includes the private {name}"


def includes_between_rooms(rooms):
    """Room, place, room and header of each include of another room's header."""
    for room in rooms.values():
        for path in sorted([*room.folder.rglob("*.h"), *room.folder.rglob("*.cpp")]):
            for number, _, name in includes(path):
                parts = name.split("/")
                if parts[0] == "kyr" and parts[1] in rooms and parts[1] != room.name:
                    yield room, f"{path}:{number}", rooms[parts[1]], "/".join(parts[2:])


def check_use(rooms):
    """Other rooms see the private headers that are offered; what is needed or offered is used."""
    needed, taken = set(), set()
    for room, place, other, header in includes_between_rooms(rooms):
        needed.add((room.name, other.name))
        taken.add((other.name, header))
        if header.endswith("_p.h") and header not in other.parts["OFFERS"]:
            yield f"{place}: includes {header}, which {other.name} does not offer"
    for room in rooms.values():
        place = room.folder / "CMakeLists.txt"
        for need in room.parts["NEEDS"]:
            if (room.name, need) not in needed:
                yield f"{place}: {room.name} needs {need}, but includes none of its headers"
        for header in room.parts["OFFERS"]:
            if not header.endswith("_p.h"):
                yield f"{place}: {room.name} offers {header}, which is no private header"
            elif (room.name, header) not in taken:
                yield f"{place}: {room.name} offers {header}, which no other room includes"


def check_table(rooms, table):
    """The table of rooms in the architecture says the same needs."""
    told = dict(re.findall(r"^\| `(\w+)` \| .* \| ([\w, –]+) \|$", table.read_text(), re.M))
    for room in rooms.values():
        needs = ", ".join(room.parts["NEEDS"]) or "–"
        if told.get(room.name) != needs:
            yield f"{table}: the row of {room.name} does not end with its needs: {needs}"


def check_public_headers(rooms, library):
    """Whoever includes one can call all that it offers, except with a class of a room further up;
    whoever includes kyr/Kyr.h has them all."""
    headers = [path for path in sorted(library.glob("*/*.h")) if not path.name.endswith("_p.h")]
    texts = {path.relative_to(library).as_posix(): path.read_text() for path in headers}
    places = {name: header for header, text in texts.items() for name in DEFINED.findall(text)}
    for header, text in texts.items():
        room = header.split("/")[0]
        visible = {room, *reach(rooms, room)} if room in rooms else set()
        for name in DECLARED.findall(text):
            if places.get(name, header) != header and places[name].split("/")[0] in visible:
                yield f"{library / header}: only declares {name}; include <kyr/{places[name]}>"
    everything = library / "Kyr.h"
    if everything.is_file():
        listed = [name for _, _, name in includes(everything)]
        for header in sorted(set(texts) - {name.removeprefix("kyr/") for name in listed}):
            yield f"{everything}: misses <kyr/{header}>"
    else:
        yield f"{everything} is missing"


def check_library(rooms, library):
    headers = {}
    for room in rooms.values():
        allowed = reach(rooms, room.name)
        for path in sorted([*room.folder.rglob("*.h"), *room.folder.rglob("*.cpp")]):
            for number, bracket, name in includes(path):
                yield from check_library_include(
                    f"{path}:{number}", room, allowed, path, bracket, name, library)
                if path.suffix == ".h":
                    own = "kyr/" + path.relative_to(library).as_posix()
                    headers.setdefault(own, []).append(name)
    if loop := cycle(headers):
        yield f"headers include each other in a circle: {' -> '.join(loop)}"


# A program that a process of the library starts and talks to, and the header of what they say.
PARTNERS = {"tools/kyr-backtrace": "kyr/crash/backtrace_request_p.h"}


def check_users(root):
    """Programs on top of the library see its public headers only."""
    for folder in ("examples", "tools"):
        for path in sorted([*(root / folder).rglob("*.h"), *(root / folder).rglob("*.cpp")]):
            for number, _, name in includes(path):
                shared = PARTNERS.get(path.parent.relative_to(root).as_posix())
                if name.startswith("kyr/") and name.endswith("_p.h") and name != shared:
                    yield f"{path}:{number}: includes the library's private {name}"


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--root", type=Path, default=Path(__file__).resolve().parent.parent)
    root = arguments.parse_args().root
    library = root / "src/base/kyr"
    rooms = read_rooms(library)
    breaches = [*check_declarations(rooms), *check_use(rooms), *check_library(rooms, library),
                *check_table(rooms, root / "docs/ARCHITECTURE.md"),
                *check_public_headers(rooms, library), *check_users(root)]
    if not rooms:
        breaches.append(f"{library}: there are no rooms")
    for breach in breaches:
        print(breach.replace(f"{root}/", ""))
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
