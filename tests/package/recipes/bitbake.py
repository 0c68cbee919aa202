"""As much of bitbake's language as the recipe is written in: assignments and expansion."""

import re

ASSIGNMENT = re.compile(
    r"^([\w:.${}-]+(?:\[[\w-]+\])?)\s*(=|:=|\?=|\?\?=|\+=|\.=)\s*\"(.*)\"$")


class Recipe:
    """The variables of a file. What it says in any other form is an error."""

    def __init__(self, path, system):
        self.variables = dict(system)
        self.inherited = set()
        text = path.read_text(encoding="utf-8").replace("\\\n", "")
        for line in text.splitlines():
            if not line.strip() or line.startswith("#"):
                continue
            if line.startswith("inherit "):
                self.inherited |= set(line.split()[1:])
                continue
            match = ASSIGNMENT.match(line)
            if not match:
                raise SystemExit(f"{path}: cannot be read: {line}")
            name, operator, value = match.groups()
            name = self.expand(name)
            before = self.variables.get(name, "")
            if operator in ("?=", "??="):
                value = self.variables.get(name, value)
            elif operator == "+=":
                value = f"{before} {value}"
            elif operator == ".=":
                value = before + value
            self.variables[name] = value

    def set(self, name, value):
        self.variables[name] = value

    def expand(self, text):
        """The text with the values of its variables. What is Python, "${@...}", stays."""
        def value_of(match):
            if match.group(1) not in self.variables:
                raise SystemExit(f"no variable: {match.group(1)}")
            return self.expand(self.variables[match.group(1)])
        return re.sub(r"\$\{([\w:.-]+)\}", value_of, text)

    def get(self, name, otherwise=None):
        value = self.variables.get(name, otherwise)
        if value is None:
            raise SystemExit(f"not set: {name}")
        return self.expand(value)

    def package_of(self, path):
        """The first package that names a file or a folder around it, and by which entry."""
        for package in self.get("PACKAGES").split():
            for pattern in self.get(f"FILES:{package}", "").split():
                expression = re.escape(pattern).replace(r"\*", "[^/]*")
                if re.fullmatch(f"{expression}(?:/.*)?", path):
                    return package, pattern
        return None, None
