"""Base64 against the program base64, checksums against Python's binascii, on random bytes."""
import binascii
import random
import shutil
import subprocess
import sys

tool = sys.argv[1:]
if not shutil.which("base64"):
    print("skipped: there is no program base64")
    sys.exit(77)


def run(*command, data):
    return subprocess.run(command, input=data, stdout=subprocess.PIPE, check=True).stdout


numbers = random.Random(16)
for size in (0, 1, 2, 3, 4, 1000, 65536, 196608, 400001):
    data = numbers.randbytes(size)
    text = run("base64", "-w0", "-", data=data)
    assert run(*tool, "base64", "encode", "-", data=data) == text + b"\n", size
    assert run(*tool, "base64", "decode", "-", data=run("base64", data=data)) == data, size
    assert run(*tool, "crc16", "-", data=data) == b"%04x  -\n" % binascii.crc_hqx(data, 0), size
