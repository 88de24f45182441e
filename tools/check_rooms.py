#!/usr/bin/env python3
"""Holds the includes of the library against the rooms that it declares.

Each room's CMakeLists.txt says with kyr_room(NAME ... NEEDS ... TAKES ...) what it is made of, and
which rooms and single headers it may include. A public header includes what its functions are
called with, and kyr/Kyr.h includes all public headers. Prints one line for each breach and ends
with 1 if there is any.
"""
import argparse
import re
import sys
from pathlib import Path

LISTS = ("SOURCES", "POSIX", "WINDOWS", "NEEDS", "TAKES")
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
        return self.parts["SOURCES"] + self.parts["POSIX"] + self.parts["WINDOWS"]


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
        for part, end in (("POSIX", "_posix.cpp"), ("WINDOWS", "_win.cpp")):
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
    elif (parts[0] == "kyr" and parts[1] != room.name and parts[1] not in allowed
          and "/".join(parts[1:]) not in room.parts["TAKES"]):
        yield f"{place}: includes room {parts[1]}, which {room.name} does not need"
    if name.endswith("_p.h") and path.suffix == ".h" and not path.name.endswith("_p.h"):
        yield f"{place}: a public header includes the private {name}"


def check_takes(rooms, library):
    """What a room takes is public and leads to no other room than the room's own includes do."""
    for room in rooms.values():
        allowed = {room.name, *reach(rooms, room.name)}
        for name in room.parts["TAKES"]:
            path = library / name
            if not path.is_file() or path.name.endswith("_p.h"):
                yield f"{room.folder}/CMakeLists.txt: takes {name}, which is no public header"
                continue
            for number, _, included in includes(path):
                parts = included.split("/")
                if parts[0] == "kyr" and parts[1] not in allowed:
                    yield (f"{path}:{number}: includes room {parts[1]}, though {room.name}, "
                           "which takes this header, may not")


def check_public_headers(library):
    """Whoever includes one can call all that it offers; whoever includes kyr/Kyr.h has them all."""
    headers = [path for path in sorted(library.glob("*/*.h")) if not path.name.endswith("_p.h")]
    texts = {path.relative_to(library).as_posix(): path.read_text() for path in headers}
    places = {name: header for header, text in texts.items() for name in DEFINED.findall(text)}
    for header, text in texts.items():
        for name in DECLARED.findall(text):
            if places.get(name, header) != header:
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


def check_users(root):
    """Programs on top of the library see its public headers only."""
    for folder in ("examples", "tools"):
        for path in sorted([*(root / folder).rglob("*.h"), *(root / folder).rglob("*.cpp")]):
            for number, _, name in includes(path):
                if name.startswith("kyr/") and name.endswith("_p.h"):
                    yield f"{path}:{number}: includes the library's private {name}"


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--root", type=Path, default=Path(__file__).resolve().parent.parent)
    root = arguments.parse_args().root
    library = root / "src/base/kyr"
    rooms = read_rooms(library)
    breaches = [*check_declarations(rooms), *check_takes(rooms, library),
                *check_library(rooms, library), *check_public_headers(library), *check_users(root)]
    if not rooms:
        breaches.append(f"{library}: there are no rooms")
    for breach in breaches:
        print(breach.replace(f"{root}/", ""))
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
