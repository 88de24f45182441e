"""Zip streams against Python's own zlib: what the library writes is read by the decoder in the
documentation, and what is written here, as the library never would, is read by the library.
Streams in pieces as well: they are decoded piece by piece, and as if there were no pieces."""
import os
import pathlib
import random
import re
import struct
import subprocess
import sys
import tempfile
import time
import zlib

document, *tool = sys.argv[1:]
decoder, piece_decoder = re.findall("```python\n(.*?)```",
                                    pathlib.Path(document).read_text("utf-8"), re.S)


def run(*command, data=b""):
    return subprocess.run(command, input=data, stdout=subprocess.PIPE, check=True).stdout


def encode(plain, size):
    """Blocks of one size, best compression, a foreign library version."""
    packed = zlib.compress(plain, 9)
    blocks = [packed[at:at + size] for at in range(0, len(packed), size)]
    header = struct.pack("<9s7s32sI12sII32s", b"Kyr-V5.x", b"HEADER", b"Kyr-ZIP-Stream", 3,
                         bytes.fromhex("0d0a000a000d000a0d000000"), 1, 104, b"x" * 32)
    return header + b"".join(struct.pack("<H", len(b)) + b for b in blocks) + b"\0\0"


with tempfile.TemporaryDirectory() as folder:
    file = pathlib.Path(folder, "file")
    for size in (0, 8181, 200000):
        for plain in (random.Random(5).randbytes(size), b"scan" * size):
            run(*tool, "zip", "pack", "-", file, data=plain)
            assert run(sys.executable, "-c", decoder, file) == plain, size
            written, = struct.unpack_from("<I", file.read_bytes(), 64)
            assert abs(time.time() - written) < 60, written
            for block in (1, 8191, 8192):
                assert run(*tool, "zip", "cat", "-", data=encode(plain, block)) == plain, (size, block)
    # With pieces, and with one of them damaged.
    for size in (0, 262144, 600000):
        plain = random.Random(6).randbytes(size)
        for option in ("--workers=3", "--engine=fastest"):
            run(*tool, "zip", "pack", "-", file, *option.split("="), data=plain)
            for program in (decoder, piece_decoder):
                assert run(sys.executable, "-c", program, file) == plain, (size, option)
    damaged = bytearray(file.read_bytes())
    damaged[300000] ^= 4
    file.write_bytes(damaged)
    read = subprocess.run([sys.executable, "-c", piece_decoder, file], capture_output=True, check=True)
    assert read.stderr == b"damaged: piece 1\n" and read.stdout == plain[:262144] + plain[524288:]
    # What is left of an input that fails: nobody takes it for a whole stream.
    with open(os.devnull, "wb") as unreadable:
        failed = subprocess.run([*tool, "zip", "pack", "-", "-"], stdin=unreadable,
                                stdout=subprocess.PIPE)
    file.write_bytes(failed.stdout)
    assert failed.returncode == 1 and len(failed.stdout) > 104
    for reader in ([sys.executable, "-c", decoder, file], [*tool, "zip", "verify", file]):
        assert subprocess.run(reader, stdout=subprocess.DEVNULL).returncode == 1, reader
