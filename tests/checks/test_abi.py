#!/usr/bin/env python3
"""The gate of the interface: what it lets pass and what it stops, for libraries of a few lines."""
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

COMPILER = sys.argv.pop()
GATE = Path(__file__).resolve().parents[2] / "tools/abi.py"

HEADER = """#include <map>
#include <string>
#include <vector>
#define KYR_HIDDEN __attribute__((visibility("hidden")))
namespace Kyr {
struct Found {
  std::string text;
  std::vector<int> lines;
};
class Reader {
 public:
  enum State_t { Open, Closed };
  virtual ~Reader();
  virtual void open();
  virtual void close();
  std::vector<Found> find(State_t state);
  int lines() const { return count(); }

 private:
  int count() const;
  KYR_HIDDEN void look();
  std::map<int, Found> _found;
};
int add(int a, long b = 2);
}
"""
SOURCE = """#include "KyrReader.h"
namespace Kyr {
Reader::~Reader() {}
void Reader::open() { look(); }
void Reader::close() {}
std::vector<Found> Reader::find(State_t) { return {}; }
int Reader::count() const { return 1; }
void Reader::look() { _found.clear(); }
int add(int a, long) { return a; }
}
"""
# What becomes what in the header and the source; what is complained about; the fault that shows.
CHANGES = [
    ("", "", "", "the same interface is another one"),
    ("int add(", "int more();\nint add(", "", "a new function is refused"),
    ("class Reader", "struct Sink { virtual void put(); };\nclass Reader", "",
     "a new class is refused"),
    ("Open, Closed", "Open, Closed, Broken", "", "a new enumerator is refused"),
    ("return count();", "return count() + 1;", "", "code of programs is taken for the library's"),
    ("int add(int a, long", "int add(int a, int", "add(int, long int)", "a function may go"),
    ("  virtual void open();\n  virtual void close();",
     "  virtual void close();\n  virtual void open();", "Reader::close",
     "the order of virtual functions may change"),
    ("  std::vector<Found> find", "  virtual void seek() {}\n  std::vector<Found> find",
     "Reader::seek", "virtual functions may be added"),
    ("  std::map", "  int _more = 0;\n  std::map", "size changed", "objects may grow"),
    ("std::string text", "int number = 0; std::string text", "Kyr::Found",
     "what only containers hold may grow"),
    ("std::vector<int> lines", "std::vector<double> lines", "lines", "members may become others"),
    ("Open, Closed", "Closed, Open", "Reader", "enumerators may have other values"),
    ("KYR_HIDDEN void look", "void look", "Reader::look is private and exported",
     "what is private is shown"),
]


class Gate(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)

    def build(self, old="", new="", soname="libKyr.so.6"):
        header, source = (text.replace(old, new) if old else text for text in (HEADER, SOURCE))
        (self.root / "KyrReader.h").write_text(header)
        (self.root / "reader.cpp").write_text(source)
        subprocess.run([COMPILER, "-g", "-O1", "-shared", "-fPIC", f"-Wl,-soname,{soname}", "-o",
                        self.root / "libKyr.so", self.root / "reader.cpp"], check=True)

    def gate(self, *options):
        command = [sys.executable, "-B", GATE, self.root / "libKyr.so", self.root / "kept.abi",
                   "--headers", self.root, *options]
        ran = subprocess.run(command, capture_output=True, text=True, check=False)
        self.assertEqual(ran.stderr, "")
        return ran

    def expect(self, complaint):
        ran = self.gate()
        self.assertEqual(ran.returncode, 1 if complaint else 0, ran.stdout)
        self.assertIn(complaint, ran.stdout)

    def test_changes(self):
        self.build()
        self.gate("--renew")
        for old, new, complaint, fault in CHANGES:
            with self.subTest(fault):
                self.build(old, new)
                self.expect(complaint)

    def test_sonames(self):
        self.build()
        self.expect("there is no kept.abi")
        self.gate("--renew")
        self.build("int add(", "int plus(", "libKyr.so.7")
        self.expect("the soname is libKyr.so.7 now")
        self.gate("--renew")
        self.expect("")

    def test_no_library(self):
        (self.root / "libKyr.so").write_text("")
        self.assertEqual(self.gate().returncode, 2)


if __name__ == "__main__":
    unittest.main()
