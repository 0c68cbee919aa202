#!/usr/bin/env python3
"""Runs what pages show, and checks what cannot be run.

    blocks.py --source TREE --prefix PREFIX --work FOLDER [--cmake ARGUMENT]... PAGE...

PREFIX holds the installed package, FOLDER is made anew. Of a page, each block has a kind:

- console: a session. Each line that begins with "$ " is typed into a shell ("> ": goes on), which
  goes on through the page; it begins in a clean folder with copies of tests/data and tools/catalog,
  where `./run demo` runs the installed tool.
  What follows a command is what it has to print, on standard output and standard error; a line
  "..." stands for any number of lines. The port 8080 is a free one here.
- cmake, cpp: a program, which has to build, and with a main function to run (programs.py).
- sh: commands that are not run. What they name has to be there (commands.py).
- gdb: commands that gdb takes without a word; or a transcript, which begins with "(gdb) " and is
  compared where package.Debugger names the page.
- xml, json: has to be well-formed.
- text: an illustration, of which nothing is checked.

With "file=PATH" behind its kind, a block is a part of that file instead; a line "..." stands for any
number of lines. Any other block is an error, and so is a link within the tree that leads nowhere,
and a command in backquotes that is not there.
"""

import argparse
import collections
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.parsers.expat

sys.dont_write_bytecode = True

import commands  # noqa: E402
import markdown  # noqa: E402
import programs  # noqa: E402
import sessions  # noqa: E402


def check_xml(page, block):
    try:
        xml.parsers.expat.ParserCreate().Parse(block.text.strip(), True)
    except xml.parsers.expat.ExpatError as error:
        page.problem(block.line, error)


def check_json(page, block):
    try:
        json.loads(block.text)
    except ValueError as error:
        page.problem(block.line, error)


def check_gdb(page, block):
    if block.text.startswith("(gdb) "):
        debugger = (page.source / "tests/package/DebuggerTest.cmake").read_text(encoding="utf-8")
        if page.name not in debugger:
            page.problem(block.line, "package.Debugger does not compare this transcript")
        return
    with tempfile.NamedTemporaryFile("w", suffix=".gdb") as script:
        script.write(block.text)
        script.flush()
        said = subprocess.run(["gdb", "-nx", "-batch", "-x", script.name], cwd=page.source,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
    if said.returncode != 0 or said.stdout or said.stderr:
        page.problem(block.line, f"gdb says:\n{said.stdout}{said.stderr}")


def check_part(page, block):
    """A block that shows a file."""
    path = page.source / block.attributes.get("file", "")
    if list(block.attributes) != ["file"] or not path.is_file():
        page.problem(block.line, f"{block.attributes} is no file")
        return
    shown = ["...", *block.text.splitlines(), "..."]
    if not sessions.is_as_shown(shown, path.read_text(encoding="utf-8").splitlines()):
        page.problem(block.line, f"this is no part of {block.attributes['file']}")


def leave(page, block):
    """For what is run with the whole page, and for what needs no check."""


KINDS = {"console": leave, "cmake": leave, "cpp": leave, "sh": commands.check_block,
         "gdb": check_gdb, "xml": check_xml, "json": check_json, "text": leave}


def check_blocks(page):
    for block in page.blocks:
        if block.attributes:
            check_part(page, block)
        elif block.kind in KINDS:
            KINDS[block.kind](page, block)
        else:
            page.problem(block.line, f"no test knows blocks of the kind \"{block.kind}\"")


def check_links(page):
    """The number of links within the tree."""
    links = [link for link in page.links() if not re.match(r"[a-z]+:", link)]
    for link in links:
        file, _, anchor = link.partition("#")
        target = (page.path.parent / file).resolve() if file else page.path
        if not target.exists() or page.source not in [target, *target.parents]:
            page.problems.append(f"{page.name}: {link} leads nowhere")
        elif anchor and anchor not in markdown.Page(target, page.source).anchors():
            page.problems.append(f"{page.name}: {link} leads to no heading")
    return len(links)


def tool_commands(prefix):
    told = subprocess.run([prefix / "bin/quavera", "--help"], capture_output=True, text=True, check=True)
    return re.findall(r"^  ([a-z]+) ", told.stdout, re.MULTILINE)


def check(pages, options):
    """Counts of what there was to check."""
    counts = collections.Counter(pages=len(pages))
    kinds = collections.Counter(block.kind for page in pages for block in page.blocks)
    known = tool_commands(options.prefix)
    binaries = options.work / "bin"
    counts["sources built"] = programs.build(pages, options.prefix, options.work / "programs",
                                             binaries, options.cmake)
    programs.run(pages, binaries)
    for page in pages:
        check_blocks(page)
        commands.check_prose(page, known)
        counts["links"] += check_links(page)
        if page.of_kind("console"):
            folder = options.work / "sessions" / page.name
            folder.mkdir(parents=True)
            ran, compared = sessions.run(page, options.prefix, binaries, folder)
            counts["commands"] += ran
            counts["outputs"] += compared
    counts["blocks"] = kinds.total()
    print(", ".join(f"{count} {name}" for name, count in counts.items()))
    print(", ".join(f"{count} {name}" for name, count in sorted(kinds.items())))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--source", required=True, type=pathlib.Path)
    parser.add_argument("--prefix", required=True, type=pathlib.Path)
    parser.add_argument("--work", required=True, type=pathlib.Path)
    parser.add_argument("--cmake", action="append", default=[])
    parser.add_argument("pages", nargs="+", type=pathlib.Path)
    options = parser.parse_args()
    shutil.rmtree(options.work, ignore_errors=True)
    options.source = options.source.resolve()
    pages = [markdown.Page(path.resolve(), options.source) for path in options.pages]
    check(pages, options)
    problems = [problem for page in pages for problem in page.problems]
    print("\n".join(problems))
    if problems:
        print(f"{len(problems)} problems")
        sys.exit(1)


if __name__ == "__main__":
    main()
