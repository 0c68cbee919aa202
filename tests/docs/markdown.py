"""A page: its blocks, its links, its headings."""

import re
from dataclasses import dataclass

FENCE = re.compile(r"^```(\w*)((?: +\w+=\S+)*)$")
ALMOST = re.compile(r"^\s*[>*+-]?\s*(```|~~~)|<(pre|code)\b")
HEADING = re.compile(r"^#{1,6} (.*)$", re.MULTILINE)
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
CODE = re.compile(r"`[^`\n]+`")


@dataclass
class Block:
    kind: str
    attributes: dict
    line: int
    text: str


class Page:
    def __init__(self, path, source):
        self.path = path
        self.source = source
        self.name = str(path.relative_to(source))
        self.blocks = []
        self.problems = []
        self.prose = ""
        self._read(path.read_text(encoding="utf-8").splitlines())

    def _read(self, lines):
        block = None
        for number, line in enumerate(lines, 1):
            fence = FENCE.match(line)
            if block is not None and line == "```":
                self.blocks.append(block)
                block = None
            elif block is not None:
                block.text += line + "\n"
            elif fence:
                attributes = dict(word.split("=", 1) for word in fence[2].split())
                block = Block(fence[1], attributes, number, "")
            else:
                self._read_prose(number, line)
        if block is not None:
            self.problem(block.line, "a block that does not end")

    def _read_prose(self, number, line):
        is_after_blank = self.prose.endswith("\n\n") or not self.prose
        within_list = re.search(r"^([-*]|\d+\.) (?:(?!^[^\s\d*-]).*\n)*\Z", self.prose, re.MULTILINE)
        if ALMOST.search(CODE.sub("", line)) or (
                re.match(r"    |\t", line) and is_after_blank and not within_list):
            self.problem(number, "a block that no test sees: begin it with ``` and its kind")
        self.prose += line + "\n"

    def problem(self, line, text):
        self.problems.append(f"{self.name}:{line}: {text}")

    def of_kind(self, kind):
        return [block for block in self.blocks if block.kind == kind and not block.attributes]

    def links(self):
        return LINK.findall(CODE.sub("", self.prose))

    def codes(self):
        """What stands in backquotes, of the prose."""
        return [code.strip("`") for code in CODE.findall(self.prose)]

    def anchors(self):
        """The names that headings have as the ends of links."""
        names = []
        for heading in HEADING.findall(self.prose):
            text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).lower()
            names.append(re.sub(r"[^\w\- ]", "", text).replace(" ", "-"))
        return names
