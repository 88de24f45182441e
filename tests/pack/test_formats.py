"""The file formats against Python's own zlib and gzip: what the library writes is read here,
and what is written here, in ways that the library never would, is read by the library."""
import gzip
import random
import struct
import subprocess
import sys
import time
import zlib

HEADER = struct.Struct("<9s7s32sI12sII32s")
CHECK = bytes.fromhex("0d0a000a000d000a0d000000")


def library(action, data):
    return subprocess.run([sys.argv[1], action], input=data, stdout=subprocess.PIPE, check=True).stdout


def decode(file):
    fields = HEADER.unpack_from(file)
    assert fields == (b"Kyr-V5.x\0", b"HEADER\0", b"Kyr-ZIP-Stream".ljust(32, b"\0"), 7, CHECK,
                      fields[5], 104, b"6.2.0-6".ljust(32, b"\0")), fields
    assert abs(time.time() - fields[5]) < 60, fields
    at, packed, length = HEADER.size, b"", 8192
    while at < len(file) or length != 8192:
        length, = struct.unpack_from("<H", file, at)
        assert length <= 8192, length
        packed += file[at + 2:at + 2 + length]
        at += 2 + length
        assert length > 0 or at == len(file), "bytes behind the end mark"
        if length == 0:
            break
    return zlib.decompress(packed)


def encode(plain, size):
    """Blocks of one size, best compression, a foreign library version."""
    packed = zlib.compress(plain, 9)
    blocks = [packed[at:at + size] for at in range(0, len(packed), size)]
    header = HEADER.pack(b"Kyr-V5.x", b"HEADER", b"Kyr-ZIP-Stream", 3, CHECK, 1, 104, b"x" * 32)
    return header + b"".join(struct.pack("<H", len(b)) + b for b in blocks) + b"\0\0"


for size in (0, 8181, 200000):
    for plain in (random.Random(5).randbytes(size), b"scan" * size):
        assert decode(library("zip", plain)) == plain, size
        for block in (1, 8191, 8192):
            assert library("unzip", encode(plain, block)) == plain, (size, block)
        assert gzip.decompress(library("gzip", plain)) == plain, size
