#!/usr/bin/env python3
"""Asks `quavera serve` as a client of another maker does, which knows the service by its description
alone: every member of every record has to arrive as it stands in the document that it comes from.
All of that twice, by http and by https. The documents have to be what the description says, too.

    zeep_client.py TOOL CATALOG DATA

CATALOG holds RECORD/ID.xml, DATA holds CLASS/full.xml of all record classes.
"""

import pathlib
import subprocess
import sys
import tempfile

import lxml.etree
import requests
import zeep
import zeep.helpers

XSI = "{http://www.w3.org/2001/XMLSchema-instance}"
SCHEMA = "{http://www.w3.org/2001/XMLSchema}"
V2 = "urn:quavera:v2"

# Which request a class's record answers; the others are parts of records.
KINDS = {
    "DataTrackInfo": "track",
    "DataAlbum": "album",
    "DataArtist": "artist",
    "DataGenre": "genre",
    "DataPlaylist": "playlist",
    "DataStation": "station",
    "DataMemberLibrary": "library",
    "DataAccountProperties": "account",
    "DataAlbumReview": "review",
    "DataLibraryModificationResult": "modification",
}

failures = []


def fail(where, what):
    failures.append(f"{where}: {what}")


def record_of(path):
    """The record element of a document."""
    root = lxml.etree.parse(str(path)).getroot()
    if lxml.etree.QName(root).localname != "Envelope":
        return root
    body = next(each for each in root if lxml.etree.QName(each).localname == "Body")
    return body[0]


def is_nil(element):
    return element.get(XSI + "nil") in ("true", "1")


def same(text, value):
    """Whether a value is what the text says."""
    text = text or ""
    if isinstance(value, bool):
        return value == (text.strip() in ("true", "1"))
    if isinstance(value, int):
        return value == int(text)
    return (value or "") == text


def compare(element, value, where):
    """Compares an element with what the client has made of it; returns the number of texts."""
    if is_nil(element):
        if value is not None:
            fail(where, f"nil, but {value!r}")
        return 1
    if len(element) == 0 and not isinstance(value, dict):
        if not same(element.text, value):
            fail(where, f"{element.text!r}, but {value!r}")
        return 1
    if not isinstance(value, dict):
        fail(where, f"members, but {value!r}")
        return 0
    names = {lxml.etree.QName(each).localname for each in element}
    for name, member in value.items():
        # Some numbers and flags are sent as 0 where a document has none.
        if name not in names and member not in (None, [], 0):
            fail(f"{where}.{name}", f"absent, but {member!r}")
    seen = {}
    count = 0
    for each in element:
        name = lxml.etree.QName(each).localname
        at = seen[name] = seen.get(name, -1) + 1
        member = value.get(name)
        if isinstance(member, list):
            if at >= len(member):
                fail(f"{where}.{name}", f"{len(member)} items")
                continue
            member = member[at]
        if name not in value:
            fail(f"{where}.{name}", "no such member")
            continue
        count += compare(each, member, f"{where}.{name}[{at}]")
    return count


def schema_of(description, folder):
    """A validator by the schemas that stand in a description, for records of every type."""
    root = lxml.etree.fromstring(description)
    names = {}
    for at, schema in enumerate(root.iter(SCHEMA + "schema")):
        names[schema.get("targetNamespace")] = f"{at}.xsd"
    for schema in root.iter(SCHEMA + "schema"):
        for imported in schema.iter(SCHEMA + "import"):
            imported.set("schemaLocation", names[imported.get("namespace")])
        declared = {each.get("name") for each in schema.findall(SCHEMA + "element")}
        for record in schema.findall(SCHEMA + "complexType"):
            if record.get("name") not in declared:
                element = lxml.etree.SubElement(schema, SCHEMA + "element")
                element.set("name", record.get("name"))
                prefix = {uri: each for each, uri in schema.nsmap.items() if each}
                element.set("type", f"{prefix[schema.get('targetNamespace')]}:{record.get('name')}")
        text = lxml.etree.tostring(schema)
        (folder / names[schema.get("targetNamespace")]).write_bytes(text)
    return lxml.etree.XMLSchema(file=str(folder / names[V2]))


def documents_of(catalog, data):
    """The documents that requests are answered with, by record and identifier."""
    documents = {}
    for path in sorted(catalog.glob("*/*.xml")):
        documents[path.parent.name, path.stem] = path
    for name, kind in KINDS.items():
        documents[kind, "full"] = data / name / "full.xml"
    return documents


def fill(folder, documents):
    for (kind, identifier), path in documents.items():
        copy = folder / kind / f"{identifier}.xml"
        copy.parent.mkdir(parents=True, exist_ok=True)
        copy.write_bytes(path.read_bytes())


def make_certificate(folder):
    """The files of a certificate for this machine, and of its key."""
    certificate, key = folder / "certificate.pem", folder / "key.pem"
    subprocess.run(
        ["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
         "-subj", "/CN=localhost", "-addext", "subjectAltName=IP:127.0.0.1",
         "-keyout", key, "-out", certificate],
        check=True, stderr=subprocess.DEVNULL)
    return str(certificate), str(key)


def ask_for_all(endpoint, documents, session):
    """Asks for each document, and returns the description that the client went by."""
    address = f"{endpoint}/?wsdl"
    transport = zeep.Transport(session=session, timeout=60, operation_timeout=60)
    client = zeep.Client(address, settings=zeep.Settings(strict=True), transport=transport)
    count = 0
    for (kind, identifier), path in documents.items():
        record = record_of(path)
        answer = client.service["get" + kind.capitalize()](id=identifier)
        value = zeep.helpers.serialize_object(answer, dict)
        if isinstance(value, list):  # the client leaves out the two elements around a list
            value = {lxml.etree.QName(record[0]).localname: {"items": value}}
        count += compare(record, value, f"{kind}/{identifier}")
    print(f"{endpoint}: {len(documents)} records, {count} values")
    try:
        client.service.getTrack(id="none")
        fail("track/none", "no fault")
    except zeep.exceptions.Fault as fault:
        if "no such identifier" not in fault.message:
            fail("track/none", fault.message)
    return session.get(address, timeout=60).content


def with_server(tool, folder, arguments, ask):
    """Lets `ask` take the endpoint of a server, and returns what it returns."""
    server = subprocess.Popen(
        [tool, "serve", "--port", "0", "--quiet", "--catalog", str(folder), *arguments],
        stdout=subprocess.PIPE, text=True)
    try:
        return ask(server.stdout.readline().split()[-1])
    finally:
        server.terminate()
        if server.wait(60) != 0:
            fail("server", f"status {server.returncode}")


def main(tool, catalog, data):
    catalog, data = pathlib.Path(catalog), pathlib.Path(data)
    documents = documents_of(catalog, data)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        fill(folder / "catalog", documents)
        certificate, key = make_certificate(folder)
        session = requests.Session()
        session.trust_env = False
        session.verify = certificate
        for arguments in [], ["--tls", certificate, key]:
            description = with_server(
                tool, folder / "catalog", arguments,
                lambda endpoint: ask_for_all(endpoint, documents, session))
        schema = schema_of(description, folder)
    for path in list(documents.values()) + sorted(data.glob("*/full.xml")):
        if not schema.validate(record_of(path)):
            fail(path, schema.error_log)
    for each in failures:
        print(each, file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
