"""The rooms of the library as pages and as diagrams, from what the build and the architecture say."""
import html
import re
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent))
from check_classes import ROW, names_in  # noqa: E402
from check_rooms import read_rooms  # noqa: E402

TABLE = re.compile(r"^\| `(\w+)` \| (.*) \| [\w, –]+ \|$", re.M)
STYLE = 'bgcolor="transparent"; node [shape=box, style=rounded, fontname="sans-serif", ' \
    'fontsize=12, height=0.35, margin="0.15,0.05"]; edge [arrowsize=0.6]; '


class Rooms:
    """The rooms by name, what they hold, and the rows of their classes."""

    def __init__(self, root):
        self.root = root
        self.library = root / "src/base/kyr"
        self.needs = {name: room.parts["NEEDS"] for name, room in read_rooms(self.library).items()}
        text = (root / "docs/ARCHITECTURE.md").read_text()
        self.holds = dict(TABLE.findall(text))
        self.order = [name for name in self.holds if name in self.needs]
        self.rows = [(names, purpose, header.removeprefix("../src/base/kyr/"), example)
                     for names, purpose, _, header, _, example in ROW.findall(text)]

    def headers(self, room):
        return sorted((self.library / room).glob("Kyr*.h"))

    def classes(self):
        """What each public class is called in full, by its name in the table."""
        found = {}
        for names, _, header, _ in self.rows:
            text = (self.library / header).read_text()
            for name in re.findall(r"[\w:]+", " ".join(re.findall(r"`([^`]+)`", names))):
                last = name.rpartition("::")[2]
                declared = re.search(rf"^(class|struct) (?:KYR_\w+(?:\(.*?\))? )*{last}\b(?!;)", text,
                                     re.M)
                if declared:
                    found[name] = (declared[1], f"Kyr::{name}")
        return found

    def used_by(self, room):
        return [other for other in self.order if room in self.needs[other]]

    def graph(self, shown, marked=None):
        """Rooms and their needs; the arrows that follow from others are left out of the whole."""
        lines = [f"digraph rooms {{ rankdir=BT; ranksep=0.3; nodesep=0.15; {STYLE}"]
        for room in shown:
            bold = ', penwidth=2, fontname="sans-serif bold"' if room == marked else ""
            lines.append(f'{room} [URL="room_{room}.html"{bold}];')
        for room in shown:
            needs = [need for need in self.needs[room] if need in shown]
            if marked:
                needs = [need for need in needs if marked in (room, need)]
            else:
                needs = [need for need in needs if not self.follows(room, need)]
            lines += [f"{room} -> {need};" for need in needs]
        return "\n".join([*lines, "}"])

    def reach(self, room):
        found = set(self.needs[room])
        for need in self.needs[room]:
            found |= self.reach(need)
        return found

    def follows(self, room, need):
        """Whether a need is one of another need, too."""
        return any(need in self.reach(other) for other in self.needs[room] if other != need)

    def page(self, room, documents):
        """The Markdown of a room's page, before its links are turned."""
        neighbours = [room, *self.needs[room], *self.used_by(room)]
        lines = [f"# The room {room}", "", f"Holds {self.holds[room]}.", ""]
        for title, others in (("It needs", self.needs[room]), ("Needed by", self.used_by(room))):
            links = ", ".join(f"[{other}](@ref room_{other})" for other in others)
            lines += [f"{title}: {links or 'no room'}.", ""]
        lines += [picture(self.graph(neighbours, room), f"The room {room} and its neighbours"), ""]
        lines += ["## Classes", "", "| class | what it is for | example |", "|---|---|---|"]
        for names, purpose, header, example in self.rows:
            if header.startswith(room + "/"):
                shown = example.removeprefix("../examples/")
                lines.append(f"| {names} | {purpose} | [{shown}](@ref examples_{shown}) |")
        lines += ["", "## Headers", "", "| header | holds |", "|---|---|"]
        lines += [f"| [{path.name}](@ref {path.name}) | {file_brief(path)} |"
                  for path in self.headers(room)]
        if documents:
            lines += ["", "## Read on", "", *(f"- [{title}](@ref {page})" for page, title in documents)]
        if not any(line.startswith("| `") for line in lines):
            begin = lines.index("## Classes")
            del lines[begin:begin + 5]
        if not self.headers(room):
            begin = lines.index("## Headers")
            lines[begin:begin + 4] = ["It has no public header: other rooms build on it."]
        return "\n".join(lines) + "\n"

    def overview(self):
        """The Markdown of the page of all rooms."""
        lines = ["# Rooms", "", "The library stands in rooms, each one idea. An arrow leads from a room",
                 "to one that it needs; what follows from others is left out.", "",
                 picture(self.graph(self.order), "The rooms and what they need"), "",
                 "| room | holds |", "|---|---|"]
        lines += [f"| [{room}](@ref room_{room}) | {self.holds[room]} |" for room in self.order]
        return "\n".join([*lines, "", *(rf"\subpage room_{room}" + "\n" for room in self.order)])


def file_brief(path):
    """The line behind \\file of a header."""
    return re.search(r"\\file\n/// (.*)", path.read_text())[1]


def picture(graph, title):
    """A graph as a drawing inside of a page, whose lines have the colour of its text."""
    drawn = subprocess.run(["dot", "-Tsvg"], input=graph, text=True, capture_output=True, check=True)
    svg = drawn.stdout[drawn.stdout.index("<svg"):]
    svg = re.sub(r"<title>.*?</title>|<!--.*?-->|xlink:title=\"[^\"]*\"", "", svg, flags=re.S)
    svg = re.sub(r'<svg width="(\d+)pt" height="\d+pt"',
                 rf'<svg role="img" aria-label="{html.escape(title)}" style="max-width:\1pt"', svg)
    svg = svg.replace('"black"', '"currentColor"').replace("<text ", '<text fill="currentColor" ')
    return "\n\\htmlonly\n<div class=\"kyr-diagram\">" + svg.replace("\n", "") + \
        "</div>\n\\endhtmlonly\n"
