"""What gdb prints of the platform library's objects: nodes as the elements that they are.

Everything is read from memory, nothing is called, so that it works on core files; and all that is
read may be corrupt. docs/debugging.md shows how to load it and what it prints.
"""

import base64
import binascii

import gdb
import gdb.printing
import gdb.types

# However gdb is set: no more characters of a text, no more children where they are only counted,
# and no more ancestors where a cycle is looked for.
MOST_CHARACTERS = 65536
MOST_COUNTED = 10000
MOST_ANCESTORS = 1000

# As in TextForm, which Node::state_ holds in its lowest bits, without the last.
PLAIN, BASE64, BYTES, NUMBER, UNSEEN = range(5)
FORM_BITS = 3

# What an Arena's Name has ahead of its characters.
NAME_BEGIN = b"</"

ESCAPES = {'"': '\\"', "\\": "\\\\", "\n": "\\n", "\r": "\\r", "\t": "\\t"}


class Corrupt(Exception):
    """Says what is wrong with a list of children."""


# --- memory


def read(address, size):
    """The bytes there, or None where they cannot be read."""
    if size == 0:
        return b""
    try:
        return bytes(gdb.selected_inferior().read_memory(address, size))
    except (gdb.error, OverflowError):
        return None


def pointer_at(address):
    pointer = gdb.lookup_type("void").pointer()
    return int(gdb.Value(address).cast(pointer.pointer()).dereference())


def is_object_of(address, mangled_class):
    """Whether the object's own type information names that class. No symbol is needed for it, nor
    that there is only one copy of the class."""
    size = gdb.lookup_type("void").pointer().sizeof
    try:
        information = pointer_at(pointer_at(address) - size)
        name = pointer_at(information + size)
    except (gdb.error, OverflowError):
        return False
    return read(name, len(mangled_class) + 1) == mangled_class + b"\0"


def object_at(address, name, mangled_class):
    """The object, read, if it is there and gdb knows its class; or None."""
    if not is_object_of(address, mangled_class):
        return None
    try:
        value = gdb.Value(address).cast(gdb.lookup_type(name).pointer()).dereference()
        value.fetch_lazy()
        return value
    except gdb.error:
        return None


def node_at(address):
    return object_at(address, "ZQXML::Node", b"N5ZQXML4NodeE")


def list_at(address):
    return object_at(address, "ZQXML::ChildList", b"N5ZQXML9ChildListE")


# --- texts


def characters_shown():
    return min(gdb.parameter("print elements") or MOST_CHARACTERS, MOST_CHARACTERS)


def can_print(character):
    if character.isascii():
        return True
    try:
        # Of gdb 12 and later; before, it does not tell.
        character.encode(gdb.host_charset() if hasattr(gdb, "host_charset") else "ascii")
        return True
    except (UnicodeError, LookupError):
        return False


def escaped(character):
    if character in ESCAPES:
        return ESCAPES[character]
    if character.isprintable() and can_print(character):
        return character
    # As gdb does: three digits are never taken together with what follows.
    return "".join("\\%03o" % byte for byte in character.encode("utf-8", "surrogateescape"))


def escaped_text(data):
    """As much of a text as is to be shown, and whether that is all."""
    # Bytes that are no UTF-8 become characters that are not printable.
    text = data.decode("utf-8", "surrogateescape")
    most = characters_shown()
    return "".join(escaped(character) for character in text[:most]), len(text) <= most


def read_text(address, size):
    """Enough of a text, in whichever form, to show what is to be shown; None if unreadable."""
    return read(address, min(size, 8 * characters_shown()))


def decoded(data, is_cut):
    """What base64 stands for, or None for a text that is none."""
    data = b"".join(data.split())
    if is_cut:
        data = data[: len(data) // 4 * 4]
    try:
        return base64.b64decode(data, validate=True)
    except (binascii.Error, ValueError):
        return None


def text_of(form, address, size):
    if form == NUMBER:
        number = size & 0xFFFFFFFF
        return str(number - ((number & 0x80000000) << 1))
    data = read_text(address, size)
    if data is None:
        return "(%d bytes at %#x that cannot be read)" % (size, address)
    is_cut = len(data) < size
    remark = ""
    if form == BASE64:
        content = decoded(data, is_cut)
        if content is None:
            remark = " (no base64)"
        else:
            data = content
    text, is_all = escaped_text(data)
    return '"%s"%s%s' % (text, "" if is_all and not is_cut else "...", remark)


def tag_of(name, form):
    """An element's start tag, as in XML text; no name is one that cannot be read."""
    mark = ' encoding="base64"' if form in (BASE64, BYTES) else ""
    if name is None:
        return "<?%s>" % mark
    text, is_all = escaped_text(name)
    return "<%s%s%s>" % (text, "" if is_all else "...", mark)


# --- nodes of ours


def name_of(node):
    """The bytes of a node's name, enough to show; None for what is no name."""
    try:
        pointer = node["name_"]
        size = int(pointer["size"])
        begin = int(pointer) + pointer.type.target().sizeof
    except gdb.error:
        return None
    if read(begin, len(NAME_BEGIN)) != NAME_BEGIN:
        return None
    return read_text(begin + len(NAME_BEGIN), size)


def is_own_ancestor(node):
    """Cycles are looked for upwards: a node has one parent, so there is no other way down to it."""
    address = int(node.address)
    pointer = node["parent_"]
    for _ in range(MOST_ANCESTORS):
        if int(pointer) in (0, address):
            return int(pointer) == address
        pointer = pointer["parent_"]
    return False


def listed(first, parent):
    """The nodes of a list. One that is not this parent's, or comes again, is not followed, so that
    this ends however the links were overwritten."""
    seen = set()
    address = first
    while address != 0:
        if address in seen:
            raise Corrupt("the one at %#x again" % address)
        seen.add(address)
        node = node_at(address)
        if node is None:
            raise Corrupt("no node at %#x" % address)
        if int(node["parent_"]) != parent:
            raise Corrupt("another node's child at %#x" % address)
        yield node
        address = int(node["next_"])


def children_of(node):
    address = int(node["children_"])
    if address == 0:
        return
    children = list_at(address)
    if children is None:
        raise Corrupt("no list at %#x" % address)
    try:
        if is_own_ancestor(node):
            raise Corrupt("a cycle of parents")
    except gdb.error:
        raise Corrupt("no ancestors to be read") from None
    yield from listed(int(children["first_"]), int(node.address))


def count_of(nodes):
    """How many they are, in words; empty for none."""
    count = 0
    try:
        for _ in nodes:
            if count == MOST_COUNTED:
                return "more than %d children" % count
            count += 1
    except Corrupt as problem:
        return "%d %s, then %s" % (count, plural(count), problem)
    return "" if count == 0 else "%d %s" % (count, plural(count))


def plural(count):
    return "child" if count == 1 else "children"


def is_released(node):
    """Whether its memory was given back: nobody pins the arena. Sure if so; later, something else
    may lie there."""
    try:
        return int(node["arena_"]["pins_"]) == 0
    except gdb.error:
        return False


def summary_of(node):
    """A node in one line."""
    form = int(node["state_"]) & FORM_BITS
    content = int(node["content_"])
    size = int(node["contentSize_"])
    count = count_of(children_of(node))
    summary = tag_of(name_of(node), form)
    if size != 0 or form == NUMBER or not count:
        summary += " " + text_of(form, content, size)
    if count:
        summary += ", " + count
    return summary + (", released" if is_released(node) else "")


def numbered(nodes):
    """Them as the children of a printer."""
    index = 0
    try:
        for node in nodes:
            yield "[%d]" % index, node
            index += 1
    except Corrupt as problem:
        yield "[%d]" % index, "(%s)" % problem


# --- printers


class NodePrinter:
    """A node of ours, in full."""

    def __init__(self, node):
        self.node = node

    def to_string(self):
        return summary_of(self.node)

    def children(self):
        return numbered(children_of(self.node))


class LinePrinter:
    """Something in one line."""

    def __init__(self, line):
        self.line = line

    def to_string(self):
        return self.line


class OwnerPrinter(NodePrinter):
    """An auto_com with a node of ours: as the pointer, with the element behind it."""

    def to_string(self):
        return "%#x %s" % (int(self.node.address), summary_of(self.node))


class OtherOwnerPrinter:
    """An auto_com with another object, which gdb prints."""

    def __init__(self, pointer):
        self.pointer = pointer

    def to_string(self):
        return "%#x" % int(self.pointer)

    def children(self):
        try:
            content = self.pointer.cast(self.pointer.dynamic_type).dereference()
            content.fetch_lazy()
        except gdb.error as problem:
            content = "(%s)" % problem
        yield "*get()", content


class ListPrinter:
    """A list of children of ours."""

    def __init__(self, children):
        self.first = int(children["first_"])
        self.current = int(children["current_"])
        node = node_at(self.first)
        self.parent = 0 if node is None else int(node["parent_"])

    def to_string(self):
        text = count_of(self.nodes()) or "no children"
        if self.current != 0:
            node = node_at(self.current)
            text += ", the walk at %#x" % self.current
            text += "" if node is None else " " + summary_of(node)
        return text

    def children(self):
        return numbered(self.nodes())

    def nodes(self):
        return listed(self.first, self.parent)


class TracePrinter:
    """The addresses of a stack trace; gdb names the functions."""

    def __init__(self, trace):
        places = trace["addresses_"]
        self.addresses = places[places.type.fields()[0]]  # whatever the standard library calls it
        first, last = self.addresses.type.strip_typedefs().range()
        self.depth = max(0, min(int(trace["depth_"]), last - first + 1))

    def to_string(self):
        return "%d %s" % (self.depth, "address" if self.depth == 1 else "addresses")

    def children(self):
        for index in range(self.depth):
            yield "[%d]" % index, self.addresses[index]


def for_node(value):
    node = node_at(int(value.address))
    return None if node is None else NodePrinter(node)


def for_pointer(value):
    node = node_at(int(value))
    return None if node is None else LinePrinter("%#x %s" % (int(value), summary_of(node)))


def for_list(value):
    children = list_at(int(value.address))
    return None if children is None else ListPrinter(children)


def for_owner(value):
    pointer = value["object_"]
    if int(pointer) == 0:
        return LinePrinter("empty")
    node = node_at(int(pointer))
    return OtherOwnerPrinter(pointer) if node is None else OwnerPrinter(node)


def for_view(value):
    form = int(value["form"])
    if form > UNSEEN:
        return None
    if form == UNSEEN:
        return LinePrinter("unseen, of the node at %#x" % int(value["node"]))
    tag = tag_of(read_text(int(value["nameData"]), int(value["nameSize"])), form)
    text = text_of(form, int(value["textData"]), int(value["textSize"]))
    return LinePrinter("%s %s" % (tag, text))


class Row:
    """A kind of printer, as gdb's `info pretty-printer` lists them."""

    def __init__(self, name, make):
        self.name = name
        self.enabled = True
        self.make = make


POINTER = Row("INode*", for_pointer)
ROWS = {
    "ZQXML::INode": Row("INode", for_node),
    "ZQXML::INodeList": Row("INodeList", for_list),
    "ZQXML::NodeView": Row("NodeView", for_view),
    "zq::StackTrace": Row("StackTrace", TracePrinter),
    "zq::auto_com": Row("auto_com", for_owner),
}
CLASSES = {
    **ROWS,
    "ZQXML::Node": ROWS["ZQXML::INode"],
    "ZQXML::ChildList": ROWS["ZQXML::INodeList"],
}


def row_for(kind):
    if kind.code == gdb.TYPE_CODE_PTR:
        target = gdb.types.get_basic_type(kind.target())
        return POINTER if target.name in ("ZQXML::INode", "ZQXML::Node") else None
    if kind.code != gdb.TYPE_CODE_STRUCT or kind.name is None:
        return None
    return CLASSES.get(kind.name.partition("<")[0])


class Printers(gdb.printing.PrettyPrinter):
    def __init__(self):
        super().__init__("zqshared", [*ROWS.values(), POINTER])

    def __call__(self, value):
        """None leaves a value to gdb: one of another class, one that is not there or not read, and
        a node of a library without debugging information."""
        row = row_for(gdb.types.get_basic_type(value.type))
        if row is None or not row.enabled:
            return None
        try:
            if value.type.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
                value = value.referenced_value()
            return row.make(value)
        except gdb.error:
            return None


gdb.printing.register_pretty_printer(gdb.current_objfile(), Printers(), replace=True)
