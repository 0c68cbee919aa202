#!/usr/bin/env python3
"""Draws the pictures on pages by graphviz, or looks whether they are as drawn.

    pictures.py [--dot DOT] [--check] FILE.dot...

Each is drawn into FILE.svg, which says what it was drawn of. With --check nothing is written: the
picture has to be of that source, to have all of its labels, and to need nothing but itself; where
DOT is of the version that drew it, it has to draw the same. Letters are as wide as the fonts of the
machine have them, so numbers do not count there.
"""

import argparse
import hashlib
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree

TEXT = "{http://www.w3.org/2000/svg}text"
LABEL = re.compile(r'\blabel="((?:[^"\\]|\\.)*)"')
VERSION = re.compile(r"graphviz version (\S+)")


def mark_of(source):
    digest = hashlib.sha256(source.read_bytes()).hexdigest()
    return f"<!-- Drawn of {source.name}, SHA-256 {digest} -->\n"


def drawn(dot, source):
    made = subprocess.run([dot, "-Tsvg", source], capture_output=True, text=True, check=True)
    return made.stdout.replace("<svg ", mark_of(source) + "<svg ", 1)


def version_of(dot):
    said = subprocess.run([dot, "-V"], capture_output=True, text=True, check=True)
    return VERSION.search(said.stdout + said.stderr)[1]


def shape(picture):
    """What of a picture does not depend on fonts."""
    return re.sub(r'-?\d+(\.\d+)?[,\s]?', "", re.sub(r' (d|points)="[^"]*"', "", picture))


def problems(source, picture, dot):
    if mark_of(source) not in picture:
        yield "it is of another source"
    texts = {each.text for each in xml.etree.ElementTree.fromstring(picture).iter(TEXT)}
    for label in LABEL.findall(source.read_text(encoding="utf-8")):
        for line in label.split("\\n"):
            if line.strip() not in {text.strip() for text in texts}:
                yield f"it lacks \"{line}\""
    yield from (f"it needs {other}" for other in
                re.findall(r"(?:href=|url\(|@import|<image|<style|<script|font-face)[^ >]*", picture))
    if dot and version_of(dot) == VERSION.search(picture)[1]:
        if shape(drawn(dot, source)) != shape(picture):
            yield "it is not what graphviz draws"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--dot")
    parser.add_argument("--check", action="store_true")
    parser.add_argument("sources", nargs="+", type=pathlib.Path)
    options = parser.parse_args()
    count = 0
    for source in options.sources:
        place = source.with_suffix(".svg")
        if not options.check:
            place.write_text(drawn(options.dot, source), encoding="utf-8")
            continue
        for problem in problems(source, place.read_text(encoding="utf-8"), options.dot):
            print(f"{place.name}: {problem}; ./run pages draws it")
            count += 1
    print(f"{len(options.sources)} pictures, {count} problems")
    sys.exit(1 if count else 0)


if __name__ == "__main__":
    main()
