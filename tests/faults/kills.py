#!/usr/bin/env python3
"""Ends programs by SIGKILL at random moments: two savers of one target, archivers, writers of one
journal, owners of one lock, while a reader looks on all the while.

It is passed when the reader never sees anything but a whole file, when an entry of the journal that was
written once is found, whole and in its order, when a lock never has two owners and is to be had
afterwards, and when the next save leaves nothing behind of those that were killed. The moments come
from a generator of a known seed. Ends with 1 if something is not passed.
"""
import argparse
import os
import random
import re
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from faults import SCAN, listing, quick_room

ENTRY = re.compile(r"\S{24} warning +(\d+)/\d+ +session +number (\d+) of many")
MOST_SECONDS = 0.06  # from the start of a program to its end, or so
STARTS = 3  # that long at least, in times of a program that does next to nothing


class Room:
    """A folder with all that is saved, and the programs that work in it."""

    def __init__(self, program, folder, moments):
        self.program, self.folder, self.moments = program, folder, moments
        self.random = random.Random(4711)
        self.faults = []
        for part in ("in", "tmp", "home"):
            (folder / part).mkdir()
        (folder / "in/scan.txt").write_text(SCAN)
        self.most_seconds = MOST_SECONDS
        self.once("save,pack")
        begun = time.monotonic()
        self.once("lock")
        self.most_seconds = max(MOST_SECONDS, STARTS * (time.monotonic() - begun))

    def start(self, names, **options):
        environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8",
                       "HOME": str(self.folder / "home"), "TMPDIR": str(self.folder / "tmp")}
        return subprocess.Popen([self.program, names, ".", "1"], cwd=self.folder, env=environment,
                                stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, **options)

    def once(self, names):
        with self.start(names) as process:
            _, err = process.communicate(timeout=60)
        if process.returncode != 0:
            self.faults.append(f"{names} fails: {err.decode()}")

    def kill(self, process):
        """Ends a program, which must not have ended by itself before."""
        process.send_signal(signal.SIGKILL)
        out, err = process.communicate(timeout=60)
        if process.returncode != -signal.SIGKILL:
            self.faults.append(f"ends by itself with {process.returncode}: {err.decode()[:600]}")
        return process.pid, out

    def pause(self):
        time.sleep(self.random.random() * self.most_seconds)

    def victims(self, names, others=0, **options):
        """Kills so many programs, one after the other, while others of the kind go on, and are killed
        and replaced in turn. Gives the number and the output of each."""
        running = []
        for _ in range(self.moments):
            running.append(self.start(names, **options))
            self.pause()
            if len(running) > others:
                yield self.kill(running.pop(0))
        for process in running:
            yield self.kill(process)

    def often(self, what, attempt):
        """Kills once more, and later, those whom a busy machine has given no time for anything."""
        done = attempt()
        for _ in range(5):
            if done >= self.moments or self.faults:
                return done
            self.most_seconds *= 2
            done += attempt()
        if done < self.moments:
            self.faults.append(f"{what} only {done} times")
        return done

    def savers(self):
        before = listing(self.folder)
        reader = self.start("endless,look")
        for _ in self.victims("endless,save", others=1):
            pass
        for _ in self.victims("endless,pack", others=1):
            pass
        self.kill(reader)
        self.once("look,save,pack")
        left = listing(self.folder) ^ before
        if left:
            self.faults.append(f"the next save leaves {sorted(left)}")

    def journals(self):
        told = {}
        for pid, out in self.victims("endless,enter", others=2, stdout=subprocess.PIPE):
            told[pid] = max(told.get(pid, 0), out.count(b"\n"))
        found = {}
        names = self.folder.glob("shared.log*")
        files = sorted(names, key=lambda f: 0 if f.suffix == ".log" else -int(f.suffix[1:]))
        for line in "".join(f.read_text() for f in files).splitlines():
            entry = ENTRY.fullmatch(line)
            if not entry:
                self.faults.append(f"a torn line: {line[:100]}")
                continue
            found.setdefault(int(entry[1]), []).append(int(entry[2]))
        for pid, count in told.items():
            numbers = found.get(pid, [])
            if numbers != list(range(len(numbers))) or len(numbers) < count:
                self.faults.append(f"of {count} entries of {pid} there are {len(numbers)}")
        for file in files:
            file.unlink()
        return sum(map(len, found.values()))

    def owners(self):
        owned = sum(len(out) for _, out in self.victims("endless,own", others=2, stdout=subprocess.PIPE))
        self.once("lock")
        if (self.folder / "project.kyr.lock").exists():
            self.faults.append("the lock stays behind")
        return owned


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--all", action="store_true", help="1000 moments of each kind")
    parser.add_argument("--count", type=Path, metavar="FILE", help="gets how many kinds passed and failed")
    parser.add_argument("--moments", type=int, default=50, help="of each kind; 50 unless told")
    options = parser.parse_args()
    moments = 1000 if options.all else options.moments
    begun = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="kyr-kills-", dir=quick_room()) as folder:
        room = Room(options.build.resolve() / "bin/faults_session", Path(folder), moments)
        room.savers()
        entries = room.often("the journal was written", room.journals)
        owned = room.often("the lock was had", room.owners)
    for fault in dict.fromkeys(room.faults):
        print(fault)
    print(f"{4 * moments} programs killed: {2 * moments} while they saved and packed, {moments} at a "
          f"journal of {entries} entries, {moments} at a lock that was had {owned} times; "
          f"{len(room.faults)} faults, {time.monotonic() - begun:.0f} s")
    if options.count:
        options.count.write_text("0 4 0\n" if room.faults else "4 0 0\n")
    return 1 if room.faults else 0


if __name__ == "__main__":
    sys.exit(main())
