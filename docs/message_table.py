"""The table of docs/messages.md: the result codes of common/Branding.h with the texts that the tool
prints for them."""

import re
import subprocess

BEGIN = "<!-- ./run pages makes this table of common/Branding.h and common/MessageTexts.h. -->\n"
END = "<!-- The end of the table. -->\n"
BRANDINGS = ["Quavera", "Ostinex"]


def said(tool, code, branding):
    command = [tool, "error", str(code), "--branding", branding]
    printed = subprocess.run(command, capture_output=True, check=True, text=True)
    return printed.stdout.removesuffix("\n")


def quoted(text):
    """As code, in which Markdown keeps two blanks as they are."""
    return f"`{text}`"


def row(tool, code, result, constants):
    """A code's row. Its texts have to be those of the constant that is called as the code is."""
    texts = [said(tool, code, branding) for branding in BRANDINGS]
    constant = result.removeprefix("QuavResult") if result else "UnknownError"
    expected = [constants[constant].replace("{0}", branding) for branding in BRANDINGS]
    if texts != expected:
        raise SystemExit(f"code {code} gives {texts}, not {expected}")
    named = texts[0] != texts[1]
    return [str(code), quoted(result) if result else "", quoted("kMessage" + constant),
            quoted(texts[0]), quoted(texts[1]) if named else "the same"]


def table(source, tool):
    branding = (source / "common/Branding.h").read_text(encoding="utf-8")
    results = {int(code): name
               for name, code in re.findall(r"^    (QuavResult\w+) = (-?\d+),", branding, re.MULTILINE)}
    texts = (source / "common/MessageTexts.h").read_text(encoding="utf-8")
    constants = dict(re.findall(r'char k(\w+)\[\] = "(.*)";', texts))
    rows = [["code", "its constant", "the text's constant", *(f"by {each}" for each in BRANDINGS)],
            ["---:", "---", "---", "---", "---"]]
    for code in range(max(results), min(results) - 1, -1):
        rows.append(row(tool, code, results.get(code), constants))
    others = [row(tool, code, None, constants)[2:] for code in (max(results) + 1, min(results) - 1)]
    if others[0] != others[1]:
        raise SystemExit(f"codes beyond the table give {others}")
    rows.append(["any other", "", *others[0]])
    return "".join("| " + " | ".join(each) + " |\n" for each in rows)


def pages(source, tool):
    path = source / "docs/messages.md"
    before, rest = path.read_text(encoding="utf-8").split(BEGIN)
    return {path: before + BEGIN + table(source, tool) + END + rest.split(END)[1]}
