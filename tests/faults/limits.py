#!/usr/bin/env python3
"""Does things of the library with numbers and sizes far beyond the usual, and with half of them: files
beyond 4 GiB, which are sparse, made on the way or compress to nothing; 100,000 entries of an archive;
a million entries of a journal by four processes; folders of 200,000 files; 10,000 threads.

It is passed when all that was written comes back, and time and memory do not grow faster than the
number: three times at most for twice as much, and where nothing needs to be kept the memory by a tenth.
Needs 300 MB of room in the temporary directory. Ends with 1 if something is not passed.
"""
import argparse
import os
import subprocess
import sys
import tempfile
from pathlib import Path

PROCESSES = 4


def hole_is_whole(folder, number):
    listed = subprocess.run(["tar", "tzvf", folder / "large.tar.gz"], capture_output=True, text=True,
                            check=True).stdout.splitlines()
    found = {line.split()[-1]: int(line.split()[2]) for line in listed}
    return found == {"hole": number << 20, "behind": 2}


def all_lines(folder, number):
    lines = (folder / "many.log").read_bytes().splitlines()
    good = sum(line.endswith(b" an entry as programs write many") for line in lines)
    return len(lines) == good == number


def make_files(folder, number):
    for i in range(1, number + 1):
        os.close(os.open(folder / f"img_{i}.tif", os.O_CREAT | os.O_WRONLY))


def feed(process, number):
    block = (b"#" * 4095 + b"\n") * 256
    try:
        for _ in range(number):
            process.stdin.write(block)
        process.stdin.write(b"LINES %d\n" % (number * 256))
        process.stdin.close()
    except BrokenPipeError:
        pass  # it has ended, and says why


# What is done, how often, whether the memory stays, and what has to be so before and afterwards.
THINGS = {
    "stream": (5000, True, None, None),
    "archive": (5000, True, None, hole_is_whole),
    "text": (5000, True, None, None),
    "vector": (6000, True, None, None),
    "entries": (100000, False, None, None),
    "journal": (1000000, True, None, all_lines),
    "series": (200000, False, make_files, None),
    "threads": (10000, True, None, None),
}


class Failure(Exception):
    pass


def run(program, thing, number):
    """Seconds and KiB."""
    _, _, before, behind = THINGS[thing]
    with tempfile.TemporaryDirectory(prefix="kyr-limits-") as name:
        folder = Path(name)
        if before:
            before(folder, number)
        processes = PROCESSES if thing == "journal" else 1
        words = [program, thing, str(number // processes), name]
        running = [subprocess.Popen(words, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                    stderr=subprocess.PIPE) for _ in range(processes)]
        if thing == "text":
            feed(running[0], number)
        results = []
        for process in running:
            with process:
                out, err = process.stdout.read(), process.stderr.read()
            if process.returncode != 0:
                raise Failure(f"{thing} {number}: {err.decode()}")
            results.append([float(word) for word in out.split()])
        if behind and not behind(folder, number):
            raise Failure(f"{thing} {number}: not all that was written is there")
        return max(r[0] for r in results), max(r[1] for r in results)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("things", nargs="*", metavar="THING", help="all unless told: " + ", ".join(THINGS))
    options = parser.parse_args()
    program = options.build.resolve() / "bin/faults_limits"
    faults = 0
    print(f"{'':10}{'number':>9}{'seconds':>9}{'growth':>8}{'MB':>7}{'growth':>8}")
    for thing in options.things or THINGS:
        number, stays = THINGS[thing][:2]
        try:
            half, whole = run(program, thing, number // 2), run(program, thing, number)
        except Failure as failure:
            faults += 1
            print(failure)
            continue
        slower, larger = (whole[i] / max(half[i], 0.01) for i in (0, 1))
        bad = (slower > 3 and whole[0] > 1) or larger > (1.1 if stays else 3)
        faults += bad
        print(f"{thing:10}{number:9}{whole[0]:9.2f}{slower:8.2f}{whole[1] / 1024:7.0f}{larger:8.2f}"
              + ("  too much" if bad else ""), flush=True)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
