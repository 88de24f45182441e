"""The dump of a crash, read without the library: by its documented layout, and with "lldb" as
first argument by that debugger."""
import glob
import os
import re
import shutil
import stat
import struct
import subprocess
import sys
import tempfile

how, crash = sys.argv[1:]
debugger = shutil.which("lldb") or shutil.which("lldb-14")
if how == "lldb" and not debugger:
    print("skipped: there is no lldb")
    sys.exit(77)

work = tempfile.TemporaryDirectory()
program = os.fsencode(crash)
if how == "streams":  # under a name that is UTF-8 but for one byte
    program = os.fsencode(work.name) + b"/gr\xc3\xb6\xf0abc\xf0\x9f\x98\x80"
    shutil.copy(crash, program)
environment = dict(os.environ, TMPDIR=work.name, KYR_CONFIG_DIR=work.name, KYR_CONSOLE="on")
run = subprocess.run([program, "--kind", "null-write", "--in-thread", "--threads", "8"],
                     env=environment, stderr=subprocess.PIPE, check=False)
report = run.stderr.decode(errors="replace")
if "Sanitizer" in report or "runtime error: " in report:
    print("skipped: sanitizers report faults in the place of the library")
    sys.exit(77)
[path] = glob.glob(work.name + "/ORV-*.dmp")
address = int(re.search("at address (0x[0-9a-f]+)\n", report)[1], 16)
crashing = int(re.search("crashing thread (0x[0-9a-f]+):", report)[1], 16)
others = {int(number, 16) for number in re.findall("next thread: (0x[0-9a-f]+)", report)}

if how == "lldb":
    said = subprocess.run([debugger, "--batch", "-c", path, "-o", "thread list", "-o", "bt"],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True,
                          encoding="utf-8").stdout
    print(said)
    assert len(re.findall(r"^[* ] thread #\d+: tid = ", said, re.M)) == 10
    assert re.search(rf"^\* thread #\d+: tid = {crashing}, 0x0*{address:x} .*writeNull.* at "
                     r"faults\.cpp:\d+.* stop reason = signal SIGSEGV", said, re.M)
    assert re.search(r"frame #[1-9].*start_thread|frame #[1-9].*QThread|frame #[2-9]", said)
    sys.exit(0)

with open(path, "rb") as file:
    dump = file.read()
assert stat.S_IMODE(os.stat(path).st_mode) == 0o600, "others can read it"


def at(layout, offset):
    return struct.unpack_from("<" + layout, dump, offset)


def entries(layout, offset):
    [count], size = at("I", offset), struct.calcsize("<" + layout)
    return [at(layout, offset + 4 + i * size) for i in range(count)]


signature, version, count, directory = at("4sIII", 0)
assert (signature, version & 0xFFFF) == (b"MDMP", 0xA793)
streams = {}
for i in range(count):
    kind, size, offset = at("III", directory + 12 * i)
    assert offset + size <= len(dump), f"stream {kind} ends behind the file"
    assert kind not in streams, f"stream {kind} is there twice"
    streams[kind] = (offset, size)

# Threads: registers inside, and the stack that the stack pointer points into.
threads = {}
for number, _, _, _, _, begin, size, offset, length, context in entries("IIIIQQIIII", streams[3][0]):
    [stack], [instruction] = at("Q", context + 0x98), at("Q", context + 0xF8)
    assert length == 1232 and begin <= stack < begin + size and offset + size <= len(dump)
    threads[number] = (instruction, begin, offset)
assert set(threads) == others | {crashing} and len(threads) == 10
assert threads[crashing][0] == address

# Exception: the signal and the address that was written to.
thread, _, code, flags, _, accessed = at("IIIIQQ", streams[6][0])
size, context = at("II", streams[6][0] + 160)
assert (thread, code, flags, accessed) == (crashing, 11, 1, 0)
assert size == 1232 and at("Q", context + 0xF8) == (address,)

# Modules: the program with the build id that is in its file.
modules = {}
for module in entries("QIIII52xIIII16x", streams[4][0]):
    base, size, _, _, name, length, identity = module[:7]
    [characters] = at("I", name)
    text = dump[name + 4:name + 4 + characters].decode("utf-16-le")
    modules[os.path.basename(text)] = (base, size, dump[identity:identity + length])
base, size, identity = modules["grö\xf0abc\U0001f600"]
with open(crash, "rb") as file:
    program = file.read()
assert identity[:4] == b"LEpB" and len(identity) == 24 and identity[4:] in program
assert base <= address < base + size and any(re.match(r"libKyr\w*\.so", name) for name in modules)

# Memory: the code of the faulting instruction is what stands in the program's file.
memory = entries("QII", streams[5][0])
[(begin, size, offset)] = [m for m in memory if m[0] <= address < m[0] + m[1]]
assert dump[offset:offset + size] in program
assert {m[0] for m in memory} >= {begin for _, begin, _ in threads.values()}

# The system and the process, with the words on its command line.
architecture, _, _, _, _, _, _, _, platform = at("HHHBBIIII", streams[7][0])
assert (architecture, platform) == (9, 0x8201)
assert f"ORV-{at('III', streams[15][0])[2]}.dmp" == os.path.basename(path)
offset, size = streams[0x47670006]
assert b"--in-thread" in dump[offset:offset + size]
