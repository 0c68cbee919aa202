#!/usr/bin/env python3
"""Makes the pages that say what the sources say.

    pages.py --tool QUAVERA [--check] [records] [messages]

`records` makes docs/records/, a page for each record class, of the rows as the tool tells them;
`messages` makes the table in docs/messages.md. Without either, both. With --check nothing is
written: what differs from the pages as they are is printed, and the exit status is 1.
"""

import argparse
import difflib
import pathlib
import sys

sys.dont_write_bytecode = True

import message_table  # noqa: E402
import record_pages  # noqa: E402

SOURCE = pathlib.Path(__file__).resolve().parent.parent
MAKERS = {"records": record_pages.pages, "messages": message_table.pages}


def differences(path, text):
    """The lines that differ, of the page as it is and as it has to be. Without a text it has to go."""
    name = path.relative_to(SOURCE)
    before = path.read_text(encoding="utf-8") if path.exists() else ""
    return list(difflib.unified_diff(before.splitlines(), (text or "").splitlines(), f"{name}",
                                     f"{name}, as the sources say", lineterm=""))


def settle(path, text, check):
    """Whether a page has been as it has to be."""
    changes = differences(path, text)
    if changes and check:
        print("\n".join(changes))
    elif changes and text is None:
        path.unlink()
    elif changes:
        path.parent.mkdir(exist_ok=True)
        path.write_text(text, encoding="utf-8")
        print(path.relative_to(SOURCE), file=sys.stderr)
    return not changes


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--tool", required=True)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("makers", nargs="*", metavar="records|messages")
    options = parser.parse_args()
    pages = {}
    for maker in options.makers or MAKERS:
        pages.update(MAKERS[maker](SOURCE, options.tool))
    is_same = [settle(path, text, options.check) for path, text in pages.items()]
    print(f"{len(pages)} pages, {is_same.count(False)} of which have changed")
    if options.check and not all(is_same):
        print("./run pages makes them anew")
        sys.exit(1)


if __name__ == "__main__":
    main()
