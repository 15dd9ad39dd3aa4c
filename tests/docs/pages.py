"""What a Markdown page holds that can be tried: links, code blocks and code within the text."""
import dataclasses
import re
import unicodedata

FENCE = re.compile(r"```(\w*)$")
MARK = re.compile(r"<!-- (try|from): (.+) -->$")
SPAN = re.compile(r"`([^`\n]+)`")
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
HEADING = re.compile(r"#+ (.+)")


@dataclasses.dataclass
class Block:
    """A fenced block. The mark is the HTML comment on the line before it: how to try it, or where it is from."""

    place: str
    language: str
    text: str
    mark: str = ""
    mark_kind: str = ""


@dataclasses.dataclass
class Piece:
    """A link or some code within the text."""

    place: str
    text: str


class Page:
    def __init__(self, root, path):
        self.path = path
        self.name = str(path.relative_to(root))
        self.blocks, self.links, self.spans, self.anchors = [], [], [], set()
        self.unused = []
        self._read(path.read_text(encoding="utf-8").splitlines())

    def _read(self, lines):
        mark, block = None, None
        for number, line in enumerate(lines, 1):
            place = f"{self.name}:{number}"
            fence = FENCE.match(line)
            if block is not None:
                if fence:
                    self.blocks.append(block)
                    block = None
                else:
                    block.text += line + "\n"
            elif fence:
                block = Block(place, fence[1], "")
                if mark:
                    block.mark_kind, block.mark = mark[1], mark[2]
                mark = None
            else:
                if mark:
                    self.unused.append(place)
                mark = MARK.match(line)
                self._read_text(place, line)
        if block is not None:
            self.unused.append(block.place)

    def _read_text(self, place, line):
        heading = HEADING.match(line)
        if heading:
            self._add_anchor(heading[1])
        # A vertical bar within a table's cell has a backslash.
        self.spans += [Piece(place, span.replace("\\|", "|")) for span in SPAN.findall(line)]
        self.links += [Piece(place, target) for target in LINK.findall(SPAN.sub("code", line))]

    def _add_anchor(self, title):
        """As the usual hosts make them: small letters, blanks to hyphens, no punctuation, a number when taken."""
        kept = [c for c in title.lower() if c in " -_" or unicodedata.category(c)[0] in "LN"]
        anchor = "".join(kept).replace(" ", "-")
        name, count = anchor, 0
        while name in self.anchors:
            count += 1
            name = f"{anchor}-{count}"
        self.anchors.add(name)
