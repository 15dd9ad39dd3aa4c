"""Tries links, and the paths that code within the text names."""
import re

EXTERNAL = re.compile(r"https?://[\w.-]+\.[a-z]{2,}(:\d+)?(/\S*)?$")
PATH = re.compile(r"[\w.*-]+(/[\w.*-]+)*/?$")
MADE_BY_THE_BUILD = "build"


class Links:
    def __init__(self, root, pages):
        self.root = root
        self.pages = {page.path: page for page in pages}
        self.top = {entry.name for entry in root.iterdir()} - {MADE_BY_THE_BUILD}
        self.counts = {"files": 0, "anchors": 0, "external (form only)": 0, "paths": 0}
        self.errors = []

    def try_page(self, page):
        for link in page.links:
            self._try_link(page, link)
        for span in page.spans:
            if "/" in span.text and PATH.match(span.text) and span.text.split("/")[0] in self.top:
                self.counts["paths"] += 1
                if not list(self.root.glob(span.text)):
                    self.errors.append(f"{span.place}: there is no {span.text}")

    def _try_link(self, page, link):
        if ":" in link.text:
            self.counts["external (form only)"] += 1
            if not EXTERNAL.match(link.text):
                self.errors.append(f"{link.place}: {link.text} is no address of the web")
            return
        file, _, anchor = link.text.partition("#")
        target = (page.path.parent / file).resolve() if file else page.path
        if file:
            self.counts["files"] += 1
            if not target.exists():
                self.errors.append(f"{link.place}: there is no {file}")
                return
        if anchor:
            self.counts["anchors"] += 1
            if target not in self.pages or anchor not in self.pages[target].anchors:
                self.errors.append(f"{link.place}: {target.name} has no heading #{anchor}")
