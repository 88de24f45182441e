#!/usr/bin/env python3
"""Lets every call of the C library fail in turn, in programs that start the library, save, pack, read,
report and close, and in the verbs of kyr.

A point is one call of one session and what becomes of it. It is passed when the program has not
crashed or hung, has told of what it could not do, has left every file that it saves old or new and
whole, and leaves nothing behind once it has run again undisturbed. What moves fewer bytes than it was
asked to, or is interrupted, must not be noticed at all. Ends with 1 if a point is not passed.

Calls are told apart by the chain of functions that leads to them, and among those of one chain by
their number: which thread is faster does not matter to that. Taken are the calls that every one of
several undisturbed runs makes. The first call of each chain comes before all others, and of chains
that several sessions share each session takes another part.
"""
import argparse
import errno
import gzip
import hashlib
import io
import itertools
import os
import re
import shutil
import signal
import subprocess
import sys
import tarfile
import tempfile
import time
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

LOOK = 2  # seconds between two looks at a run that takes long
STILL = 5  # looks in which none of its threads runs, waits for a processor, or has run since
BUSIEST = 120  # seconds of processor time: a hundred times what a run takes
COUNTS = 3  # undisturbed runs in which a call has to appear
UNMET = 50  # of so many points one may not be met: other threads may have done the work
ROOM = 1 << 29  # in bytes, for the folders of all runs at a time and their dumps
FEWER = 0  # instead of a number of errno: fewer bytes are moved
SCAN = "".join(f"POINT {i} {i * 0.5} {i}\n" for i in range(300))

# What a call of each kind fails with, and whether once or from then on.
ERRORS = {
    "alloc": [(errno.ENOMEM, "once"), (errno.ENOMEM, "stays")],
    "open": [(errno.EMFILE, "once"), (errno.EACCES, "once"), (errno.EMFILE, "stays")],
    "read": [(errno.EIO, "once"), (FEWER, "once"), (errno.EINTR, "once")],
    "write": [(errno.ENOSPC, "once"), (errno.EIO, "once"), (errno.ENOSPC, "stays"),
              (FEWER, "once"), (errno.EINTR, "once")],
    "sync": [(errno.EIO, "once")],
    "rename": [(errno.EACCES, "once"), (errno.EIO, "once")],
    "close": [(errno.EIO, "once")],
    "cut": [(errno.ENOSPC, "once")],
    "map": [(errno.ENOMEM, "once"), (errno.ENOMEM, "stays")],
    "start": [(errno.EAGAIN, "once"), (errno.EAGAIN, "stays")],
}
UNNOTICED = (FEWER, errno.EINTR)

# What other libraries do when one of their own calls fails: the function in which it fails, what may
# come of it, and why that is so. The function has to be nearer to the call, or to the crash, than any
# of this library: what becomes of its own code below an event or a thread of theirs is not excused.
EXCUSED = [
    ("^QCoreApplication::QCoreApplication", "crashes|is ended by signal",
     "the application object is made before the library starts, and with it the report of crashes"),
    (r"^(g_|QEventDispatcherGlib::QEventDispatcherGlib|\? in libglib-2\.0\.so|libglib-2\.0\.so)",
     "crashes|is ended by signal",
     "GLib, which Qt starts in every thread, ends the process itself when it gets no memory"),
    ("^(QLocale|QSystemLocale|QLocalePrivate)::", "crashes|hangs",
     "the first look of QLocale at the user's settings does not survive want of memory"),
    ("^QSettings::QSettings", "crashes", "a QSettings that cannot be made crashes"),
    ("^QGregorianCalendar::", "crashes",
     "Qt keeps a calendar whose making has failed, and crashes when it looks at a date again"),
    ("^QTimeZone::", "crashes: 0x40000015",
     "the C library ends the process when it cannot note that an object of QTimeZone ends with a thread"),
    ("^QThread::QThread", "crashes", "a QThread that cannot be made crashes"),
    ("^QObjectPrivate::addConnection", "crashes", "an object that cannot note a connection crashes"),
]


def zip_content(data):
    return data[104:]  # the header holds the time


def file_list(data):
    """The names in an archive whose contents tell of the moment, without numbers."""
    with tarfile.open(fileobj=io.BytesIO(data)) as archive:
        names = {re.sub("[0-9]+", "0", m.name) for m in archive if m.isfile()}
    return "\n".join(sorted(names)).encode()


class Session:
    """A program, the files that it saves, and how their contents are compared."""

    partial = False

    def __init__(self, words, targets=(), prints=True, marked=False):
        self.words, self.targets = words, dict(targets)
        self.prints, self.marked = prints, marked
        self.template = self.listing = self.new = self.old = self.output = None
        self.before, self.calls = set(), {}


class Rescue(Session):
    """One that saves what can be had of a damaged file, and says so."""

    partial = True


def steps(names, **targets):
    return Session(["faults_session", names, ".", "2"],
                   {f.replace("_", "."): read for f, read in targets.items()}, marked=True)


def kyr(words, prints=True, **targets):
    return Session(["kyr", *words.split()], {f.replace("_", "."): read for f, read in targets.items()},
                   prints)


tar = gzip.decompress
SESSIONS = {
    "start": steps("start,close"),
    "save": steps("save,plain,back", project_kyr=zip_content, plain_kyr=zip_content),
    "archive": steps("pack,unpack", archive_tar_gz=tar),
    "report": steps("report"),
    "work": steps("read,values,journal,lock,share,close"),
    "convert": kyr("convert 25.4mm inch"),
    "units": kyr("units LENGTH"),
    "info": kyr("zip info project.kyr"),
    "verify": kyr("zip verify project.kyr"),
    "cat": kyr("zip cat project.kyr"),
    "salvage": Rescue(["kyr", "zip", "salvage", "project.kyr", "salvaged"], {"salvaged": bytes}),
    "pack": kyr("zip pack in/scan.txt packed.kyr", packed_kyr=zip_content),
    "pieces": kyr("zip pack --workers 2 in/scan.txt packed.kyr", packed_kyr=zip_content),
    "create": kyr("tar create made.tar.gz in", made_tar_gz=tar),
    "list": kyr("tar list archive.tar.gz"),
    "extract": kyr("tar extract -f archive.tar.gz out"),
    "encode": kyr("base64 encode in/scan.txt"),
    "crc16": kyr("crc16 in/scan.txt project.kyr"),
    "sort": kyr("sort in/scan.txt"),
    "next": kyr("next img0007.tif"),
    "changelog": kyr("changelog page.html", page_html=bytes),
    "support": kyr("report -f support.tar.gz", prints=False, support_tar_gz=file_list),
}


def tree(folder):
    found = {p.relative_to(folder).as_posix() for p in folder.rglob("*")}
    return found - {"tmp/faults.log"}


def listing(folder):
    return {name for name in tree(folder) if name.split("/")[0] not in ("tmp", "home")}


def quick_room():
    """A folder in memory, where it has room: containers often give it 64 MB. None is the usual one."""
    memory = "/dev/shm"
    usable = os.access(memory, os.W_OK) and shutil.disk_usage(memory).free >= ROOM
    return memory if usable else None


def fields_of(status):
    """What the system says of a thread or process behind its name; nothing of one that has ended."""
    try:
        return Path(status).read_text().rpartition(") ")[2].split()
    except OSError:
        return []


def entries(folder):
    try:
        return [name for name in os.listdir(folder) if name.isdigit()]
    except OSError:
        return []  # the process has ended


def activity(process):
    """Processor time of a process and of those it has started, and whether one of their threads runs or
    waits for a disk."""
    spent, busy = 0, False
    for each in entries("/proc"):
        if str(process) not in (each, *fields_of(f"/proc/{each}/stat")[1:2]):
            continue
        for thread in entries(f"/proc/{each}/task"):
            fields = fields_of(f"/proc/{each}/task/{thread}/stat")
            spent += sum(map(int, fields[11:13]))
            busy = busy or fields[:1] in (["R"], ["D"])
    return spent, busy


def hangs(process):
    """Waits for its end, or until nobody works on that; a busy machine makes no difference."""
    still, before = 0, None
    while True:
        try:
            process.communicate(timeout=LOOK)
            return False
        except subprocess.TimeoutExpired:
            spent, busy = activity(process.pid)
            still = 0 if busy or spent != before else still + 1
            before = spent
            if still == STILL or spent > BUSIEST * os.sysconf("SC_CLK_TCK"):
                return True


class Bench:
    def __init__(self, build, room):
        self.bin, self.shim, self.room = build / "bin", build / "lib/kyr_fault_shim.so", room

    def run(self, session, folder, fault=None, seed=None):
        words = [str(self.bin / session.words[0]), *session.words[1:]]
        if seed and session.marked:
            words[-1] = seed
        environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "HOME": str(folder / "home"),
                       "TMPDIR": str(folder / "tmp"), "KYR_NUMBER_OF_CPUS": "2",
                       "QT_HASH_SEED": "0"}
        if fault is not None:
            environment |= {"LD_PRELOAD": str(self.shim), "KYR_FAULT": fault,
                            "KYR_FAULT_LOG": str(folder / "tmp/faults.log")}
            if session.marked:
                environment["KYR_FAULT_WAITS"] = "1"
        with subprocess.Popen(words, cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            try:
                code = "hangs" if hangs(process) else None
                if code:
                    process.send_signal(signal.SIGABRT)  # so that it reports where its threads are
                out, err = process.communicate(timeout=20 if code else None)
            except subprocess.TimeoutExpired:
                process.kill()
                out, err = process.communicate()
            except BaseException:
                process.kill()  # nobody would end one that hangs
                raise
            return code or process.returncode, out, err

    def contents(self, session, folder):
        found = {}
        for name, read in session.targets.items():
            try:
                found[name] = hashlib.sha256(read((folder / name).read_bytes())).hexdigest()
            except FileNotFoundError:
                found[name] = "missing"
            except (OSError, EOFError, ValueError, tarfile.TarError) as error:
                found[name] = f"broken: {error}"
        return found

    def prepare(self, name, session):
        """A folder to begin with, what a run makes of it, and how many calls that takes."""
        session.template = self.room / f"{name}.template"
        for part in ("in", "tmp", "home", "out"):
            (session.template / part).mkdir(parents=True)
        (session.template / "in/scan.txt").write_text(SCAN)
        whole = steps("save,plain,pack")
        whole.words[-1] = "1"
        for each in (whole, session):
            if each.marked or each is whole:
                code, out, err = self.run(each, session.template, seed="1")
                assert code == 0, f"{name}: {err.decode()}"
        for target in session.targets:
            if not (session.template / target).exists():
                (session.template / target).parent.mkdir(exist_ok=True)
                (session.template / target).write_bytes(b"an older file")
        session.old, session.before = self.contents(session, session.template), tree(session.template)
        counts = [self.count(name, session) for _ in range(COUNTS)]
        session.calls = {call: min(each[call] for each in counts)
                         for call in counts[0] if all(call in each for each in counts)}

    def count(self, name, session):
        """The calls of an undisturbed run, by kind and place."""
        folder = self.fresh(session, name + ".count")
        code, session.output, err = self.run(session, folder, "")
        assert code == 0, f"{name}: {code} {err.decode()}"
        session.new, session.listing = self.contents(session, folder), listing(folder)
        lines = map(str.split, (folder / "tmp/faults.log").read_text().splitlines())
        shutil.rmtree(folder)
        return {(kind, place): int(number) for kind, place, number in lines}

    def fresh(self, session, name):
        folder = self.room / name
        shutil.copytree(session.template, folder)
        return folder

    def examine(self, session, point, number):
        """What is wrong with what becomes of a point; None if nothing is, "" if it was not met."""
        folder = self.fresh(session, f"point.{number}")
        try:
            code, out, err = self.run(session, folder, " ".join(map(str, point)))
            log = (folder / "tmp/faults.log").read_text()
            # Where nothing gets memory any more, the shim may not come to say where that was.
            if "thread " not in log and code == 0:
                return ("unmet", log, b"")
            fault = self.judge(session, point, folder, code, out, err)
            if not fault and not self.is_untouched(session, folder):
                fault = self.rerun(session, folder)
            return (fault, log, err)
        finally:
            shutil.rmtree(folder, ignore_errors=True)

    def judge(self, session, point, folder, code, out, err):
        kind, _, _, error, mode = point
        crash = re.search(rb"caught exception: (.*)", err)
        if code == "hangs":
            return "hangs"
        if isinstance(code, int) and code < 0:
            return f"is ended by signal {-code}" + ("" if crash else " without a report")
        if crash and b"std::bad_alloc" not in crash[1] and b"OutOfMemory" not in crash[1]:
            return f"crashes: {crash[1].decode()}"
        if error in UNNOTICED and code != 0:
            return f"notices fewer bytes or an interruption: code {code}"
        if kind == "sync" and code == 0:
            return "reports success for what the disk may not have"
        if code != 0 and not err and kind != "write" and out == session.output:
            return f"ends with code {code} and says nothing"
        if session.marked and mode == "once" and code not in (0, 3) and not crash:
            return f"does not recover: code {code}"
        if session.partial and code != 0:
            return None
        return self.losses(session, folder, code in (0, 3), out)

    def losses(self, session, folder, succeeded, out):
        found = self.contents(session, folder)
        for name, content in found.items():
            if content != session.new[name] and (succeeded or content != session.old[name]):
                what = content if content.startswith("broken") else "neither old nor new"
                what = "still the old one" if content == session.old[name] else what
                return f"{name} is {what}" + (" though success was reported" if succeeded else "")
        if succeeded and session.prints and not session.marked and out != session.output:
            return "prints something else, and reports success"
        return None

    def is_untouched(self, session, folder):
        """Whether all is as it was: what comes of another run is known then."""
        return tree(folder) == session.before and self.contents(session, folder) == session.old

    def rerun(self, session, folder):
        code, out, err = self.run(session, folder)
        if code != 0:
            return f"cannot run again: code {code}, {err.decode()}"
        left = listing(folder) ^ session.listing
        if left:
            return f"leaves behind or is without {sorted(left)}"
        return self.losses(session, folder, True, out)


def points_of(session):
    """All of them, with the first call of each place in front."""
    return [(kind, place, number, error, mode) for (kind, place), count in session.calls.items()
            for number in range(1, count + 1) for error, mode in ERRORS[kind]]


def first_points(sessions):
    """The first call of each place; each session has those that none before it has."""
    owners, firsts = {}, {name: [] for name in sessions}
    for name, session in sessions.items():
        for point in points_of(session):
            if point[2] == 1:
                owners.setdefault(point, []).append(name)
    for point, names in owners.items():
        firsts[names[int(point[1], 16) // 2 % len(names)]].append(point)
    return firsts


def functions(log):
    """The names of the functions that led to a call that failed, the innermost first."""
    names = []
    for module, offset, symbol in re.findall(r"^at (\S+) (\S+) (\S+)", log, re.M):
        if module.endswith("kyr_fault_shim.so"):
            continue
        found = subprocess.run(["addr2line", "-Cfpie", module, offset], capture_output=True,
                               text=True, check=False).stdout.splitlines()
        known = [line.strip() for line in found if not line.startswith("??")]
        if not known:
            demangled = subprocess.run(["c++filt", symbol], capture_output=True, text=True, check=False)
            known = [f"{demangled.stdout.strip()} in {Path(module).name}"]
        names += [line.replace("(inlined by) ", "") for line in known]
    return names


def crashed_in(err):
    """The functions in which a process crashed, which may be far behind the first call that failed."""
    report = err.decode(errors="replace").partition("backtrace of the crashing thread")[2]
    return re.findall(r"^#\d+ +0x[0-9a-f]+ (?:\S+!)?([^+\n]+)", report.partition("next thread")[0], re.M)


def foreign(names):
    """Those of other libraries that are ahead of this one's; its operator new belongs to all."""
    names = [name for name in names if "kyr_operator_new.cpp" not in name]
    return itertools.takewhile(lambda name: not name.startswith("Kyr::"), names)


def excuse(what, *stacks):
    names = [name for stack in stacks for name in foreign(stack)]
    for function, outcome, why in EXCUSED:
        if re.search(outcome, what) and any(re.search(function, name) for name in names):
            return why
    return None


def describe(point):
    kind, place, number, error, mode = point
    what = "moves fewer bytes" if error == FEWER else f"fails with {errno.errorcode[error]}"
    return f"{kind} {number} at {place} {what}" + (" as all later ones do" if mode == "stays" else "")


def tell(name, point, what, err, names):
    print(flush=True)
    print(f"{name}: {describe(point)}: {what}")
    print("  again with: ./dev faults", name, "--point", f"'{' '.join(map(str, point))}'")
    for line in names[:14]:
        print("   ", line[:160])
    for line in err.decode(errors="replace").splitlines()[:30]:
        print("  |", line[:160])


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("names", nargs="*", choices=[[], *SESSIONS], metavar="NAME",
                        help="sessions; all unless told: " + ", ".join(SESSIONS))
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--points", type=int, default=2200,
                        help="how many of the first calls of each place; those that get no memory are half")
    parser.add_argument("--places", action="store_true", help="the first call of each place")
    parser.add_argument("--all", action="store_true", help="every call, which takes hours")
    parser.add_argument("--part", default="1/1", metavar="I/N", help="the I-th of N parts of these")
    parser.add_argument("--count", type=Path, metavar="FILE", help="gets how many sessions passed and failed")
    parser.add_argument("--kind", choices=ERRORS, help="calls of one kind only")
    parser.add_argument("--point", help="one, as a line \"again with\" has it, of one session")
    options = parser.parse_args()
    if options.point and len(options.names) != 1:
        parser.error("--point wants the name of its session in front")
    chosen = {name: SESSIONS[name] for name in options.names or SESSIONS}
    with tempfile.TemporaryDirectory(prefix="kyr-faults-", dir=quick_room()) as room:
        bench = Bench(options.build.resolve(), Path(room))
        if overlooked(bench):
            parser.exit(1, f"the shim has to catch these as well: {sorted(overlooked(bench))}\n")
        return examine(bench, chosen, options)


def rank(job):
    """An order in which the first of many are an even part of them, and stay so when some are added."""
    name, (_, place, number, error, mode) = job
    return number, int(place, 16) ^ (error * 0x9E3779B97F4A7C15 % 2**64 if mode == "once" else 0), error, name


def select(sessions, options):
    """Names of sessions with their points, those of all sessions mixed."""
    if options.point:
        kind, place, number, error, mode = options.point.split()
        return [(name, (kind, place, int(number), int(error), mode)) for name in sessions]
    points = first_points(sessions)
    if options.all:
        points = {name: points_of(session) for name, session in sessions.items()}
    todo = sorted(((name, point) for name in points for point in points[name]
                   if options.kind in (None, point[0])), key=rank)
    if not options.all and not options.places:
        others = [job for job in todo if job[1][0] != "alloc"][:options.points // 2]
        todo = others + [job for job in todo if job[1][0] == "alloc"][:options.points - len(others)]
    part, parts = map(int, options.part.split("/"))
    return todo[part - 1::parts]


class Results:
    """What has come of the points so far, and what there was to tell of them."""

    def __init__(self):
        self.excused, self.wrong, self.unmet, self.told = Counter(), 0, 0, set()
        self.failed = set()

    def add(self, name, point, what, log, err):
        if what is None or what == "unmet":
            self.unmet += what == "unmet"
            return
        stacks = [functions(thread) for thread in log.split("thread ")[1:]]
        names = stacks[0] if stacks else []
        why = excuse(what, *stacks, crashed_in(err))
        if why:
            self.excused[f"{why}: {what.split(':')[0]}"] += 1
            return
        self.wrong += 1
        self.failed.add(name)
        alike = (re.sub("0x[0-9a-f]+", "", what), *names[:6])
        if alike not in self.told:
            self.told.add(alike)
            tell(name, point, what, err, names)


def overlooked(bench):
    """What is called past the shim: variants of its functions that compilers take for their checks."""
    def symbols(option, *files):
        listed = subprocess.run(["nm", "-D", option, *files], capture_output=True, text=True, check=True)
        return set(re.findall(r" [UTW] (\w+)", listed.stdout))

    library = max((bench.bin.parent / "lib").glob("libKyr.so*"))
    caught = symbols("--defined-only", bench.shim)
    called = symbols("--undefined-only", library, *(bench.bin / name for name in ("kyr", "faults_session")))
    assert "write" in caught & called
    return {name for name in called for plain in [re.fullmatch("__(.*)(_chk|_2|_alias)", name)]
            if plain and plain[1] in caught}


def examine(bench, chosen, options):
    begun = time.monotonic()
    for name, session in chosen.items():
        bench.prepare(name, session)
    todo, results = select(chosen, options), Results()
    jobs = int(os.environ.get("CTEST_PARALLEL_LEVEL") or len(os.sched_getaffinity(0)))
    with ThreadPoolExecutor(jobs) as threads:
        found = threads.map(lambda job: bench.examine(chosen[job[1][0]], job[1][1], job[0]), enumerate(todo))
        for (name, point), result in zip(todo, found):
            results.add(name, point, *result)
    for why, count in sorted(results.excused.items()):
        print(f"{count} excused: {why}")
    possible = sum(len(points_of(session)) for session in chosen.values())
    print(f"{len(todo)} points of {possible}, {results.unmet} not met, {results.excused.total()} excused, "
          f"{results.wrong} not passed, {time.monotonic() - begun:.0f} s")
    hollow = results.unmet * UNMET >= len(todo)
    if hollow:
        print("too many were not met for the others to say something")
    failed = len(chosen) if hollow else len(results.failed)
    if options.count:
        options.count.write_text(f"{len(chosen) - failed} {failed} 0\n")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
