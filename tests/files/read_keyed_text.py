"""Reads the rows that list all data lines of a file, by the description of the format alone."""
import pathlib
import sys
import urllib.parse


def pieces(file):
    """Up to a line feed, or 4095 bytes; with the number of the line."""
    number = 1
    while file:
        piece = file[:4095].partition(b"\n")
        size = len(piece[0] + piece[1])
        yield number, file[:size]
        number += len(piece[1])
        file = file[size:]


def data_lines(file, codec):
    joined = ""
    for index, (number, piece) in enumerate(pieces(file)):
        if index == 0 and b"<defaultcodec>utf-8" in piece:
            codec = "utf-8"
            continue
        begin = begin if joined else number
        text = piece.split(b"\0")[0].rstrip(b"\r\n").decode(codec, "replace")
        joined += text[:-1] if text.endswith("\\") else text
        if not text.endswith("\\"):
            yield "" if joined[:1] in ("", "#") else "%d[%s]" % (begin, joined.replace("\t", " "))
            joined = ""


table, seen = pathlib.Path(sys.argv[1]), 0
for row in table.read_text("utf-8").replace("LONG", 4092 * "x").split("\n"):
    fields = [urllib.parse.unquote_to_bytes(f.strip().replace("\\", "%")) for f in row.split("|")]
    if fields[2:3] == [b"a"]:
        inline = fields[0][:1] != b"@"
        file = fields[0] if inline else (table.parent / fields[0][1:].decode()).read_bytes()
        read = "".join(data_lines(file, ["latin-1", "utf-8"][int(fields[1])]))
        assert read == fields[3].decode(), (fields[0], read)
        seen += 1
assert seen >= 8, seen
