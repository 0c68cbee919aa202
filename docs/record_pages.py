"""The pages of the record classes: of `quavera records --json`, which tells what the rows say, of
docs/records/remarks.md, and of the documents in tests/data."""

import json
import re
import subprocess

NOTE = """<!-- ./run pages makes this page of records/{name}.cpp and docs/records/remarks.md. -->
"""


def table(head, rows):
    lines = [head, ["---"] * len(head), *rows]
    return "".join("| " + " | ".join(line) + " |\n" for line in lines)


def link(name):
    return f"[{name}]({name}.md)"


def reads(record):
    return "its parent" if record["reads"] == "parent" else "the element"


def request(record):
    if "request" not in record:
        return ""
    is_list = record["answer"] != record["soapRecord"]
    return f"`{record['request']}`" + (f", a list in `{record['answer']}`" if is_list else "")


def element_rows(elements, path=""):
    """A row for each element, those within it after it."""
    for each in elements:
        inner = path + each["name"] + "/"
        form = each["form"].split(";")[0].removesuffix(", " + each.get("writtenIf", ""))
        written = each.get("writtenIf", "if present") if each["written"] else "no"
        read = ("yes, " + each["readForm"] if "readForm" in each else "yes") if each["read"] else "no"
        yield [f"`{path}{each['name']}`", each["type"], form, written, read]
        if "item" in each:
            inner += each["item"] + "/"
        yield from element_rows(each.get("elements", []), inner)


def line_rows(lines, number=""):
    """A row for each line of the log text, those of a record within it after it."""
    for at, each in enumerate(lines, 1):
        yield [f"{number}{at}", f'`"{each["label"]}"`', each["type"], each["form"]]
        yield from line_rows(each.get("lines", []), f"{number}{at}.")


def indented(tree):
    """A tree's text with one element a line."""
    depth = 0
    lines = []
    for token in re.split(r"(?<=>)(?=<)", tree.strip()):
        depth -= token.startswith("</")
        lines.append("  " * depth + token)
        depth += not token.startswith("</") and "</" not in token and not token.endswith("/>")
    return "\n".join(lines)


def example(record, is_first, folder):
    """A session with the class's full document. What it prints is what the tests expect, too."""
    name = record["class"]
    place = f"tests/data/{name}/full"
    option = "" if is_first else f"--record {name} "
    tree = (folder / name / "full.tree.xml").read_text(encoding="utf-8")
    text = (folder / name / "full.txt").read_text(encoding="utf-8")
    return (f"```console\n$ quavera tree --indent {place}.xml\n{indented(tree)}\n"
            f"$ quavera text {option}{place}.tree.xml\n" + text.rstrip("\n") + "\n```\n")


def remarks_of(text):
    """The sections of the remarks, by class."""
    sections = re.split(r"^## (\w+)\n\n", text, flags=re.MULTILINE)
    return dict(zip(sections[1::2], (section.strip() + "\n" for section in sections[2::2])))


def check_remarks(remarks, records, source):
    """What remarks name has to be there: in the class's rows or header, or in the verbs."""
    names = {record["class"] for record in records}
    if not set(remarks) <= names:
        raise SystemExit(f"remarks on no record class: {set(remarks) - names}")
    verbs = (source / "records/Fields.h").read_text(encoding="utf-8")
    for name, text in remarks.items():
        own = "".join((source / f"records/{name}{ending}").read_text(encoding="utf-8")
                      for ending in (".h", ".cpp"))
        base = re.search(r"class QUAVERA_API \w+ : public (Data\w+)", own)
        if base:
            own += (source / f"records/{base[1]}.cpp").read_text(encoding="utf-8")
        for code in re.findall(r"`([^`]+)`", text):
            if code.strip('"') not in own + verbs and code not in names:
                raise SystemExit(f"remarks on {name}: `{code}` is not in its sources")


def page(record, soap, remarks, is_first, source):
    name = record["class"]
    facts = [["SOAP record", f"`Quavera::{soap}`, on the wire `{record['soapRecord']}`"],
             ["element", f"`{record['element']}`"],
             ["`FromXML` reads", reads(record)],
             ["request", request(record) or "none: it comes within others"],
             ["header, rows", f"[{name}.h](../../records/{name}.h), "
                              f"[{name}.cpp](../../records/{name}.cpp)"]]
    return (NOTE.format(name=name) + f"# {name}\n\n" + table(["what", "which"], facts) +
            "\n## Elements\n\nIn the order in which they are written; after them, what is only read.\n\n" +
            table(["element", "type", "form", "written", "read"], element_rows(record["elements"])) +
            "\n## Log text\n\nEach line ends in CR LF.\n\n" +
            table(["#", "line begins with", "type", "what follows"], line_rows(record["text"])) +
            "\n## Example\n\n" + example(record, is_first, source / "tests/data") +
            "\n## Deliberate oddities\n\n" + remarks.get(name, "None.\n"))


def index(records, soap):
    rows = [[link(record["class"]), f"`{soap[record['class']]}`", f"`{record['element']}`",
             reads(record), request(record)] for record in records]
    return ("<!-- ./run pages makes this page of records/Records.def. -->\n# Records\n\n"
            "A page for each record class: its elements, the lines of its log text, an example, and "
            "what is odd on\npurpose ([all of that together](remarks.md)).\n"
            "[How a record travels](../how-a-record-travels.md) tells what the forms are for,\n"
            "[adding a record](../adding-a-record.md) how a class is written.\n\n" +
            table(["class", "SOAP record", "element", "`FromXML` reads", "request"], rows))


def pages(source, tool):
    """Paths and texts. A page of a class that is no more has none."""
    told = subprocess.run([tool, "records", "--json"], capture_output=True, check=True)
    records = json.loads(told.stdout)
    registration = (source / "records/Records.def").read_text(encoding="utf-8")
    soap = dict(re.findall(r"^QUAVERA_RECORD\((\w+), (\w+),", registration, re.MULTILINE))
    folder = source / "docs/records"
    remarks = remarks_of((folder / "remarks.md").read_text(encoding="utf-8"))
    check_remarks(remarks, records, source)
    made = {path: None for path in folder.glob("Data*.md")}
    made[folder / "README.md"] = index(records, soap)
    elements = set()
    for record in records:
        name = record["class"]
        is_first = record["element"] not in elements
        elements.add(record["element"])
        made[folder / f"{name}.md"] = page(record, soap[name], remarks, is_first, source)
    return made
