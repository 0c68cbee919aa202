"""Run by gdb on the program beside it, or on its core: gives gdb the commands of transcripts, and
compares what it says. A transcript holds "(gdb) COMMAND" lines with the output below each; in a
page, those are the blocks that begin so. Addresses are equal where the transcript's are.

Takes CHECK_TRANSCRIPTS, and CHECK_CORE, a core file to write, from the environment.
"""

import difflib
import os
import re

import gdb

PROMPT = "(gdb) "


def steps_of(path):
    """Commands, each with the output that is expected."""
    with open(path, encoding="utf-8") as file:
        lines = file.read().splitlines()
    if path.endswith(".md"):
        page = "\n".join(lines)
        blocks = re.findall(r"^```gdb\n(\(gdb\) .*?)^```$", page, re.MULTILINE | re.DOTALL)
        lines = "".join(blocks).splitlines()
    steps = []
    for line in lines:
        if line.startswith(PROMPT):
            steps.append((line[len(PROMPT) :], []))
        elif steps:
            steps[-1][1].append(line)
    return steps


def said(command):
    try:
        return gdb.execute(command, to_string=True)
    except gdb.error as problem:
        return str(problem)


def comparable(steps):
    """The transcript's text, with what differs from run to run numbered as it comes."""
    text = "".join(
        PROMPT + command + "\n" + "".join(line.rstrip() + "\n" for line in output if line.strip())
        for command, output in steps
    )
    seen = {}

    def numbered(address):
        return "0x#%d" % seen.setdefault(address[0], len(seen))

    text = re.sub(r"0x[0-9a-f]+", numbered, text)
    text = re.sub(r"^\$\d+ = ", "$ = ", text, flags=re.MULTILINE)
    text = text.replace("_vptr$", "_vptr.")  # as Clang names it
    return re.sub(r"\+\d+>", "+#>", text)


def compare(path):
    gdb.execute("set print pretty off")
    gdb.execute("set print max-depth 20")
    gdb.execute("set print elements 200")
    expected = steps_of(path)
    found = [(command, said(command).splitlines()) for command, _ in expected]
    difference = difflib.unified_diff(
        comparable(expected).splitlines(),
        comparable(found).splitlines(),
        "%s, of %d commands" % (path, len(expected)),
        "what gdb says",
        lineterm="",
    )
    text = "\n".join(difference)
    print(text)
    return len(expected) > 0 and text == ""


def go_to_the_place():
    gdb.execute("set width 0")
    gdb.execute("set height 0")
    if gdb.selected_thread() is None:  # with a core, there is one
        gdb.execute("set disable-randomization off")
        gdb.execute("unset environment MALLOC_PERTURB_")  # it changes freed memory
        gdb.execute("break Stop")
        gdb.execute("run")
    gdb.execute("up")


def check():
    go_to_the_place()
    transcripts = os.environ["CHECK_TRANSCRIPTS"].split(":")
    is_good = all([compare(path) for path in transcripts])
    if "CHECK_CORE" in os.environ:
        gdb.execute("generate-core-file " + os.environ["CHECK_CORE"])
    return is_good


STATUS = 1
try:
    STATUS = 0 if check() else 1
except gdb.error as problem:
    print("gdb: %s" % problem)
gdb.execute("quit %d" % STATUS)
