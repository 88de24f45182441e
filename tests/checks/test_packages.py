#!/usr/bin/env python3
"""The scripts behind packages: the list of files, the comparison of two builds, the symbols."""
import hashlib
import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[2] / "tools"


def run(script, *words, **environment):
    return subprocess.run([sys.executable, "-B", TOOLS / script, *map(str, words)], text=True,
                          capture_output=True, env={**os.environ, **environment}, check=False)


class Packages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kyr packages ")
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, name, content):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)

    def list_files(self, *words):
        ran = run("file_list.py", "--name", "k", "--version", "1-2", "--output", self.root / "list",
                  *words, SOURCE_DATE_EPOCH="86400")
        return ran, json.loads((self.root / "list").read_text()) if ran.returncode == 0 else None

    def test_sums_and_licences(self):
        contents = {"bin/zlib1.dll": b"MZ z", "bin/libKyr.dll": b"MZ k", "include/a.h": b"a"}
        for name, content in contents.items():
            self.write("package/" + name, content)
        (self.root / "package/link").symlink_to("include/a.h")
        ran, document = self.list_files(self.root / "package")
        self.assertEqual(ran.stdout, "3 files of 1 packages\n", ran.stderr)
        files = {each["fileName"]: each for each in document["files"]}
        sums = {name: {each["algorithm"]: each["checksumValue"] for each in file["checksums"]}
                for name, file in files.items()}
        self.assertEqual(sums, {"./" + name: {kind: hashlib.new(kind, content).hexdigest()
                                              for kind in ("SHA1", "SHA256")}
                                for name, content in contents.items()})
        self.assertEqual([files["./" + name]["licenseConcluded"] for name in contents],
                         ["Zlib", "NOASSERTION", "NOASSERTION"])
        joined = "".join(sorted(each["SHA1"] for each in sums.values()))
        self.assertEqual(document["packages"][0]["packageVerificationCode"],
                         {"packageVerificationCodeValue": hashlib.sha1(joined.encode()).hexdigest()})
        self.assertEqual(document["creationInfo"]["created"], "1970-01-02T00:00:00Z")
        self.assertEqual(document, self.list_files(self.root / "package")[1], "not the same twice")

    def test_refuses_a_program_of_unknown_licence(self):
        for head in (b"MZ", b"\x7fELF"):
            self.write("package/bin/stranger", head)
            ran, _ = self.list_files(self.root / "package")
            self.assertIn("bin/stranger: its licence is not known", ran.stderr)

    def test_lists_the_inside_of_debian_packages(self):
        self.make_debian("k.deb", b"text")
        ran, document = self.list_files(self.root / "k.deb")
        self.assertEqual(ran.returncode, 0, ran.stderr)
        self.assertEqual([each["fileName"] for each in document["files"]], ["./usr/share/k"])
        self.assertEqual(document["packages"][0]["externalRefs"][0]["referenceLocator"],
                         "pkg:deb/debian/k@1-2?arch=all")

    def make_debian(self, name, content):
        self.write("tree/usr/share/k", content)
        self.write("tree/DEBIAN/control", b"Package: k\nVersion: 1-2\nArchitecture: all\n"
                   b"Maintainer: K <k@k.example>\nDescription: k\n")
        (self.root / "tree").chmod(0o755)
        subprocess.run(["dpkg-deb", "--root-owner-group", "--build", "tree", name], cwd=self.root,
                       check=True, capture_output=True, env={**os.environ, "SOURCE_DATE_EPOCH": "1"})

    def test_compares_builds(self):
        for folder, content in (("one", b"1"), ("same", b"1"), ("other", b"2")):
            (self.root / folder).mkdir()
            self.make_debian(folder + "/k.deb", content)
        self.write("other/more.deb", b"")
        same = run("compare_builds.py", self.root / "one", self.root / "same", "*.deb")
        self.assertEqual((same.returncode, same.stdout), (0, "1 files are the same, 0 are not\n"))
        other = run("compare_builds.py", self.root / "one", self.root / "other", "*.deb")
        self.assertEqual(other.returncode, 1)
        for text in ("differs: k.deb\n", "  in it: ./usr/share/k\n", "only one has: more.deb\n"):
            self.assertIn(text, other.stdout)
        self.assertNotEqual(run("compare_builds.py", self.root, self.root, "*.no").returncode, 0)

    def test_notes_symbols(self):
        def library(code):
            subprocess.run(["c++", "-shared", "-fPIC", "-o", self.root / "k.so", "-x", "c++", "-"],
                           input=code, text=True, check=True)

        def note(version):
            ran = run("debian/symbols.py", self.root / "k.so", version, self.root / "symbols")
            self.assertEqual(ran.returncode, 0, ran.stderr)
            return ran.stdout, (self.root / "symbols").read_text().splitlines()[2:]

        library('struct A { A(); }; A::A() {} extern "C" void c() {}')
        note("1.0")
        library('struct A { A(); }; A::A() {} int f(char) { return 0; }')
        said, lines = note("1.1")
        self.assertEqual(lines, [' (c++)"A::A()@Base" 1.0', ' (c++)"f(char)@Base" 1.1'])
        self.assertEqual(said, "- c\n+ f(char)\n")


if __name__ == "__main__":
    unittest.main()
