"""The places of a C++ source where one small change should make a test fail.

A change is a mutant: one operator, constant, text or statement is another one, or gone. Sources are
read as tokens, in the layout that clang-format gives them: blanks on both sides of an operator tell
a comparison from a template's brackets, and a product from a pointer.
"""

import dataclasses
import re

import reviewed

TOKEN = re.compile(
    r"""
    (?P<comment>   //[^\n]* | /\*.*?\*/ )
  | (?P<directive> (?m:^)[ ]*\#[ ]*(?:include|if|ifdef|ifndef|else|elif|endif|undef|pragma|error)
                   (?:[^\n\\]|\\\n|\\.)* | (?m:^)[ ]*\#[ ]*define[ ]+\w+(?:\([^)]*\))? )
  | (?P<text>      R"(?P<fence>[^(\s]*)\(.*?\)(?P=fence)" | [LuU]?8?"(?:[^"\\\n]|\\.)*" )
  | (?P<character> L?'(?:[^'\\\n]|\\.)+' )
  | (?P<number>    \b(?:0[xX][0-9A-Fa-f]+|[0-9]+)[uUlL]*\b )
  | (?P<word>      [A-Za-z_]\w* )
  | (?P<sign>      <<=|>>=|<=|>=|==|!=|&&|\|\||<<|>>|\+\+|--|->|::|\.\.\.|[-+*/%&|^]=|\S )
  | (?P<blank>     \s+ )
    """,
    re.VERBOSE | re.DOTALL,
)

BINARY = {
    "<": ("<=", ">="),
    "<=": ("<", ">"),
    ">": (">=", "<="),
    ">=": (">", "<"),
    "==": ("!=",),
    "!=": ("==",),
    "&&": ("||",),
    "||": ("&&",),
    "+": ("-",),
    "-": ("+",),
    "*": ("/",),
    "/": ("*",),
    "%": ("*",),
    "<<": (">>",),
    ">>": ("<<",),
    "&": ("|",),
    "|": ("&",),
    "^": ("|",),
    "+=": ("-=",),
    "-=": ("+=",),
    "*=": ("/=",),
    "/=": ("*=",),
    "|=": ("&=",),
    "&=": ("|=",),
    "<<=": (">>=",),
    ">>=": ("<<=",),
}
KIND_OF = {sign: "relation" for sign in ("<", "<=", ">", ">=", "==", "!=")}
KIND_OF.update({"&&": "logic", "||": "logic"})

# What no statement begins with that can be left out.
NO_STATEMENT = frozenset(
    """alignas auto case catch class const constexpr default do else enum explicit extern for friend
    if inline namespace operator private protected public static static_assert struct switch template
    try typedef typename union using virtual volatile while""".split()
)

# What `return {};` returns as well.
NO_VALUES = frozenset(("{}", "0", "false", "nullptr", ""))


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    begin: int

    @property
    def end(self):
        return self.begin + len(self.text)


@dataclasses.dataclass(frozen=True)
class Mutant:
    path: str
    kind: str
    begin: int
    end: int
    old: str
    new: str
    line: int  # from 1
    line_name: str  # as lists of exceptions name it

    def change(self):
        """The change on one line, as the reviewed list names it."""
        return f"{' '.join(self.old.split())} -> {' '.join(self.new.split()) or 'nothing'}"

    def apply(self, source):
        assert source[self.begin : self.end] == self.old
        return source[: self.begin] + self.new + source[self.end :]


def tokens_of(source):
    """All tokens that a compiler would act on."""
    tokens = []
    for match in TOKEN.finditer(source):
        kind = match.lastgroup if match.lastgroup != "fence" else "text"
        if kind not in ("blank", "comment", "directive"):
            tokens.append(Token(kind, match.group(), match.start()))
    return tokens


def is_binary(source, token):
    return source[token.begin - 1].isspace() and source[token.end : token.end + 1].isspace()


def changed_number(text):
    digits = text.rstrip("uUlL")
    value = int(digits, 16) if digits[:2] in ("0x", "0X") else int(digits)
    suffix = text[len(digits) :]
    for other in dict.fromkeys((value + 1, max(value - 1, 0), 0)):
        if other != value:
            yield (hex(other) if digits[:2] in ("0x", "0X") else str(other)) + suffix


def changed_character(text):
    if len(text) == 3:  # a quoted one
        yield f"'{chr(ord(text[1]) + 1)}'" if text[1] not in "&[" else "'#'"
    elif text.startswith("'\\"):
        yield "'\\1'" if text != "'\\1'" else "'\\2'"


def changed_text(text):
    """A text with another last letter or digit, or with one more."""
    if text.startswith("R"):
        return
    inner = text[text.index('"') + 1 : -1]
    quoted = text[: text.index('"') + 1]
    if inner and inner[-1].isalnum() and inner[-2:-1] != "\\":
        yield quoted + inner[:-1] + ("x" if inner[-1] != "x" else "y") + '"'
    else:
        yield quoted + inner + 'x"'


def statement_ends(tokens):
    """For the token that begins a statement, the one of its semicolon."""
    begins = {}
    depth = 0
    start = 0
    for at, token in enumerate(tokens):
        if token.text in "([" and token.kind == "sign":
            depth += 1
        elif token.text in ")]" and token.kind == "sign":
            depth -= 1
        elif token.text == ";" and depth == 0:
            begins[start] = at
        if token.kind == "sign" and token.text in "{};" and depth <= 0:
            start = at + 1
    return begins


def is_declaration(words):
    """Whether the tokens of a statement declare something: two names stand side by side."""
    depth = 0
    for left, right in zip(words, words[1:]):
        if left.kind == "sign" and left.text in "(<[":
            depth += 1
        elif left.kind == "sign" and left.text in ")>]":
            depth -= 1
        if left.text in ("=", "(") or right.text == "=":
            return False
        names = left.kind == "word" or left.text in (">", "&", "*")
        if depth <= 0 and names and right.kind == "word" and left.begin != words[0].begin:
            return True
        if left.begin == words[0].begin and left.kind == "word" and right.kind == "word":
            return True
        if left.begin == words[0].begin and left.kind == "word" and right.text in "*&":
            return True
    return False


def statements(tokens):
    """(kind, first token, semicolon, replacement) of the statements that can be left out."""
    for start, end in statement_ends(tokens).items():
        words = tokens[start:end]
        if not words:
            continue
        first = words[0]
        if first.text == "return":
            if len(words) > 1 and "".join(word.text for word in words[1:]) not in NO_VALUES:
                yield "return", first, tokens[end], "return {};"
            elif len(words) == 1:
                yield "statement", first, tokens[end], ";"
        elif first.text in ("break", "continue", "throw"):
            yield "statement", first, tokens[end], ";"
        elif first.text in NO_STATEMENT or first.kind not in ("word", "sign"):
            continue
        elif first.kind == "sign" and first.text not in ("++", "--", "*", "::", "("):
            continue
        elif not is_declaration(words) and words[-1].text not in ("delete", "default"):
            yield "statement", first, tokens[end], ";"


def conditions(tokens):
    """(opening, closing) brackets of the conditions of `if` and `while`."""
    for at, token in enumerate(tokens):
        if token.text not in ("if", "while") or token.kind != "word":
            continue
        opening = at + 1
        if opening >= len(tokens) or tokens[opening].text != "(":
            continue  # if constexpr
        depth = 0
        for closing in range(opening, len(tokens)):
            depth += {"(": 1, ")": -1}.get(tokens[closing].text, 0)
            if tokens[closing].text == ";":
                break  # with a declaration in it
            if depth == 0:
                yield tokens[opening], tokens[closing]
                break


def without_checks(tokens):
    """The tokens without those of static assertions, which only tell compilers something."""
    kept = []
    depth = None
    for token in tokens:
        if token.text == "static_assert":
            depth = 0
        if depth is None:
            kept.append(token)
            continue
        depth += {"(": 1, ")": -1}.get(token.text, 0)
        if token.text == ";" and depth == 0:
            kept.append(token)
            depth = None
    return kept


def changes(path, source):
    """(kind, begin, end, replacement) of each mutant of a source."""
    tokens = without_checks(tokens_of(source))
    text_kind = "label"
    for at, token in enumerate(tokens):
        if token.kind == "word" and token.text in ("child", "out", "NewElement"):
            text_kind = "element"
        elif token.kind == "word" and token.text == "lines":
            text_kind = "label"
        span = (token.begin, token.end)
        if token.kind == "sign" and token.text in BINARY and is_binary(source, token):
            for new in BINARY[token.text]:
                yield (KIND_OF.get(token.text, "arithmetic"), *span, new)
        elif token.text == "!" and token.kind == "sign":
            yield ("negation", *span, "")
        elif token.text in ("++", "--"):
            yield ("increment", *span, "--" if token.text == "++" else "++")
        elif token.kind == "number":
            for new in changed_number(token.text):
                yield ("constant", *span, new)
        elif token.kind == "character":
            for new in changed_character(token.text):
                yield ("constant", *span, new)
        elif token.text in ("true", "false"):
            yield ("constant", *span, "false" if token.text == "true" else "true")
        elif token.kind == "text":
            for new in changed_text(token.text):
                yield (text_kind if path.startswith("records/") else "label", *span, new)
    for kind, first, semicolon, new in statements(tokens):
        yield (kind, first.begin, semicolon.end, new)
    for opening, closing in conditions(tokens):
        inner = source[opening.end : closing.begin]
        # A single comparison or negation is turned round by its operator.
        if re.search(r"&&|\|\|", inner) or not re.search(r"^!| == | != ", inner):
            yield ("negation", opening.begin, closing.end, f"(!({inner}))")


def mutants_of(path, source):
    """All mutants of a source, in the order of their places."""
    names = reviewed.name_lines(source)
    found = []
    for kind, begin, end, new in changes(path, source):
        line = source.count("\n", 0, begin) + 1
        old = source[begin:end]
        found.append(Mutant(path, kind, begin, end, old, new, line, names[line - 1]))
    return sorted(found, key=lambda mutant: (mutant.begin, mutant.end, mutant.new))
