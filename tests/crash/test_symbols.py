"""Programs that were stripped and moved away from their debug information crash, and the tool names
the functions and lines: of the report, and of the dump. Debug information of another build is
refused, and what is no report or a damaged dump has an error.

  test_symbols.py TOOL CRASH LIBRARY SOURCE SPLIT OBJCOPY STRIP OBJDUMP [EMULATOR]
"""
import glob
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

tool, crash, library, source, split, objcopy, strip, objdump = sys.argv[1:9]
emulator = sys.argv[9:]
if not any(shutil.which(name) for name in ["llvm-symbolizer", "llvm-symbolizer-14"]):
    print("skipped: there is no llvm-symbolizer")
    sys.exit(77)
if emulator and not os.path.exists(tool):
    print("skipped: there is no tool of the build for Linux")
    sys.exit(77)

work = tempfile.TemporaryDirectory()
away, symbols, home = (os.path.join(work.name, name) for name in ["away", "symbols", "home"])
for folder in [away, symbols, home]:
    os.mkdir(folder)
with open(source, encoding="utf-8") as file:
    statements = file.read().split("\n")


def ship(path, name):
    shutil.copy(path, os.path.join(away, name))
    subprocess.run(["cmake", "-D", f"built={path}", "-D", f"shipped={away}/{name}", "-D",
                    f"symbols={symbols}", "-D", f"objcopy={objcopy}", "-D", f"strip={strip}", "-D",
                    f"objdump={objdump}", "-P", split], check=True)
    with open(os.path.join(away, name), "rb") as shipped:
        assert b".debug_line" not in shipped.read(), f"{name} is not stripped"


def windows_path(path):
    return "Z:" + path.replace("/", "\\") if emulator else path


program = "crash.exe" if emulator else "crash"
ship(crash, program)
ship(library, re.sub(r"(\.so\.\d+).*", r"\1", os.path.basename(library)))  # as it is asked for
if emulator:
    for each in glob.glob(os.path.dirname(crash) + "/*.dll"):
        if os.path.basename(each) not in os.listdir(away):
            shutil.copy(each, away)
else:
    shutil.copytree(os.path.dirname(library) + "/kyr", away + "/kyr")


def die(*words):
    """The report, its file, and the dump."""
    shutil.rmtree(home)
    os.mkdir(home)
    report = os.path.join(home, "report.txt")
    places = {name: windows_path(home) for name in ["TMPDIR", "TMP", "TEMP", "KYR_CONFIG_DIR"]}
    environment = dict(os.environ, KYR_CONSOLE="file:" + windows_path(report), **places)
    if not emulator:
        environment["LD_LIBRARY_PATH"] = away
    run = subprocess.run(emulator + [os.path.join(away, program), *words], env=environment,
                         stderr=subprocess.PIPE, check=False, timeout=200)
    if b"Sanitizer" in run.stderr or b"runtime error: " in run.stderr:
        print("skipped: sanitizers report faults in the place of the library")
        sys.exit(77)
    assert run.returncode == 1, (words, run.returncode, run.stderr)
    dumps = glob.glob(home + "/ORV-*.dmp")
    with open(report, encoding="utf-8", errors="replace", newline="") as file:
        return file.read(), report, dumps[0] if dumps else None


def ask(*words):
    run = subprocess.run([tool, "symbolize", *words], capture_output=True, check=False, timeout=200)
    assert run.returncode in [0, 1, 2], (words, run.returncode, run.stderr)
    return run.returncode, run.stdout.decode(), run.stderr.decode()


def line_of(statement):
    return next(i for i, line in enumerate(statements, 1) if statement in line)


def frames_of(answer):
    """The frames of the crashing thread, with those of a throw behind them."""
    return [frame for stack in answer["stacks"] if not stack["heading"].startswith("next thread")
            for frame in stack["frames"]]


def is_at(frame, function, statement):
    return (function in frame.get("function", "") and frame["module"] == program and
            frame.get("file", "").endswith("/faults.cpp") and frame["line"] == line_of(statement))


def state_of(answer, name):
    [state] = [module["state"] for module in answer["modules"] if module["name"] == name]
    return state


# Kind of mistake, thread, and functions with their lines that must be there in this order.
ROWS = [
    ("null-write", "--in-thread", [("writeNull", "*nowhere = 1;")]),
    ("null-write", "--in-foreign-thread", [("writeNull", "*nowhere = 1;")]),
    ("inlined", "--in-thread", [("storeThrough", "*target = 2;"),
                                ("measureInto", "  storeThrough(target);"),
                                ("writeInlined", "  measureInto(nowhere);")]),
    ("execute", "--in-thread", [("executeNull", "  noFunction();")]),
    ("exception", "--in-thread", [("throwUncaught", "throw Kyr::Exception(")]),
    ("exception", "--in-foreign-thread", [("throwUncaught", "throw Kyr::Exception(")]),
    ("exception-number", "--threads=2", [("throwNumber", "throw 42;")]),
    ("overflow", "--in-thread", [("overflowStack", "overflowStack(depth + 1)"),
                                 ("overflow", "sink = overflowStack(0);")]),
    ("abort", "--threads=2", [("abortProcess", "std::abort();")]),
]
for kind, option, expected in ROWS:
    text, report, _ = die("--kind", kind, option)
    code, out, err = ask("--json", "--symbols", symbols, report)
    answer = json.loads(out)
    frames = iter(frames_of(answer))
    for function, statement in expected:
        found = any(is_at(frame, function, statement) for frame in frames)
        assert found, f"{kind} {option}: no {function} at line {line_of(statement)}\n{text}\n{out}"
    checked = "\nmodule 0x" in text
    assert state_of(answer, program) == ("found" if checked else "not checked"), (text, out)
    assert (code, err) == (0, ""), (kind, err)

# As text: the lines of the report stay but for the frames, and inlined functions are counted.
text, report, dump = die("--kind", "inlined", "--in-thread")
code, out, err = ask(report, "--symbols", symbols)
assert out.startswith(text[:text.index("\n#0")].replace("\r", "")), out
assert re.search(r"\n#0 .* storeThrough.*faults\.cpp:\d+\), inlined\n#1 .* measureInto.*, inlined\n"
                 rf"#2 .* {program}!.*writeInlined.*faults\.cpp:{line_of('  measureInto(nowhere);')}\)",
                 out), out
assert re.search(rf"\nsymbols:\n(.*\n)*(found|not checked) +{program} ", out), out
assert text.count("\r") in [0, text.count("\n")], "two kinds of line ends in one report"

# The dump has the build ids: found, or refused where the file is of another build.
code, out, err = ask("--json", "--symbols", symbols, dump)
answer = json.loads(out)
checks_dump = any(module["buildId"] for module in answer["modules"])
assert [frame["function"].rpartition("::")[2].partition("(")[0] for frame in frames_of(answer)[:3]] \
    == ["storeThrough", "measureInto", "writeInlined"], out
assert state_of(answer, program) == ("found" if checks_dump else "not checked"), out
assert checks_dump or emulator, "a dump without build ids"

if checks_dump or "\nmodule 0x" in text:
    given = dump if checks_dump else report
    with open(symbols + "/modules.txt", encoding="utf-8") as file:
        builds = {line.split()[1]: line.split()[0] for line in file}
    own = builds[program]
    [foreign] = [build for name, build in builds.items() if name != program]
    path = f"{symbols}/.build-id/{foreign[:2]}/{foreign[2:]}.debug"
    for place in [f"{program}.debug", f".build-id/{own[:2]}/{own[2:]}.debug"]:
        other = tempfile.TemporaryDirectory(dir=work.name)
        os.makedirs(os.path.dirname(f"{other.name}/{place}"), exist_ok=True)
        shutil.copy(path, f"{other.name}/{place}")
        code, out, err = ask("--json", "--symbols", other.name, given)
        answer = json.loads(out)
        assert code == 1 and state_of(answer, program) == "other build", (place, out)
        assert not any("function" in frame for frame in frames_of(answer)
                       if frame.get("module") == program), f"guessed: {out}"
        # In a second folder it is found all the same.
        code, out, err = ask("--json", "--symbols", other.name, "--symbols", symbols, given)
        assert state_of(json.loads(out), program) == "found", out
    empty = tempfile.TemporaryDirectory(dir=work.name)
    code, out, err = ask("--symbols", empty.name, given)
    assert code == 0 and re.search(rf"\nmissing +{program} ", out), out

# What is no report, and dumps that are cut off or hold wrong numbers.
for name, content in [("empty", b""), ("text", b"nothing\n#x 0x\n"), ("head", b"MDMP")]:
    bad = os.path.join(work.name, name)
    with open(bad, "wb") as file:
        file.write(content)
    code, out, err = ask(bad, "--symbols", symbols)
    assert code == 1 and err.startswith("kyr: ") and not out, (name, code, out, err)
code, out, err = ask(report, "--symbols", work.name + "/nowhere")
assert code == 1 and "nowhere: is no folder" in err, err
with open(dump, "rb") as file:
    whole = file.read()
broken = os.path.join(work.name, "broken.dmp")
refused = 0
for step in range(60):
    damaged = bytearray(whole)
    if step % 2 == 0:
        damaged = damaged[:32 + len(whole) * step // 600]
    else:  # numbers of the head and of the first streams
        place = 8 + 4 * (step * 37 % 300)
        damaged[place:place + 4] = b"\xff\xff\xff\xff"
    with open(broken, "wb") as file:
        file.write(damaged)
    code, out, err = ask(broken, "--symbols", symbols)
    assert code in [0, 1] and "not enough memory" not in err, (step, err)
    refused += code == 1 and "cut short or damaged" in err
assert refused >= 10, refused
