"""Runs a link of a Windows program and gives the build that it makes a name.

  link_named.py COMMAND... -o PROGRAM...

The linker's record of the build (CodeView, "RSDS") has an identity and an empty name of the file with
the debug information. Wine's dbghelp.dll breaks the heap over such a name, and other debuggers show
it. The name becomes that of the program with ".pdb", as they expect it.

Dumps and debuggers also know a program by its time stamp. The linker is told to leave the time out; the
stamp becomes the beginning of the identity, which the linker makes of all that it writes: the same
sources have the same stamp, and others another one.
"""

import struct
import subprocess
import sys

DIRECTORY_SIZE = 28  # of an entry of the debug directory, in front of the record
RECORD_HEAD = 24  # signature, GUID and age


def section_of(image, name):
    """The place of a section's header and of its content, and the room for that; None without it."""
    head = struct.unpack_from("<I", image, 0x3C)[0]
    count, optional_size = struct.unpack_from("<H12xH", image, head + 6)
    for number in range(count):
        at = head + 24 + optional_size + 40 * number
        if image[at : at + 8].rstrip(b"\0") == name:
            room, content = struct.unpack_from("<II", image, at + 16)
            return at, content, room
    return None


def name_build(path):
    with open(path, "r+b") as program:
        image = bytearray(program.read())
        found = section_of(image, b".buildid")
        if not found:
            return
        header, content, room = found
        name = path.replace("\\", "/").rsplit("/", 1)[-1].rsplit(".", 1)[0].encode() + b".pdb\0"
        begin = content + DIRECTORY_SIZE
        size = DIRECTORY_SIZE + RECORD_HEAD + len(name)
        if image[begin : begin + 4] != b"RSDS" or size > room:
            sys.exit(f"{path}: its record of the build is not as expected")
        image[begin + RECORD_HEAD : content + size] = name
        struct.pack_into("<I", image, content + 16, RECORD_HEAD + len(name))
        struct.pack_into("<I", image, header + 8, size)
        stamp = image[begin + 4 : begin + 8]  # of the identity, behind the signature
        head = struct.unpack_from("<I", image, 0x3C)[0]
        image[head + 8 : head + 12] = stamp
        image[content + 4 : content + 8] = stamp
        program.seek(0)
        program.write(image)


def main():
    command = sys.argv[1:]
    code = subprocess.call(command)
    if code == 0 and "-o" in command:
        name_build(command[command.index("-o") + 1])
    sys.exit(code)


main()
