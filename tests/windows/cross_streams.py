"""The tools kyr of Linux and of Windows write the same files, and read each other's zip streams.

  cross_streams.py LINUX_TOOL [EMULATOR...] WINDOWS_TOOL
"""
import os
import pathlib
import random
import subprocess
import sys
import tempfile

linux, windows = [str(pathlib.Path(sys.argv[1]).absolute())], sys.argv[2:]
if not pathlib.Path(linux[0]).is_file():
    print("skipped: there is no tool of Linux; name it in KYR_LINUX_TOOL")
    sys.exit(77)

TIME = slice(64, 68)  # of its making, within the header
NAMES = ["plain.kyr", "größe ±5µm 測定.kyr"]
INPUTS = {
    "nothing": b"",
    "text with the line ends of both systems": b"12,5 mm\r\n\x1a-3\n\r" * 5000,
    "noise that fills blocks": random.Random(7).randbytes(300000),
    "long runs of zeros": bytes(2000000) + b"end",
}


def run(tool, *words, folder, data=b""):
    """Standard output of a command that succeeds without complaint."""
    ran = subprocess.run([*tool, *words], cwd=folder, input=data, capture_output=True, check=False)
    assert (ran.returncode, ran.stderr) == (0, b""), (tool, words, ran)
    return ran.stdout


def written(tool, words, folder, name, data):
    run(tool, *words, folder=folder, data=data)
    return (folder / name).read_bytes()


def written_at_one_time(words, folders, name, data=b""):
    """What both write within the same second, if it tells that; tries until they do."""
    for _ in range(100):
        files = [written(tool, words, folder, name, data)
                 for tool, folder in zip((windows, linux), folders)]
        if words[0] != "zip" or files[0][TIME] == files[1][TIME]:
            return files
    raise AssertionError("the clocks of the tools differ: %s, %s" % tuple(f[TIME] for f in files))


with tempfile.TemporaryDirectory() as root:
    folders = [pathlib.Path(root, system) for system in ("windows", "linux")]
    for folder in folders:
        folder.mkdir()
    for name in NAMES:
        for title, plain in INPUTS.items():
            words = ["zip", "pack", "-", name, "--file-version", "4000000007"]
            ours, theirs = written_at_one_time(words, folders, name, plain)
            assert ours == theirs, (name, title)
            for tool, folder in zip((linux, windows), folders):  # each reads the other's
                said = run(tool, "zip", "verify", name, folder=folder).decode()
                assert "%s: complete, %d bytes of" % (name, len(plain)) in said, (tool, said)
                assert run(tool, "zip", "cat", name, folder=folder) == plain, (tool, title)
    for folder in folders:
        for name, plain in zip(("12.obj", "größe.txt", "9.obj"), INPUTS.values()):
            (folder / name).write_bytes(plain)
            os.utime(folder / name, (1e9, 1e9))
    for words in (["zip", "pack", "9.obj", "out", "--workers", "2"],
                  ["tar", "create", "out", "12.obj", "größe.txt", "9.obj"],
                  ["tar", "create", "out", "9.obj", "--workers", "2", "--force"],
                  ["changelog", "out"], ["changelog", "out", "--language", "jp"]):
        ours, theirs = written_at_one_time(words, folders, "out")
        assert ours == theirs, words
    # The same content in other words: what one makes of it, the other prints too.
    for words in (["convert", "25.4", "mm", "in", "--digits", "60"], ["convert", "1e-5", "°C", "°F"],
                  ["base64", "encode", "9.obj"], ["crc16", "größe.txt", "9.obj"],
                  ["units"], ["units", "angle_velocity"], ["--help"], ["zip", "info", NAMES[1]]):
        both = [run(tool, *words, folder=folders[0]) for tool in (linux, windows)]
        assert both[0] == both[1], (words, both)
