#!/usr/bin/env python3
"""Each check of the house is shown a small tree with one fault, and must name it."""
import json
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[2] / "tools"
COMPILER = sys.argv.pop() if len(sys.argv) > 1 else "c++"

# Two good rooms, which every case changes in one or two files; None removes a file.
GOOD = {
    "src/base/kyr/low/CMakeLists.txt": "kyr_room(NAME low\n  SOURCES low.cpp  # one\n  OFFERS low_p.h)",
    "src/base/kyr/low/low.cpp": "#include <kyr/low/Low.h>\n",
    "src/base/kyr/low/Low.h": "#include <QString>\n#if defined(KYR_FEATURE)\n#endif\n",
    "src/base/kyr/low/low_p.h": "",
    "src/base/kyr/high/CMakeLists.txt":
        "kyr_room(NAME high SOURCES high.cpp POSIX platform/h_posix.cpp NEEDS low)",
    "src/base/kyr/high/high.cpp": "#include <kyr/high/High.h>\n#include <kyr/low/low_p.h>\n",
    "src/base/kyr/high/High.h": "#include <kyr/low/Low.h>\n#include <zlib.h>\n",
    "src/base/kyr/high/platform/h_posix.cpp": "#include <sys/stat.h>\n#include <unistd.h>\n",
    "src/base/kyr/Kyr.h": "#include <kyr/high/High.h>\n#include <kyr/low/Low.h>\n",
    "src/base/kyr/core/KyrPlatform.h": "#if defined(_WIN32)\n#endif\n",
    "docs/ARCHITECTURE.md": "| `low` | one | – |\n| `high` | two | low |\n",
}
LOW, HIGH = "src/base/kyr/low/", "src/base/kyr/high/"

ROOMS = [
    ({LOW + "low.cpp": "\n#include <kyr/high/High.h>\n"},
     "low/low.cpp:2: includes room high, which low does not need"),
    ({LOW + "low.cpp": " #  include <kyr/low/Gone.h>\n"}, "kyr/low/Gone.h, which does not exist"),
    ({LOW + "low.cpp": '#include "low_p.h"\n'}, 'includes "low_p.h"; write'),
    ({LOW + "Low.h": "#include <kyr/low/low_p.h>\n"}, "a public header includes the private"),
    ({LOW + "low_p.h": "#include <kyr/low/Low.h>\n", LOW + "Low.h": "#include <kyr/low/low_p.h>\n"},
     "in a circle: kyr/low/Low.h -> kyr/low/low_p.h -> kyr/low/Low.h"),
    ({LOW + "CMakeLists.txt": "kyr_room(NAME low SOURCES low.cpp NEEDS high)"},
     "in a circle: high -> low -> high"),
    ({LOW + "CMakeLists.txt": "kyr_room(NAME low SOURCES low.cpp NEEDS lwo)"},
     "low needs lwo, which is no room"),
    ({LOW + "CMakeLists.txt": "kyr_room(NAME deep SOURCES low.cpp)"}, "is called deep"),
    ({LOW + "new.cpp": ""}, "new.cpp is in the folder, but not in the list"),
    ({HIGH + "high.cpp": None}, "high.cpp is in the list of sources, but not in the folder"),
    ({HIGH + "platform/x_win.cpp": ""}, "platform/x_win.cpp is in the folder, but not"),
    ({HIGH + "CMakeLists.txt": "kyr_room(NAME high SOURCES platform/h_posix.cpp POSIX high.cpp)"},
     "POSIX file high.cpp is not called"),
    ({HIGH + "high.cpp": "", HIGH + "High.h": ""}, "high needs low, but includes none of its headers"),
    ({HIGH + "high.cpp": "#include <kyr/low/more_p.h>\n", LOW + "more_p.h": ""},
     "high.cpp:1: includes more_p.h, which low does not offer"),
    ({HIGH + "high.cpp": ""}, "low offers low_p.h, which no other room includes"),
    ({LOW + "CMakeLists.txt": "kyr_room(NAME low SOURCES low.cpp OFFERS low_p.h Low.h)"},
     "low offers Low.h, which is no private header"),
    ({LOW + "Low.h": "class KYR_EXPORT Low {\n", HIGH + "High.h": "class Low;\nclass X;\n"},
     "high/High.h: only declares Low; include <kyr/low/Low.h>"),
    ({LOW + "Low.h": "class High;\n", HIGH + "High.h": "class KYR_EXPORT High : Low {\n"}, ""),
    ({"docs/ARCHITECTURE.md": "| `low` | one | – |\n| `high` | two | – |\n"},
     "ARCHITECTURE.md: the row of high does not end with its needs: low"),
    ({LOW + "New.h": ""}, "kyr/Kyr.h: misses <kyr/low/New.h>"),
    ({"src/base/kyr/Kyr.h": None}, "kyr/Kyr.h is missing"),
    ({"examples/tour.cpp": "#include <kyr/low/low_p.h>\n"}, "tour.cpp:1: includes the library's"),
]

PLATFORM = [
    ({LOW + "low.cpp": "\n#  ifdef _WIN32\n"}, "low/low.cpp:2: asks for _WIN32"),
    ({LOW + "low.cpp": "#elif defined(X) && defined(Q_OS_WIN)\n"}, "asks for Q_OS_WIN"),
    ({HIGH + "platform/h_posix.cpp": "#if __linux__\n"}, "asks for __linux__"),
    ({LOW + "low.cpp": "#if QT_VERSION < 0x060000\n"}, "low/low.cpp:1: asks for QT_VERSION"),
    ({"tests/t.cpp": "#include <unistd.h>\n"}, "t.cpp:1: <unistd.h> belongs to an operating"),
    ({LOW + "Low.h": "#include <sys/wait.h>\n"}, "only files platform/*_posix.cpp may"),
    ({LOW + "Low.h": "#include <fcntl.h>\n"}, "platform/*_posix.cpp and platform/*_win.cpp may"),
    ({LOW + "l_posix.cpp": "#include <sys/stat.h>\n"}, "l_posix.cpp:1: <sys/stat.h> belongs"),
    ({LOW + "low.cpp": "#include <Windows.h>\n"}, "only files platform/*_win.cpp may"),
    ({HIGH + "platform/h_posix.cpp": "#include <windows.h>\n"}, "h_posix.cpp:1: <windows.h>"),
    ({HIGH + "platform/h_win.cpp": "#include <dlfcn.h>\n"}, "h_win.cpp:1: <dlfcn.h>"),
]

EXPORTS = [
    ("EXPORT void stray() {}", "exports stray()"),
    ("namespace Other { EXPORT int value = 1; }", "exports Other::value"),
    ("struct EXPORT Table { virtual ~Table(); }; Table::~Table() {}", "exports Table::~Table()"),
    ("namespace KyrTest { EXPORT void stray() {} }", "exports KyrTest::stray()"),
    ("namespace Kyr::Inner { EXPORT void f() {} }",
     "exports Kyr::Inner::f(), which no public header declares"),
    ("struct EXPORT Kyr::A::Inside { void f(); }; void Kyr::A::Inside::f() {}",
     "exports Kyr::A::Inside::f(), which no public header declares"),
]
# Something to guard, to check and to jump to.
HARDENED = """#include <cstdio>
int main(int count, char** words) {
  char text[80];
  std::snprintf(text, sizeof text, "%s", words[0]);
  return std::printf("%d %s", count, text);
}
"""
HARDENING = ["-O2", "-fPIE", "-pie", "-fstack-protector-strong", "-U_FORTIFY_SOURCE",
             "-D_FORTIFY_SOURCE=2", "-Wl,-z,relro,-z,now,-z,noexecstack"]
SOFT = [
    (["-fPIC", "-no-pie"], "is not position-independent"),
    (["-Wl,-z,execstack"], "has a stack that is run"),
    (["-Wl,-z,norelro"], "has no read-only relocations"),
    (["-Wl,-z,lazy"], "binds functions late"),
    (["-fno-stack-protector"], "has no stack protector"),
    (["-U_FORTIFY_SOURCE"], "calls printf without a check"),
]
SOFT_X86_64 = [(["-fcf-protection=none"], "has no mark for indirect calls (-fcf-protection) in main"),
               (["-s"], "shows no function whose first instruction")]
SOFT_WINDOWS = [(["-Wl,--disable-dynamicbase"], "is not marked DYNAMIC_BASE"),
                (["-Wl,--disable-nxcompat"], "is not marked NX_COMPAT")]

HEADERS = {"a/KyrA.h": """namespace Kyr { struct KYR_EXPORT A {  // not Inner, which stands here
  struct Inside; void f(); }; struct B; struct B { }; class C : A { }; struct D { }; }
extern int data; void g(); """, "a/inner_p.h": "namespace Kyr::Inner { struct Inside { }; }"}
OURS = """#include <ostream>
#include <vector>
#if defined(_WIN32)
#define EXPORT __declspec(dllexport)
#else
#define EXPORT
#endif
namespace Kyr { struct EXPORT A { struct Inside; virtual ~A(); virtual void f(); }; A::~A() {} void A::f() {}
struct EXPORT B { virtual ~B(); }; B::~B() {} struct EXPORT C : A, B { ~C(); void f(); };
C::~C() {} void C::f() {} struct EXPORT D : std::ostream { D(); }; D::D() : std::ostream(0) {}
EXPORT int data; EXPORT bool operator==(A, B) { return true; }
EXPORT void g(std::vector<A>& a) { a.push_back({}); } }
"""

LANGUAGES = ("en", "de", "fr", "jp", "cn", "pt")
CATALOGUE = "<TS><context><name>Kyr_zip_err</name>%s</context></TS>"
MESSAGE = "<message><source>%s</source><translation%s>%s</translation></message>"
CODE = 'f(translate("Kyr_zip_err", // note\n "a " "%1")); // translate("x", "y")\n'
# The code; the text; the state of the translation and the translation; what is complained about.
MESSAGES = [
    (CODE, "a %1", "", "b %1", ""),
    (CODE.replace("translate", "QT_TRANSLATE_NOOP", 1), "a %1", "", "b %1", ""),
    (CODE, "a %1", ' type="unfinished"', "b %1",
     "Kyr_fr.ts: no translation of Kyr_zip_err: 'a %1'"),
    (CODE, "a %1", "", "", "Kyr_jp.ts: no translation of"),
    (CODE, "a %1", "", "b %2", "Kyr_de.ts: other places for arguments than"),
    (CODE, "a %1", "", "b %1 %1", "Kyr_pt.ts: other places for arguments than"),
    (CODE, "a %1", "", "b&amp;apos; %1", "Kyr_de.ts: an entity in the translation of"),
    (CODE, "a %1", "", " b %1", "Kyr_cn.ts: other blanks or line ends at the ends than"),
    (CODE, "a %1", "", "b %1\n", "Kyr_de.ts: other blanks or line ends at the ends than"),
    (CODE, "a %1", "", "b\n%1", "Kyr_de.ts: another number of lines than"),
    (CODE, "a %1", "", "&amp;b %1", "Kyr_de.ts: another number of accelerators than"),
    (CODE + 'translate("c", "new")', "a %1", "", "%1", "Kyr_en.ts: misses c: 'new'"),
    (CODE + 'translate("c", x ? "a" : "b")', "a %1", "", "b %1",
     'low.cpp: "b" is no argument by itself'),
    (CODE + 'translate("c", "a", x ? "a" : "b", 1)', "a %1", "", "b %1", "no argument by itself"),
    ("", "a %1", "", "%1", "Kyr_pt.ts: nobody asks for Kyr_zip_err"),
    ('translate("Kyr_zip_err", "&Fit &&")', "&amp;Fit &amp;&amp;", "", "&amp;Ein &amp;&amp;", ""),
    ('translate("Kyr_zip_err", "&Fit")', "&amp;Fit", "", "Ein", "another number of accelerators"),
    ('translate("Kyr_zip_err", "\\"%1\\"")', '"%1"', "", "„%1“", "Kyr_fr.ts: no «\xa0%1\xa0»"),
    ('translate("Kyr_zip_err", "two Lengths")', "two Lengths", "", "zwei Längen", ""),
    ('translate("Kyr_zip_err", "two Lengths")', "two Lengths", "", "zwei Weiten",
     "Kyr_de.ts: not länge or langen, as the glossary says, in"),
    ('translate("Kyr_zip_err", "kyr length LENGTH, lengthy")', "kyr length LENGTH, lengthy", "",
     "lang", ""),
]
GLOSSARY = "# note\nen\tde\tfr\tjp\tcn\tpt\nlength/lengths" + "\tLänge/Langen" * 5

# Forms for numbers: code, and those that are enough, missing or wrong.
NUMBER = 'translate("Kyr_zip_err", "%1 piece", "%1 pieces", count)'
NUMEROUS = ("<message numerus='yes'><source>%1 piece</source><comment>%1 pieces</comment>"
            "<translation>FORMS</translation></message>")
FORMS = [
    (NUMBER, 2, "%1 a", "Kyr_jp.ts: 2 forms, not 1, of Kyr_zip_err: '%1 piece'"),
    (NUMBER, 1, "%1 a", "Kyr_fr.ts: 1 forms, not 2, of"),
    (NUMBER, 2, "a", "Kyr_de.ts: other places for arguments than"),
    (NUMBER.replace("pieces", "parts"), 2, "%1 a", "Kyr_de.ts: misses Kyr_zip_err: '%1 piece'"),
    ('QT_TRANSLATE_N_NOOP3("Kyr_zip_err", "%1 piece", "%1 pieces")', 1, "%1 a",
     "Kyr_pt.ts: 1 forms, not 2, of"),
]

# Two texts and their translations; what is complained about.
MENU = """void f() {{ bar->addMenu(translate("Kyr_zip_err", "&Bar"));
  translate("Kyr_zip_err", "&One");
{0}  translate("Kyr_zip_err", "T&wo");
}}
"""
MENUS = [
    (MENU.format(""), "&Eins", "&Zwei", ""),
    (MENU.format(""), "&Eins", "Zw&ei", "Kyr_de.ts: the same accelerator for Kyr_zip_err: '&One'"),
    (MENU.format("}\nvoid g() {\n"), "&Eins", "Zw&ei", ""),
    (MENU.format("").replace("T&wo", "Tw&o"), "&Eins", "&Zwei", "Kyr_en.ts: the same accelerator"),
]

CLASSES = {
    LOW + "KyrLow.h": "class KYR_EXPORT KYR_CAPABILITY(\"mutex\") Low {\n",
    "examples/low/main.cpp": "Low low;",
    "README.md": "`Low`\n```\n`\n```\n",
    "docs/ARCHITECTURE.md": f"| `Low` | is low | [h](../{LOW}KyrLow.h) | [e](../examples/low) |\n",
}
CLASS_FAULTS = [
    ({LOW + "KyrNew.h": "struct New : Low {\n"}, "KyrNew.h: New has no row in"),
    ({"README.md": "`Lower`"}, "KyrLow.h: README.md does not name Low"),
    ({"docs/ARCHITECTURE.md": CLASSES["docs/ARCHITECTURE.md"].replace("KyrLow", "KyrGone")},
     f"there is no ../{LOW}KyrGone.h"),
    ({LOW + "KyrLow.h": "class Lower;\n"}, "KyrLow.h does not name Low"),
    ({"examples/low/main.cpp": "Lower low;"}, "../examples/low uses none of Low"),
]

# A header; what is complained about by the script, or by the compiler of what it writes.
EXAMPLES = [
    ("/// \\code\n/// one = 2;\n///\n/// \\endcode\n", ""),
    ("/// \\code\n/// one = 2;\n /// \\endcode\n/// two;", ""),
    ("/// one = 2;\n", "there is no example"),
    ("/// \\code\n/// one = 2;\nint two;\n", "KyrLow.h:3: the example has no \\endcode"),
    ("/// Text. \\code one = 2;\n/// \\endcode\n", "KyrLow.h:1: the example does not begin"),
    ("/// one = 2;\n/// \\endcode\n", "KyrLow.h:2: the example does not begin"),
    ("\n /// \\code\n /// one = 2;\n /// two = 1;\n /// \\endcode\n", "KyrLow.h:4:"),
]

RESULTS = """<testsuite><testcase name="a.A" status="run"/><testcase name="a.B" status="%s"/>
</testsuite>"""
# Tests of Windows, or the status of a.B; exclusions; what is complained about.
COMPARISON = [
    (["a.A", "a.B", "w.W"], "", ""),
    (["a.A"], "# why\n\na.B  because\n", ""),
    (["a.A", "a.B"], "a.B slow\n", "line 1: a.B is tested on Windows as well"),
    (["a.A"], "", "a.B is missing on Windows and is not excluded"),
    (["a.A"], "a.B\n", "line 1: a.B has no reason"),
    (["a.A"], "a.B x\na.B y\n", "line 2: a.B stands there twice"),
    (["a.A", "a.B"], "a.C gone\n", "line 1: a.C is no test of Linux"),
    ("run", "", ""),
    ("notrun", "a.B skipped\n", ""),
    ("notrun", "", "a.B did not pass on Windows and"),
    ("fail", "", "a.B did not pass on Windows and"),
    ("run", "a.B once failed\n", "line 1: a.B is tested on Windows as well"),
]


def make_writable(program):
    """Adds the right to be written to all parts of a program for 64-bit Linux."""
    image = bytearray(program.read_bytes())
    table, parts = int.from_bytes(image[32:40], "little"), int.from_bytes(image[56:58], "little")
    for part in range(table, table + parts * 56, 56):
        image[part + 4] |= 2
    program.write_bytes(image)


def test_list(names):
    return json.dumps({"tests": [{"name": name} for name in names]})


class Refusals(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)

    def plant(self, files):
        for name, text in files.items():
            path = self.root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.unlink() if text is None else path.write_text(text)

    def expect(self, tool, argument, complaint):
        ran = subprocess.run([sys.executable, "-B", TOOLS / tool, *argument],
                             capture_output=True, text=True, check=False)
        self.assertEqual(ran.stderr, "")
        self.assertEqual(ran.returncode, 1 if complaint else 0, ran.stdout)
        self.assertIn(complaint, ran.stdout)

    def expect_tree(self, tool, change, complaint):
        with self.subTest(complaint):
            shutil.rmtree(self.root)
            self.plant(GOOD)
            self.plant(change)
            self.expect(tool, ["--root", self.root], complaint)

    def test_rooms(self):
        for change, complaint in [({}, ""), *ROOMS]:
            self.expect_tree("check_rooms.py", {"src/base/kyr/core/KyrPlatform.h": None, **change},
                             complaint)

    def test_platform(self):
        for change, complaint in [({}, ""), *PLATFORM]:
            self.expect_tree("check_platform.py", change, complaint)

    def test_classes(self):
        for change, complaint in [({}, ""), *CLASS_FAULTS]:
            self.expect_tree("check_classes.py", {**CLASSES, **change}, complaint)

    def test_examples(self):
        self.plant({"kyr/Kyr.h": "namespace Kyr {}\n", "given.h": "extern int one;\n"})
        source = self.root / "all.cpp"
        for header, complaint in EXAMPLES:
            with self.subTest(complaint):
                self.plant({"KyrLow.h": header})
                command = [sys.executable, "-B", TOOLS / "header_examples.py", source,
                           self.root / "given.h", self.root / "KyrLow.h"]
                ran = subprocess.run(command, capture_output=True, text=True, check=False)
                if ran.returncode == 0:
                    command = [COMPILER, "-fsyntax-only", "-I", self.root, source]
                    ran = subprocess.run(command, capture_output=True, text=True, check=False)
                self.assertEqual(ran.returncode, 1 if complaint else 0, ran.stderr)
                self.assertIn(complaint, ran.stdout + ran.stderr)

    def expect_messages(self, code, messages, complaint):
        files = {f"messages/{part}_{each}.ts": "<TS/>" for each in LANGUAGES
                 for part in ("Examples", "KyrTool")}
        files |= {f"messages/Kyr_{each}.ts": CATALOGUE.replace("%s", messages)
                  for each in LANGUAGES}
        self.expect_tree("check_messages.py", {LOW + "low.cpp": code, **files,
                                               "messages/glossary.tsv": GLOSSARY}, complaint)

    def test_messages(self):
        for code, text, state, translation, complaint in MESSAGES:
            self.expect_messages(code, MESSAGE % (text, state, translation), complaint)
        self.expect_tree("check_messages.py", {}, "messages/Examples_cn.ts is missing")

    def test_forms_of_messages(self):
        for code, count, form, complaint in FORMS:
            forms = f"<numerusform>{form}</numerusform>" * count
            self.expect_messages(code, NUMEROUS.replace("FORMS", forms), complaint)

    def test_accelerators_of_messages(self):
        for code, one, two, complaint in MENUS:
            texts = {"&Bar": "&Eins", "&One": one, "Tw&o" if "Tw&o" in code else "T&wo": two}
            messages = "".join(MESSAGE % (text, "", word) for text, word in texts.items())
            self.expect_messages(code, messages.replace("&", "&amp;"), complaint)

    def test_comparison(self):
        names = [self.root / name for name in ("linux", "windows", "exclusions")]
        for windows, exclusions, complaint in COMPARISON:
            with self.subTest(complaint):
                self.plant({"linux": test_list(["a.A", "a.B"]), "exclusions": exclusions,
                            "windows": RESULTS % windows if isinstance(windows, str)
                                       else test_list(windows)})
                self.expect("windows/compare_tests.py", names, complaint)

    def test_exports(self):
        self.plant(HEADERS)
        library = self.root / "liba.so"
        inside = ["-Wl,--version-script=" + str(TOOLS.parent / "src/base/kyr/exports.map")]
        for code, options, complaint in [
                ("", inside, ""), ("", [], "exports void std::vector<Kyr::A"),
                *((code, [], complaint) for code, complaint in EXPORTS)]:
            with self.subTest(complaint):
                (self.root / "a.cpp").write_text(OURS + code)
                subprocess.run([COMPILER, "-shared", "-fPIC", *options, "-o", library,
                                self.root / "a.cpp"], check=True)
                if "std::" in complaint and library.read_bytes()[:2] == b"MZ":
                    continue  # a DLL exports what is told to, and no instances of templates
                self.expect("check_exports.py", [library, "--headers", self.root], complaint)

    def test_hardening(self):
        machine = subprocess.run([COMPILER, "-dumpmachine"], check=True, capture_output=True,
                                 text=True).stdout
        options, rows = HARDENING, SOFT
        if "mingw" in machine:
            options, rows = [], SOFT_WINDOWS
        elif machine.startswith("x86_64"):
            options, rows = [*HARDENING, "-fcf-protection=full"], SOFT + SOFT_X86_64
        self.plant({"a.cpp": HARDENED})
        program = self.root / "a.exe"
        for fault, complaint in [([], ""), *rows]:
            with self.subTest(complaint):
                subprocess.run([COMPILER, *options, *fault, "-o", program, self.root / "a.cpp"],
                               check=True, capture_output=True)
                self.expect("check_hardening.py", [program], complaint)
        if options != [] and program.read_bytes()[4] == 2:  # of 64 bits
            make_writable(program)
            self.expect("check_hardening.py", [program], "has memory that is written and run")


if __name__ == "__main__":
    unittest.main()
