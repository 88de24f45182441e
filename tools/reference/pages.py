"""The documents of the tree as pages of the reference, with their links to each other kept."""
import os
import re

from headers import PAGE_MENTION

FENCE = re.compile(r"^(```+)(\w*)\s*$")
LINK = re.compile(r"(!?)\[((?:[^\[\]]|\[[^\]]*\])*)\]\(([^()\s]+)\)")
CODE = re.compile(r"`([^`]+)`")
HEADING = re.compile(r"^(#+)\s+(.*?)\s*$")


MAIN = "README.md"  # the document that is the first page


class DeadLink(Exception):
    pass


def page_id(path):
    """The name of a page: 'docs/formats/zip-stream.md' is docs_formats_zip_stream."""
    return re.sub(r"\W", "_", path.removesuffix(".md"))


def slug(heading):
    """The anchor of a heading, as code hosts make it."""
    kept = re.sub(r"[^\w\- ]", "", heading.lower().replace("`", ""))
    return kept.strip().replace(" ", "-")


class Pages:
    """Turns Markdown into that of Doxygen. Knows all pages, and the classes by their names."""

    def __init__(self, root, paths, classes):
        self.root = root
        self.known = {str(path) for path in paths}
        self.classes = classes
        self.images = set()

    def target(self, place, link):
        """What Doxygen calls the place that a link of a document leads to."""
        if re.match(r"\w+:", link):
            return link
        path, _, anchor = link.partition("#")
        path = os.path.normpath(os.path.join(os.path.dirname(place), path)) if path else place
        if path in self.known:
            if path == MAIN and not anchor:
                return "index.html"
            return f"@ref {page_id(path)}" + (f"-{anchor}" if anchor else "")
        if path.startswith("src/base/kyr/") and (self.root / path).is_file():
            return f"@ref {os.path.basename(path)}"
        if path.startswith("examples/") and (self.root / path).is_dir():
            return f"@ref {page_id(path)}"
        raise DeadLink(f"{place}: the link to {link} leads to no page")

    def image(self, place, link):
        path = os.path.normpath(os.path.join(os.path.dirname(place), link))
        if not (self.root / path).is_file():
            raise DeadLink(f"{place}: there is no image {link}")
        self.images.add(path)
        return os.path.basename(path)

    def linked(self, place, text):
        """A piece of text without code: its links lead to pages."""
        def replace(match):
            bang, shown, link = match.groups()
            if bang:
                return f"![{shown}]({self.image(place, link)})"
            return self.link(self.target(place, link), shown)
        return LINK.sub(replace, text)

    @staticmethod
    def link(target, shown):
        """A link as Doxygen reads it, which knows no code between brackets."""
        shown = " ".join(shown.split())  # a line that ends inside would end the link
        if "`" not in shown or not target.startswith("@ref "):
            return f"[{shown}]({target})"
        parts = CODE.split(shown)
        return "".join(f"[{part}]({target})" if number % 2 == 0 else
                       rf'<code>\ref {target.removeprefix("@ref ")} "{part}"</code>'
                       for number, part in enumerate(parts) if part)

    def line(self, place, text):
        """A line with its links."""
        return self.code_links(self.linked(place, text))

    def code_links(self, text):
        """A line in which names of classes in code are links."""
        links = [match.span() for match in LINK.finditer(text)]

        def name(match):
            inside = any(begin <= match.start() < end for begin, end in links)
            full = None if inside else self.classes.get(match[1])
            return rf'<code>\ref {full} "{match[1]}"</code>' if full else escaped(match[1])
        return CODE.sub(name, text)

    def page(self, place, text):
        """A whole document. Its first heading names the page."""
        lines, prose, fence, seen = [], [], None, {}

        def flush():
            lines.extend(self.line(place, "\n".join(prose)).split("\n") if prose else [])
            prose.clear()

        for line in text.splitlines():
            if fence:
                closes = line.strip() == fence
                lines.append("~~~~" if closes else line)
                fence = None if closes else fence
            elif found := FENCE.match(line.strip()):
                flush()
                fence = found[1]
                lines += ["", "~~~~{.cpp}" if found[2] == "cpp" else "~~~~{.unparsed}"]
            elif found := HEADING.match(line):
                flush()
                anchor = self.anchor(place, found[2], seen)
                lines.append(f"{found[1]} {found[2].replace('`', '')} {{#{anchor}}}")
            elif line.startswith("    ") and not prose:
                lines.append(line)  # code
            elif line.strip():
                prose.append(line)
            else:
                flush()
                lines.append(line)
        flush()
        return "\n".join(lines) + "\n"

    @staticmethod
    def anchor(place, heading, seen):
        """What a heading is called: the first one as the page, equal ones with a number."""
        name = slug(heading) if seen else ""
        seen[name] = seen.get(name, -1) + 1
        number = f"-{seen[name]}" if seen[name] else ""
        page = "mainpage" if place == MAIN and not name else page_id(place)
        return page + (f"-{name}{number}" if name else "")


def escaped(code):
    """Code within a line as Doxygen takes it for nothing else. Its Markdown drops a backslash in
    front of some characters before anything else is looked at."""
    if not re.search(r"""[\\@<>&#%|"']""", code):
        return f"`{code}`"
    marked = re.sub(r'[\\@<>&#%|"]', lambda found: "@" + found[0], code)
    return "<code>" + re.sub(r"\\(?=[][*!()`_])", r"\\\\", marked) + "</code>"


def mention(text, titles):
    """A docstring's words about a document, as 'docs/crash.md', as a link to its page."""
    def replace(match):
        path = match[0] if match[0].endswith(".md") else match[0] + "-"
        hits = [page for page in titles if page == path or page.startswith(path)]
        return rf'\ref {page_id(hits[0])} "{titles[hits[0]]}"' if len(hits) == 1 else match[0]
    return PAGE_MENTION.sub(replace, text)
