"""Follows all links inside of a folder of HTML, and finds those that did not become any."""
import urllib.parse
from html.parser import HTMLParser


class Page(HTMLParser):
    """The places of a page, and the links that leave from it."""

    def __init__(self, text):
        super().__init__()
        self.places, self.links, self.raw = set(), set(), False
        self.feed(text)

    def handle_data(self, data):
        self.raw = self.raw or "@ref " in data or "@section " in data or "](@" in data

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name == "id" or (name == "name" and tag == "a"):
                self.places.add(value)
            elif name in ("href", "src", "xlink:href") and value:
                self.links.add(value)


def dead_links(folder):
    """A line for each link to a file or a place that is not there; none of a folder without pages
    would be one, so that is a fault of its own."""
    pages = {path.name: Page(path.read_text()) for path in sorted(folder.glob("*.html"))}
    if not pages:
        return [f"{folder} has no pages"]
    found = []
    for name, page in pages.items():
        if page.raw:
            found.append(f"{name}: shows a command of Doxygen as text")
        for link in sorted(page.links):
            if urllib.parse.urlparse(link).scheme:
                continue
            path, _, place = urllib.parse.unquote(link).partition("#")
            path = path or name
            if not (folder / path).exists():
                found.append(f"{name}: the link to {link} leads to no file")
            elif place and path in pages and place not in pages[path].places:
                found.append(f"{name}: the link to {link} leads to no place")
    return found
