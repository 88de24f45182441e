"""Archives against the world's tars: what the tool writes is read by Python, GNU tar and bsdtar,
and what these write in all their formats is read by the tool."""
import os
import pathlib
import shutil
import subprocess
import sys
import tarfile
import tempfile

tool = sys.argv[1:]
LONG = "long" * 20
FILES = {"a": b"", "b": b"x", "Mäß 測": b"y" * 511, "sub/c": b"z" * 512, "sub/d": bytes(range(256)) * 513,
         "sub/ü": b"w" * 513}


def run(*command, **options):
    return subprocess.run([*tool, *command], stdout=subprocess.PIPE, check=True, **options).stdout


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
        subprocess.run([*command, archive], cwd=target, check=True)
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
    make(top / "tree", FILES)
    expected = {f"tree/{name}": fact for name, fact in facts(top / "tree").items()}
    ours = top / "ours.tgz"
    run("tar", "create", ours.name, "tree", cwd=top)
    assert pythons_view(ours) == expected
    tars = [name for name in ("tar", "bsdtar") if shutil.which(name)]
    os.environ["LC_ALL"] = "C.UTF-8"  # bsdtar takes names as the locale says
    for name in tars:
        compare(ours, expected, name, name, "-xzf")

    # Their longer names, links and directories.
    make(top / "tree", {**FILES, f"{LONG}/{LONG}/{LONG}": b"deep", "s" * 120: b"long"})
    expected = facts(top / "tree")
    theirs = top / "theirs.tgz"
    if os.name == "posix":
        (top / "tree/link").symlink_to("b")
    writers = [(f"python {form}", lambda form=form: write_with_python(theirs, top / "tree", form))
               for form in (tarfile.GNU_FORMAT, tarfile.PAX_FORMAT)]
    for name, forms in (("tar", ("gnu", "pax", "oldgnu")), ("bsdtar", ("pax", "gnutar"))):
        for form in forms if name in tars else ():
            writers.append((f"{name} {form}", lambda name=name, form=form: subprocess.run(
                [name, f"--format={form}", "-czf", theirs, "-C", top / "tree", "."], check=True)))
    for title, write in writers:
        write()
        compare(theirs, expected, title, *tool, "tar", "extract")
    # The forms without long names.
    shutil.rmtree(top / "tree" / LONG)
    (top / "tree" / ("s" * 120)).unlink()
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
        lost = subprocess.run([*tool, "tar", "create", ours.name, "odd"], cwd=top, stderr=subprocess.PIPE)
        assert lost.returncode == 1 and b"cannot be read" in lost.stderr, "a file is lost in silence"
        assert list(pythons_view(ours)) == ["odd/good"]
        (top / "c:x").touch()
        run("tar", "create", ours.name, "c:x", cwd=top)
        assert list(pythons_view(ours)) == ["x"], "a name with a drive, which nobody extracts"

missing = {"tar", "bsdtar"} - set(tars)
if missing:
    print("skipped: without", *sorted(missing), "(packages tar, libarchive-tools); Python agrees")
