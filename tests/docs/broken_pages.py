#!/usr/bin/env python3
"""Tells whether blocks.py sees what is wrong: runs it on pages with one fault each, and on one without.

    broken_pages.py --source TREE --prefix PREFIX --work FOLDER [--cmake ARGUMENT]...
"""

import argparse
import pathlib
import shutil
import subprocess
import sys

NEEDED = ["run", "CMakeLists.txt", "CMakePresets.json", "cmake", "tests/data", "tools/catalog",
          "tests/package/DebuggerTest.cmake"]


def block(kind, text):
    return f"```{kind}\n{text}\n```\n"


# What a page shows, and what is said of it; nothing of the first.
PAGES = [
    ("# A good page\n\n[here](#a-good-page)\n" + block("console", "$ quavera error 0\nSuccess") +
     block("console", "$ printf 'a\\nb\\nc\\n'\na\n...") + block("sh", "./run test\nls tests/data") +
     block("cpp", "#include \"common/Branding.h\"\nint main() { return QuavResultSuccess; }") +
     block("xml", "<a/>") + block("json", "{}") + block("text", "?") +
     block("xml file=tests/data/DataIndex/full.tree.xml",
           "<Index><Letter>4D</Letter><Start>1204</Start></Index>") +
     "\n- a list\n\n    that goes on\n\n`./run test`, `quavera show`, `-DQUAVERA_TOOL=OFF`\n", None),
    (block("console", "$ quavera error 0\nSucces"), "printed:\nSuccess"),
    (block("console", "$ quavera error 0"), "printed:\nSuccess"),
    (block("console", "$ true\nSuccess"), "shown:\nSuccess\nprinted:\n"),
    (block("python", "print()"), "no test knows blocks of the kind \"python\""),
    (block("", "what"), "no test knows blocks of the kind \"\""),
    ("```text\nwithout an end\n", "a block that does not end"),
    ("~~~\nwhat\n~~~\n", "a block that no test sees"),
    ("  ```cpp\n  int x\n  ```\n", "a block that no test sees"),
    ("- a list\n  ```sh\n  ls\n  ```\n", "a block that no test sees"),
    ("A text\n\n    $ quavera error 0\n", "a block that no test sees"),
    ("<pre>x</pre>\n", "a block that no test sees"),
    (block("cpp", "int F() { return x; }"), "does not build"),
    (block("cpp", "int G();\nint F() { return G(); }"), "does not build"),
    (block("cpp", "int main() { return 3; }"), "with status 3"),
    (block("cmake", "find_package(Quaver REQUIRED)\ntarget_link_libraries(app Quaver::x)"),
     "does not build"),
    (block("sh", "./run tset"), "./run has no command tset"),
    (block("sh", "cmake -S . -DQUAVERA_TOLL=OFF"), "the build has no option QUAVERA_TOLL"),
    (block("sh", "cmake --preset relase"), "there is no preset relase"),
    (block("sh", "cd / && no-such-program"), "there is no program no-such-program"),
    (block("sh", "cat tests/data/none.xml"), "tests/data/none.xml is not there"),
    (block("sh", "build/tools/quavra show"), "is nothing that the build makes"),
    (block("sh", "quavera error 0"), "belongs in a block \"console\""),
    (block("sh", "for x in; do"), "syntax error"),
    (block("gdb", "no-such-command"), "Undefined command"),
    (block("gdb", "(gdb) print 1\n$1 = 2"), "package.Debugger does not compare this transcript"),
    (block("xml", "<a></b>"), "mismatched tag"),
    (block("json", "{a}"), "Expecting property name"),
    (block("xml file=tests/data/none.xml", "<a/>"), "is no file"),
    (block("text file=tests/data/DataIndex/full.txt", "letter = N"), "this is no part of"),
    ("[there](none.md)\n", "none.md leads nowhere"),
    ("![there](none.svg)\n", "none.svg leads nowhere"),
    ("[there](../../../etc/passwd)\n", "leads nowhere"),
    ("# Here\n\n[there](#there)\n", "#there leads to no heading"),
    ("`./run tset`\n", "./run has no command tset"),
    ("`quavera shwo`\n", "the tool has no command shwo"),
    ("`-DQUAVERA_TOLL=OFF`\n", "the build has no option QUAVERA_TOLL"),
]


def copy(source, tree):
    for name in NEEDED:
        place = tree / name
        place.parent.mkdir(parents=True, exist_ok=True)
        (shutil.copytree if (source / name).is_dir() else shutil.copy)(source / name, place)


def said_of(page, output):
    """What is printed of a page, up to what is printed of another one."""
    lines = output.splitlines()
    starts = [at for at, line in enumerate(lines) if line.startswith("page")] + [len(lines)]
    return ["\n".join(lines[at:after]) for at, after in zip(starts, starts[1:])
            if lines[at].startswith(page + ":")]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--source", required=True, type=pathlib.Path)
    parser.add_argument("--prefix", required=True)
    parser.add_argument("--work", required=True, type=pathlib.Path)
    options, arguments = parser.parse_known_args()
    shutil.rmtree(options.work, ignore_errors=True)
    tree = options.work / "tree"
    copy(options.source, tree)
    failures = 0
    names = [f"page{at:02}.md" for at in range(len(PAGES))]
    for name, (text, _) in zip(names, PAGES):
        (tree / name).write_text(text, encoding="utf-8")
    # The one whose project cannot be configured leaves no other to be built.
    alone = [name for name, (text, _) in zip(names, PAGES) if "Quaver::x" in text]
    output = ""
    for pages in ([name for name in names if name not in alone], alone):
        told = subprocess.run(
            [sys.executable, options.source / "tests/docs/blocks.py", "--source", tree,
             "--prefix", options.prefix, "--work", options.work / "pages", *arguments,
             *(tree / name for name in pages)], capture_output=True, text=True, check=False)
        failures += told.returncode != 1
        output += told.stdout + told.stderr
    for name, (text, expected) in zip(names, PAGES):
        said = said_of(name, output)
        is_seen = bool(said) and all(expected in each for each in said) if expected else not said
        if not is_seen:
            failures += 1
            print(f"{text}gives {said}, not \"{expected}\"")
    print(f"{len(PAGES)} pages, {failures} of which are not judged right")
    if failures:
        print(output)
        sys.exit(1)


if __name__ == "__main__":
    main()
