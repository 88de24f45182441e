#!/usr/bin/env python3
"""Checks that libraries and programs are built so that a fault in them is hard to abuse.

For Linux: position-independent, no memory that is written and run, addresses of other libraries
filled in at the start and read-only from then on, a guard behind the buffers of each stack frame,
checked variants of the C library's functions, and on x86-64 a mark where indirect calls may land.
For Windows: addresses that change, data that cannot run, and with 64 bits all addresses in use.
Prints one line for each breach and ends with 1 if there is any. Files built without an optimiser
lack the checked variants.
"""
import argparse
import re
import subprocess
import sys

# The C library has a checked variant of each, which compilers take wherever they are asked to; of
# others, as snprintf, only where they do not know that all is well.
CHECKED = {"printf", "fprintf", "vprintf", "vfprintf", "sprintf", "vsprintf"}

LANDING = bytes.fromhex("f30f1efa")  # endbr64
LOADED = re.compile(r"^ *LOAD +(\w+) (\w+) \w+ (\w+) \w+ ([RWE ]{3}) ", re.MULTILINE)
FUNCTION = re.compile(r"^(\w+) [TW] (main|_ZNK?3Kyr\w+)$", re.MULTILINE)


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def functions_of(file):
    """Names and addresses of functions that others call: exported ones, and that of a program."""
    found = FUNCTION.findall(output_of("nm", "-D", "--defined-only", file))
    found += [pair for pair in FUNCTION.findall(output_of("nm", "--defined-only", file))
              if pair[1] == "main"]
    return [(name, int(address, 16)) for address, name in found]


def lacks_landings(file, segments):
    code = file_bytes(file)
    functions = functions_of(file)
    if not functions:
        return "shows no function whose first instruction could be looked at"
    for name, address in functions:
        for offset, start, size, _ in segments:
            if start <= address < start + size:
                at = address - start + offset
                if code[at:at + 4] != LANDING:
                    return f"has no mark for indirect calls (-fcf-protection) in {name}"
    return None


def file_bytes(name):
    with open(name, "rb") as file:
        return file.read()


def breaches_of_elf(file):
    head = output_of("readelf", "-hW", file)
    dynamic = output_of("readelf", "-dW", file)
    parts = output_of("readelf", "-lW", file)
    imports = set(re.findall(r" U (\w+)", output_of("nm", "-D", "--undefined-only", file)))
    segments = [(int(offset, 16), int(start, 16), int(size, 16), flags)
                for offset, start, size, flags in LOADED.findall(parts)]
    if not re.search(r"Type: +DYN ", head):
        yield "is not position-independent (-pie)"
    if any("W" in flags and "E" in flags for *_, flags in segments):
        yield "has memory that is written and run"
    if not re.search(r"GNU_STACK .* RW +0x", parts):
        yield "has a stack that is run (-z noexecstack)"
    if "GNU_RELRO" not in parts:
        yield "has no read-only relocations (-z relro)"
    if not re.search(r"BIND_NOW|Flags:.*\bNOW\b", dynamic):
        yield "binds functions late (-z now)"
    if "__stack_chk_fail" not in imports:
        yield "has no stack protector (-fstack-protector-strong)"
    if unchecked := sorted(CHECKED & imports):
        yield f"calls {', '.join(unchecked)} without a check (_FORTIFY_SOURCE)"
    if "X86-64" in head and (fault := lacks_landings(file, segments)):
        yield fault


def breaches_of_pe(file):
    text = output_of("objdump", "-p", file)
    wanted = {"DYNAMIC_BASE": "--dynamicbase", "NX_COMPAT": "--nxcompat"}
    if "pei-x86-64" in text:
        wanted["HIGH_ENTROPY_VA"] = "--high-entropy-va"
    for flag, option in wanted.items():
        if not re.search(rf"^\s+{flag}$", text, re.MULTILINE):
            yield f"is not marked {flag} ({option})"
    if "relocations stripped" in text:
        yield "cannot be moved, as it has no relocations"


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("file", nargs="+")
    found = False
    for file in arguments.parse_args().file:
        kind = breaches_of_pe if file_bytes(file)[:2] == b"MZ" else breaches_of_elf
        for breach in kind(file):
            print(f"{file} {breach}")
            found = True
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
