"""Lists of reviewed exceptions: what is known, looked at, and has its reason beside it.

A list is a text of paragraphs, each an exception:

    platform/Arena.cpp
        constexpr std::size_t kFirstBlockSize = 256;
        256 -> *
        Another size of the first block costs time or memory, and changes no result.

The file, the line as it stands there, what the exception is of that line, and the reason, of one
line or more. "*" stands for anything. Lines of source are named by their text, not by their number,
so that an exception goes stale when its line changes, not when another one does; a line that its
file has more than once has the text of the one before it, and " / ", ahead of its own. Paragraphs
whose first line begins with "#" are comments.
"""

import collections
import dataclasses
import fnmatch
import pathlib


class BadList(Exception):
    """A list that says less than it has to."""


def matches(text, pattern):
    """Whether a text is the pattern's, in which "*" alone is special."""
    return fnmatch.fnmatchcase(text, pattern.replace("[", "[[]").replace("?", "[?]"))


def name_lines(source):
    """How the lines of a source are named, in their order."""
    texts = [line.strip() for line in source.split("\n")]
    times = collections.Counter(texts)
    return [
        text if times[text] == 1 else f"{before} / {text}"
        for before, text in zip(["", *texts], texts)
    ]


@dataclasses.dataclass
class Entry:
    path: str
    line: str
    what: str
    reason: str
    uses: int = 0

    def __str__(self):
        return f"{self.path}: {self.line}: {self.what}"


class ReviewedList:
    def __init__(self, path):
        self.entries = []
        for paragraph in pathlib.Path(path).read_text(encoding="utf-8").split("\n\n"):
            lines = [line.strip() for line in paragraph.strip().split("\n")]
            if lines == [""] or lines[0].startswith("#"):
                continue
            if len(lines) < 4 or not all(lines):
                raise BadList(f"{path}: not a file, a line, what of it and a reason:\n{paragraph}")
            self.entries.append(Entry(*lines[:3], " ".join(lines[3:])))

    def find(self, path, line, what):
        """The exception for something of a line, which then counts as used; or none."""
        for entry in self.entries:
            if (
                entry.path == path
                and entry.line == line
                and matches(what, entry.what)
            ):
                entry.uses += 1
                return entry
        return None

    def unused(self):
        return [entry for entry in self.entries if entry.uses == 0]
