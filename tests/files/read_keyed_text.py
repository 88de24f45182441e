"""Reads the samples of keyed text by the description of the format alone, and compares what is
read with the lists beside them; the library's own test compares with the same lists."""
import pathlib
import sys


def reads(file):
    """Pieces of at most 4095 bytes that end behind a line feed, and the number of their line."""
    number = 1
    while file:
        size = min(file.find(b"\n", 0, 4095) + 1 or 4095, len(file))
        piece, file = file[:size], file[size:]
        yield number, piece
        number += piece.endswith(b"\n")


def data_lines(file):
    pieces, codec = list(reads(file)), "latin-1"
    if pieces and b"<defaultcodec>" in pieces[0][1]:
        codec = "utf-8" if b"utf-8" in pieces.pop(0)[1] else "latin-1"
    joined = ""
    for number, piece in pieces:
        text = piece.split(b"\0")[0].rstrip(b"\r\n").decode(codec, "replace")
        first = first if joined else number
        joined += text[:-1] if text.endswith("\\") else text
        if not text.endswith("\\"):
            if joined and joined[0] != "#":
                yield "%d [%s]" % (first, joined.replace("\t", " "))
            joined = ""


samples = [path for folder in sys.argv[1:] for path in pathlib.Path(folder).glob("keyed-*.txt")]
assert len(samples) >= 7, samples
for sample in samples:
    listed = sample.with_suffix(".list").read_bytes().decode()
    read = "".join(line + "\n" for line in data_lines(sample.read_bytes()))
    assert read == listed, "%s:\n%s" % (sample, read)
