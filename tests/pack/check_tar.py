"""Archives against the world's tars: what the tool writes is read by Python, GNU tar and bsdtar,
and what these write in all their formats is read by the tool."""
import io
import os
import pathlib
import shutil
import subprocess
import sys
import tarfile
import tempfile

try:
    import resource
except ImportError:
    resource = None  # not on Windows, where the tests that need it are left out

tool = sys.argv[1:]
LONG = "long" * 20
FILES = {"a": b"", "b": b"x", "Mäß 測": b"y" * 511, "sub/c": b"z" * 512, "sub/d": bytes(range(256)) * 513,
         "sub/ü": b"w" * 513}
# The oldest form of header holds none of them.
OTHERS = {"Ж" * 45: b"checksum", "ノ" * 20: b"checksum", "х" * 60: b"long", f"{LONG}/{LONG}/ノ{LONG}": b"deep"}


def run(*command, **options):
    return subprocess.run([*tool, *command], stdout=subprocess.PIPE, check=True, **options).stdout


def complaint(*command, **options):
    """What the tool says when it ends with 1."""
    done = subprocess.run([*tool, *command], stderr=subprocess.PIPE, stdout=subprocess.DEVNULL, **options)
    assert done.returncode == 1, (command, done)
    return done.stderr.decode()


def make(folder, files):
    for number, (name, content) in enumerate(files.items()):
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        os.utime(path, (1, 1700000000 + number))


def facts(folder):
    """What the files below a folder are, links left out."""
    return {path.relative_to(folder).as_posix(): (path.read_bytes(), int(path.stat().st_mtime))
            for path in folder.rglob("*") if path.is_file() and not path.is_symlink()}


def compare(archive, expected, title, *command):
    """Unpacks with a command, which works in the current directory."""
    with tempfile.TemporaryDirectory() as target:
        done = subprocess.run([*command, archive], cwd=target, stderr=subprocess.PIPE)
        assert done.returncode == 0, (title, done)
        found = facts(pathlib.Path(target))
        assert found == expected, (title, sorted(found), sorted(expected))


def pythons_view(archive):
    with tarfile.open(archive) as tar:
        return {m.name: (tar.extractfile(m).read(), m.mtime) for m in tar if m.isreg()}


def write_with_python(archive, folder, form):
    with tarfile.open(archive, "w:gz", format=form) as tar:
        tar.add(folder, ".")


with tempfile.TemporaryDirectory() as top:
    top = pathlib.Path(top)
    make(top / "tree", {**FILES, **OTHERS})
    os.utime(top / "tree/a", (1, -5))
    expected = {f"tree/{name}": fact for name, fact in facts(top / "tree").items()}
    ours = top / "ours.tgz"
    tars = [name for name in ("tar", "bsdtar") if shutil.which(name)]
    os.environ["LC_ALL"] = "C.UTF-8"  # bsdtar takes names as the locale says
    for options in ((), ("--workers", "3"), ("--engine", "fastest")):
        run("tar", "create", ours.name, "tree", *options, cwd=top)
        assert pythons_view(ours) == expected, options
        for name in tars:
            compare(ours, expected, (name, options), name, "-xzf")

    # Their longer names, links, holes and directories.
    make(top / "tree", {**FILES, "s" * 120: b"long"})
    with open(top / "tree/holes", "wb") as holes:
        for place in range(0, 6_000_000, 200_000):
            holes.seek(place)
            holes.write(b"data" * 2000)
        holes.truncate(6_100_000)
    os.link(top / "tree/b", top / "tree/further")
    expected = facts(top / "tree")
    theirs = top / "theirs.tgz"
    writers = [(f"python {form}", lambda form=form: write_with_python(theirs, top / "tree", form))
               for form in (tarfile.GNU_FORMAT, tarfile.PAX_FORMAT)]
    for name, forms in (("tar", ("gnu", "gnu -S", "pax", "pax -S --sparse-version=0.0",
                                 "pax -S --sparse-version=0.1", "pax -S --sparse-version=1.0", "oldgnu -S")),
                        ("bsdtar", ("pax", "gnutar"))):
        for form in forms if name in tars else ():
            writers.append((f"{name} {form}", lambda name=name, form=form: subprocess.run(
                [name, *f"--format={form}".split(), "-czf", theirs, "-C", top / "tree", "."], check=True)))
    for title, write in writers:
        write()
        compare(theirs, expected, title, *tool, "tar", "extract")
    # The forms without long names.
    shutil.rmtree(top / "tree" / LONG)
    for name in ("s" * 120, "Ж" * 45, "х" * 60, "holes"):
        (top / "tree" / name).unlink()
    expected = facts(top / "tree")
    for name, form in (("tar", "ustar"), ("tar", "v7"), ("bsdtar", "ustar")):
        if name in tars:
            subprocess.run([name, f"--format={form}", "-czf", theirs, "-C", top / "tree", "."], check=True)
            compare(theirs, expected, f"{name} {form}", *tool, "tar", "extract")

    with tarfile.open(theirs, "w:gz", format=tarfile.GNU_FORMAT) as tar:
        early = tarfile.TarInfo("early")
        early.mtime = -5
        tar.addfile(early)
    assert b"1969-12-31T23:59:55Z" in run("tar", "list", theirs), "times before 1970"

    if len(tool) == 1:  # Wine spells names that are no Unicode in its own way
        (top / "odd").mkdir()
        (top / "odd/good").touch()
        pathlib.Path(os.fsdecode(os.fsencode(top) + b"/odd/\xff")).touch()
        (top / "odd/up").symlink_to("..")
        os.mkfifo(top / "odd/pipe")
        before = ours.read_bytes()
        lost = complaint("tar", "create", ours.name, "odd", cwd=top)
        for reason in ("cannot be read: there is no such file", "odd/up: a link to a directory",
                       "odd/pipe: neither a file nor", "ours.tgz: stays as it was"):
            assert reason in lost, (reason, lost)
        assert ours.read_bytes() == before, "a whole archive is replaced by one that misses files"
        complaint("tar", "create", ours.name, "odd", "--force", cwd=top)
        assert list(pythons_view(ours)) == ["odd/good"]
        subprocess.run(["tar", "-czf", theirs, "-C", top, "odd"], check=True)
        for command in ("list", "extract"):
            lost = complaint("tar", command, theirs, cwd=top)
            assert "odd/up: a link to .." in lost and "odd/pipe: a pipe" in lost, lost
            (top / "odd/good").unlink(missing_ok=True)

        # A disk that takes less than the file: neither half a file nor a lost older one.
        make(top, {"cut/whole": b"old"})
        with tarfile.open(theirs, "w:gz") as tar:
            member = tarfile.TarInfo("whole")
            member.size = 300_000
            tar.addfile(member, io.BytesIO(bytes(member.size)))
        refused = complaint("tar", "extract", theirs, "cut", cwd=top)
        assert "there already: cut/whole" in refused, refused
        refused = complaint("tar", "extract", theirs, "cut", "--force", cwd=top, restore_signals=False,
                            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000)))
        assert "larger than is allowed: cut/whole" in refused, refused
        assert {path.name: path.read_bytes() for path in (top / "cut").iterdir()} == {"whole": b"old"}
        (top / "c:x").touch()
        run("tar", "create", ours.name, "c:x", cwd=top)
        assert list(pythons_view(ours)) == ["x"], "a name with a drive, which nobody extracts"

missing = {"tar", "bsdtar"} - set(tars)
if missing:
    print("skipped: without", *sorted(missing), "(packages tar, libarchive-tools); Python agrees")
