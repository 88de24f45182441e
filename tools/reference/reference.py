#!/usr/bin/env python3
"""Makes the reference to browse out of the public headers and the documents.

Writes HTML into a folder, which it empties first; with --check into none that stays. Whatever is
public says what it does, every class has its rule for threads, Doxygen finds nothing wrong, and every
link leads somewhere. Prints one line for each fault; ends with 1 if there is any.
"""
import argparse
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from dead_links import dead_links
from headers import values_without_words, with_shared_docstrings, without_private_types
from pages import DeadLink, Pages, mention, page_id
from rooms import Rooms, picture

ROOT = Path(__file__).resolve().parents[2]
AWESOME = Path("/usr/share/doxygen-awesome-css")
SCRIPTS = {"darkmode-toggle": "DarkModeToggle", "fragment-copy-button": "FragmentCopyButton",
           "paragraph-link": "ParagraphLink"}

# What needs no words: a copy, a comparison, and what a base has said.
WORDLESS = re.compile(
    r"Member (?:(?:\w+::)*(\w+)\((?:const )?\1 ?&&? ?\w*\)|operator=\(|operator(?:==|!=|<=?|>=?)\("
    r"|\w+\(.*\)(?: const)? override )|(?:=|= )(?:delete|default) ")
CLASS = re.compile(r"^(?:template <.*>\n)?(?:class|struct) (?:(?:KYR_\w+|alignas)(?:\(.*?\))? )*(\w+)"
                   r"(?= [:{])", re.M)
GROUPS = [("docs_formats", "File formats", "docs/formats/*.md"),
          ("docs_decisions", "Decisions", "docs/decisions/*.md"),
          ("examples", "Examples", None)]


def without_rule(text):
    """The classes of a header that do not say which threads may use them, with their lines."""
    for found in CLASS.finditer(text):
        docstring = []
        for line in reversed(text[:found.start()].splitlines()):
            if not line.startswith("///"):
                break
            docstring.append(line)
        if r"\threadsafety" not in "\n".join(docstring):
            yield text.count("\n", 0, found.start(1)) + 1, found[1]


def description_first(layout):
    """A layout in which a class says what it is for, with its example, before its members."""
    begin, end = layout.index("<class>"), layout.index("</class>")
    part = re.sub(r"\n *<detaileddescription[^\n]*", "", layout[begin:end])
    part = re.sub(r"<briefdescription[^\n]*", '<detaileddescription title="What it is for"/>', part)
    return layout[:begin] + part + layout[end:]


class Reference:
    def __init__(self, work):
        self.work = work
        self.input = work / "input"
        self.rooms = Rooms(ROOT)
        self.classes = self.rooms.classes()
        self.documents = [path.relative_to(ROOT) for path in (
            ROOT / "README.md", ROOT / "CONTRIBUTING.md", ROOT / "CHANGELOG.md",
            *sorted(ROOT.glob("docs/*.md")), *sorted(ROOT.glob("docs/*/*.md")))]
        self.pages = Pages(ROOT, self.documents, {name: full for name, (_, full) in self.classes.items()})
        self.examples = sorted(path for path in (ROOT / "examples").iterdir() if path.is_dir())
        self.faults = []

    def write(self, name, text):
        path = self.input / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def add_headers(self):
        titles = {str(path): re.sub(r"^\d+\. ", "", self.title(path)) for path in self.documents}
        for header in sorted(self.rooms.library.glob("*/Kyr*.h")):
            text = header.read_text()
            place = header.relative_to(ROOT)
            self.faults += [f"{place}:{line}: {name} has no rule for threads"
                            for line, name in without_rule(text)]
            self.faults += [f"{place}:{line}: {name} has no docstring"
                            for line, name in values_without_words(text)]
            shown = without_private_types(with_shared_docstrings(text))
            self.write("kyr/" + header.relative_to(self.rooms.library).as_posix(),
                       mention(shown, titles))
        shutil.copy(ROOT / "docs/reference/namespaces.dox", self.input)

    def add_places_of_classes(self):
        """Each class names its room, and the program that shows it at work."""
        lines = []
        for names, _, header, example in self.rooms.rows:
            for name in re.findall(r"[\w:]+", names):
                if name in self.classes:
                    kind, full = self.classes[name]
                    room, shown = header.split("/")[0], example.removeprefix("../examples/")
                    lines += [f"/*! \\{kind} {full}", r"\par See also",
                              rf"The room \ref room_{room} ""\"" + room + '", and the example '
                              rf"\ref examples_{shown} ""\"" + shown + '". */']
        self.write("places.dox", "\n".join(lines) + "\n")

    def title(self, path):
        return (ROOT / path).read_text().splitlines()[0].lstrip("# ")

    def about(self, room):
        """The documents that speak of the classes of a room: their pages and titles."""
        names = {name for names, _, header, _ in self.rooms.rows if header.startswith(room + "/")
                 for name in re.findall(r"[\w:]+", names)}
        for path in self.documents:
            place = str(path)
            if place.startswith(("docs/formats", "docs/cookbook")) or place.count("/") == 1:
                code = " ".join(re.findall(r"`([^`\n]+)`", (ROOT / path).read_text()))
                if place != "docs/ARCHITECTURE.md" and names & set(re.findall(r"[\w:]+", code)):
                    yield page_id(place), self.title(path)

    def drawn(self, place, text):
        """A document with the diagrams that belong to it."""
        if place == "docs/ARCHITECTURE.md":
            rooms = picture(self.rooms.graph(self.rooms.order), "The rooms and what they need")
            ways = picture((ROOT / "docs/reference/data.dot").read_text(), "The ways of data")
            text = text.replace("| room | holds | needs |", rooms + "\n| room | holds | needs |", 1)
            text = re.sub(r"^## How data flows$", lambda found: found[0] + "\n" + ways, text, 1, re.M)
        return text

    def add_documents(self):
        for path in self.documents:
            place = str(path)
            text = self.drawn(place, (ROOT / path).read_text())
            page = self.pages.page(place, text) + self.subpages(place)
            if place == "docs/cookbook/README.md":
                page = re.sub(r"^- \[(.*)\]\(@ref (\w+)\)$", r'- \\subpage \2 "\1"', page, flags=re.M)
            if place == "docs/ARCHITECTURE.md":
                page = re.sub(r"^\| `(\w+)` \|", r"| [\1](@ref room_\1) |", page, flags=re.M)
            self.write(f"pages/{page_id(place)}.md", page)
        for name, title, pattern in GROUPS:
            paths = [str(path) for path in self.documents if pattern and path.match(pattern)]
            names = [page_id(path) for path in paths] or \
                [f"examples_{folder.name}" for folder in self.examples]
            lines = [f"# {title} {{#{name}}}", "", *(f"- \\subpage {page}" for page in names)]
            self.write(f"pages/{name}.md", "\n".join(lines) + "\n")

    def subpages(self, place):
        """What hangs below a document in the tree of pages."""
        if place == "README.md":
            below = ["docs_ARCHITECTURE", "rooms", "docs_cookbook_README", "docs_formats",
                     *(page_id(str(path)) for path in self.documents
                       if path.match("docs/*.md") and len(path.parts) == 2
                       and path.stem != "ARCHITECTURE"),
                     "docs_decisions", "examples", "CONTRIBUTING", "CHANGELOG"]
        else:
            return ""
        return "\n".join(["", "## All pages", "", *(f"- \\subpage {page}" for page in below), ""])

    def add_rooms(self):
        for room in self.rooms.order:
            text = self.rooms.page(room, list(self.about(room)))
            self.write(f"pages/room_{room}.md", self.generated(f"room_{room}", text))
        self.write("pages/rooms.md", self.generated("rooms", self.rooms.overview()))

    def generated(self, name, text):
        """A page that is no document: links are Doxygen's already."""
        first, _, rest = text.partition("\n")
        rest = "\n".join(line if "htmlonly" in line or line.startswith("<div")
                         else self.pages.code_links(line) for line in rest.splitlines())
        return f"{first} {{#{name}}}\n{rest}\n"

    def add_examples(self):
        for folder in self.examples:
            sources = sorted([*folder.rglob("*.cpp"), *folder.rglob("*.h")])
            if not sources:
                continue
            lines = [f"# The example {folder.name} {{#examples_{folder.name}}}", ""]
            for source in sources:
                lines += [f"## {source.relative_to(folder)}", "", "~~~~{.cpp}",
                          source.read_text().rstrip(), "~~~~", ""]
            self.write(f"pages/examples_{folder.name}.md", "\n".join(lines))

    def doxygen(self, settings):
        """Runs Doxygen, and keeps what it complains of."""
        log = self.work / "warnings"
        configuration = (ROOT / "docs/reference/Doxyfile").read_text() + "\n".join(
            [f"INPUT = {self.input}", f"STRIP_FROM_PATH = {self.input}", f"WARN_LOGFILE = {log}",
             f"STRIP_FROM_INC_PATH = {self.input}",
             f"IMAGE_PATH = {ROOT}/docs/images", *settings]) + "\n"
        (self.work / "Doxyfile").write_text(configuration)
        subprocess.run(["doxygen", "Doxyfile"], cwd=self.work, check=True, stderr=subprocess.DEVNULL)
        for line in sorted(set(log.read_text().splitlines())):
            if line.strip() and not WORDLESS.search(line):
                self.faults.append(line.replace(f"{self.input}/kyr/", "src/base/kyr/")
                                   .replace(f"{self.input}/", ""))

    def add_everything_else(self):
        self.add_places_of_classes()
        self.add_documents()
        self.add_rooms()
        self.add_examples()

    def make(self, target):
        self.add_headers()
        self.add_everything_else()
        shutil.rmtree(target, ignore_errors=True)
        target.mkdir(parents=True)
        header = self.work / "header.html"
        styles = [AWESOME / "doxygen-awesome.css", AWESOME / "doxygen-awesome-sidebar-only.css",
                  AWESOME / "doxygen-awesome-sidebar-only-darkmode-toggle.css",
                  ROOT / "docs/reference/style.css"]
        extra = [AWESOME / f"doxygen-awesome-{name}.js" for name in SCRIPTS]
        (self.work / "Doxyfile").write_text((ROOT / "docs/reference/Doxyfile").read_text())
        layout = self.work / "layout.xml"
        subprocess.run(["doxygen", "-l", layout], check=True, stdout=subprocess.DEVNULL)
        layout.write_text(description_first(layout.read_text()))
        subprocess.run(["doxygen", "-w", "html", header, self.work / "footer.html",
                        self.work / "style.css", "Doxyfile"], cwd=self.work, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        loaded = "".join(
            f'<script type="text/javascript" src="$relpath^doxygen-awesome-{name}.js"></script>\n'
            f'<script type="text/javascript">DoxygenAwesome{script}.init()</script>\n'
            for name, script in SCRIPTS.items())
        header.write_text(header.read_text().replace("</head>", loaded + "</head>"))
        self.doxygen(["GENERATE_HTML = YES", f"HTML_OUTPUT = {target}", f"HTML_HEADER = {header}", f"LAYOUT_FILE = {layout}",
                      "HTML_EXTRA_STYLESHEET = " + " ".join(map(str, styles)),
                      "HTML_EXTRA_FILES = " + " ".join(map(str, extra))])
        self.faults += dead_links(target)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true", help="keep nothing")
    parser.add_argument("output", type=Path, nargs="?", help="the folder for the HTML")
    arguments = parser.parse_args()
    if arguments.check == bool(arguments.output):
        parser.error("either --check or a folder")
    with tempfile.TemporaryDirectory(prefix="kyr-reference-") as work:
        reference = Reference(Path(work))
        try:
            reference.make((arguments.output or Path(work, "html")).resolve())
        except DeadLink as fault:
            reference.faults.append(str(fault))
        print(*reference.faults, sep="\n", end="\n" if reference.faults else "")
        return 1 if reference.faults else 0


if __name__ == "__main__":
    sys.exit(main())
