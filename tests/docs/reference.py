#!/usr/bin/env python3
"""Makes the reference, and looks whether it is complete and the same wherever it is made.

    reference.py --source DIR --build DIR --work DIR --headers DIR --cmake CMAKE --doxygen DOXYGEN

HEADERS is the installed folder of headers. The reference is made of the sources as they are, then of a
copy of them in another place, and of that copy with one remark less, which has to fail.
"""

import argparse
import filecmp
import html
import pathlib
import re
import shutil
import subprocess
import sys

RECORD = re.compile(r"^QUAVERA_RECORD\((\w+)", re.MULTILINE)
FIELD = re.compile(r"^    [\w:<>]+(?: [\w:<>]+)* (\w+)(?: = [^;]+)?;", re.MULTILINE)
REMARK = re.compile(r" *///< .*")
TITLE = re.compile(r"<title>\w+: (\S+) File Reference</title>")
OF_FILES = re.compile(r"generated from the following files?:<ul>(.*?)</ul>", re.DOTALL)
ITEM = re.compile(r"<li>(.*?)</li>", re.DOTALL)
ROW = re.compile(
    r'<tr class="memitem:(\w+)".*?class="memItemRight"[^>]*>(.*?)</td></tr>\s*'
    r'(?:<tr class="memdesc:\1">.*?class="mdescRight">(.*?)</td></tr>)?',
    re.DOTALL,
)
LOADED = re.compile(r"""(?:\bsrc=|<link[^>]*\bhref=|@import\s|\burl\()\s*["'(]*(?:https?:)?//""")
TIME = re.compile(r"Generated on|\b20\d\d-\d\d-\d\d\b|\b\d\d:\d\d:\d\d\b")
TEXT_FILES = {".html", ".css", ".js", ".svg"}

failures = []


def expect(condition, message):
    if not condition:
        failures.append(message)


def plain(markup):
    return html.unescape(re.sub(r"<[^>]*>", "", markup)).strip()


def make(options, doxyfile, folder):
    """The pages, and what was said while they were made; no pages where that failed."""
    folder.mkdir(parents=True)
    configured = folder / "Doxyfile"
    configured.write_text(f'{doxyfile}\nOUTPUT_DIRECTORY = "{folder}"\n', encoding="utf-8")
    done = subprocess.run(
        [options.cmake, f"-DDOXYGEN={options.doxygen}", f"-DDOXYFILE={configured}",
         f"-DOUTPUT_DIR={folder}", "-P", str(options.source / "cmake/MakeReference.cmake")],
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    return (folder / "html" if done.returncode == 0 else None), done.stdout


def own_headers(options):
    """The installed headers but those that gSOAP has generated, by the paths they are included by."""
    paths = [path.relative_to(options.headers) for path in options.headers.rglob("*.*")]
    return {str(path) for path in paths
            if path.parts[0] != "soap" or (options.source / path).exists()}


def documented_headers(pages):
    """Those with a page, and those that pages of classes name; by the paths of their sources."""
    found = set()
    for page in pages.glob("*.html"):
        text = page.read_text(encoding="utf-8")
        found.update(TITLE.findall(text))
        for files in OF_FILES.findall(text):
            found.update(plain(item) for item in ITEM.findall(files))
    return found


def check_record(pages, headers, record):
    header = (headers / "records" / f"{record}.h").read_text(encoding="utf-8")
    fields = FIELD.findall(header)
    expect(fields or record == "DataStation", f"{record}: its header shows no fields")
    page = pages / f"class{record}.html"
    if not page.exists():
        failures.append(f"{record}: no page")
        return
    remarks = {}
    for _, declaration, remark in ROW.findall(page.read_text(encoding="utf-8")):
        remarks[plain(declaration).split(" = ")[0]] = plain(remark)
    for field in fields:
        expect(remarks.get(field), f"{record}::{field}: no remark on its page")


def check_contents(options, pages):
    for page in sorted(pages.rglob("*")):
        if page.suffix not in TEXT_FILES:
            continue
        text = page.read_text(encoding="utf-8")
        for folder in (options.source, options.build, options.work):
            expect(str(folder) not in text, f"{page.name} names {folder}")
        expect(not LOADED.search(text), f"{page.name} loads what is elsewhere")
        if page.suffix == ".html":
            time = TIME.search(text)
            expect(not time, f"{page.name} tells a time: {time}")


def files_below(folder):
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file())


def check_same(pages, others):
    names = files_below(pages)
    expect(names == files_below(others), "made elsewhere, the reference has other pages")
    _, different, unreadable = filecmp.cmpfiles(pages, others, names, shallow=False)
    expect(not different, f"made elsewhere, these pages differ: {different}")
    expect(not unreadable, f"made elsewhere, these pages are missing: {unreadable}")


def copy_inputs(options, doxyfile, folder):
    """Copies what the reference is made of, and returns the Doxyfile for the copy."""
    # The build may be within the source: it is looked for first.
    places = {str(options.build): str(folder / "build"), str(options.source): str(folder / "source")}
    place = re.compile("|".join(re.escape(path) for path in places))

    def moved(text):
        return place.sub(lambda found: places[found.group()], text)

    for path in re.findall(r'"([^"]*\.(?:h|def|md|sed))\\?"', doxyfile):
        copy = pathlib.Path(moved(path))
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(path, copy)
    return moved(doxyfile)


def main():
    parser = argparse.ArgumentParser()
    for name in ("source", "build", "work", "headers"):
        parser.add_argument(f"--{name}", type=pathlib.Path, required=True)
    parser.add_argument("--cmake", required=True)
    parser.add_argument("--doxygen", required=True)
    options = parser.parse_args()
    doxyfile = (options.build / "reference/Doxyfile").read_text(encoding="utf-8")

    pages, said = make(options, doxyfile, options.work / "here")
    if pages is None:
        sys.exit(f"the reference is not complete:\n{said}")
    expect(not said, f"unexpected output:\n{said}")

    installed = own_headers(options)
    documented = {re.sub("^generated/", "", path) for path in documented_headers(pages)}
    expect(len(installed) > 30, f"hardly any headers are installed: {installed}")
    expect(installed == documented,
           f"not in the reference: {sorted(installed - documented)}; "
           f"not installed: {sorted(documented - installed)}")
    records = RECORD.findall((options.headers / "records/Records.def").read_text(encoding="utf-8"))
    expect(len(records) >= 18, f"records are missing: {records}")
    for record in records:
        check_record(pages, options.headers, record)
    check_contents(options, pages)

    elsewhere = options.work / "elsewhere"
    doxyfile = copy_inputs(options, doxyfile, elsewhere)
    others, said = make(options, doxyfile, options.work / "there")
    if others is None:
        sys.exit(f"made elsewhere, the reference is not complete:\n{said}")
    check_same(pages, others)

    header = elsewhere / "source/records/DataImage.h"
    lines = header.read_text(encoding="utf-8").split("\n")
    lines = [REMARK.sub("", line) if " width " in line else line for line in lines]
    header.write_text("\n".join(lines), encoding="utf-8")
    failed, said = make(options, doxyfile, options.work / "incomplete")
    expect(failed is None, "a field without a remark is taken")
    expect("Member width (variable) of class DataImage is not documented" in said,
           f"a field without a remark is not named:\n{said}")

    if failures:
        sys.exit("\n".join(failures))
    print(f"{len(files_below(pages))} files for {len(installed)} headers, {len(records)} records")


if __name__ == "__main__":
    main()
