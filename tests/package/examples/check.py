#!/usr/bin/env python3
"""Runs the examples' programs and compares what they print with documents of the tests.

    check.py --programs FOLDER --sources FOLDER [--tool FILE] [--emulator COMMAND]
             [--only-platform] [--session FOLDER]

--sources is the project's folder. Without --tool there is no service to ask. With --session, the
session of the examples' page is typed into a shell in that folder: of a "console" block each line
that begins with "$ "; what follows has to be printed, where "..." stands for any number of lines.
"""

import argparse
import os
import pathlib
import re
import shlex
import socket
import subprocess
import sys
import threading
import xml.etree.ElementTree

ALBUM = "Alb.40013100"
RECORD = ".//{urn:quavera:v2}AlbumMetadata"
SECONDS = 120  # for a program, and for all that the server is needed for
LONGEST_TREE = 4 * 1024 * 1024  # that the receiver takes

failures = 0


def check(what, expected, found):
    global failures
    if expected != found:
        failures += 1
        print(f"{what}:\nexpected: {expected!r}\nfound:    {found!r}")


class Programs:
    """The programs in a folder, run by an emulator where there is one."""

    def __init__(self, folder, emulator):
        self.folder = folder
        self.emulator = emulator

    def run(self, name, *arguments, **standard_input):
        """The exit status, and what a program prints on standard output and standard error."""
        made = subprocess.run([*self.emulator, self.folder / name, *arguments],
                              **standard_input or {"input": b""}, capture_output=True,
                              timeout=SECONDS, check=False)
        return made.returncode, made.stdout, made.stderr.decode()


class Service:
    """The tool's stand-in for the service, as long as a block lasts."""

    def __init__(self, command, catalog):
        self.command = [*command, "serve", "--port", "0", "--catalog", catalog, "--quiet"]

    def __enter__(self):
        self.process = subprocess.Popen(["timeout", str(SECONDS), *self.command],
                                        stdout=subprocess.PIPE)
        return self.process.stdout.readline().decode().removeprefix("listening on ").strip()

    def __exit__(self, *_):
        self.process.terminate()
        self.process.communicate()


class Answer:
    """A service that has the same bytes for whoever asks, once."""

    def __init__(self, answer):
        self.answer = answer

    def __enter__(self):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.listener.settimeout(SECONDS)
        self.thread = threading.Thread(target=self.serve)
        self.thread.start()
        return f"http://127.0.0.1:{self.listener.getsockname()[1]}"

    def serve(self):
        connection, _ = self.listener.accept()
        with connection:
            connection.recv(65536)
            connection.sendall(self.answer)

    def __exit__(self, *_):
        self.thread.join()
        self.listener.close()


def listing_of(document):
    """What the receiver prints of an album, by the service's document."""
    album = xml.etree.ElementTree.parse(document).find(RECORD)
    lines = [f"{album.findtext('name')} ({album.findtext('primaryArtistDisplayName')}, "
             f"{album.findtext('releaseYear')})"]
    for track in album.find("tracks"):
        lines.append(f"{track.findtext('trackIndex', '0'):>3}. {track.findtext('name', '')}, "
                     f"{track.findtext('playbackSeconds', '0')} s")
    return "".join(line + "\n" for line in lines).encode()


def check_client(programs, tool, catalog):
    """The way from the service to the receiver's listing. Returns the album's tree."""
    document = catalog / "album" / f"{ALBUM}.xml"
    tree = subprocess.run([*tool, "tree", document], stdout=subprocess.PIPE, check=True).stdout
    tree = tree.removesuffix(b"\n") + b"\0"
    with Service(tool, catalog) as endpoint:
        check("the client's tree", (0, tree, ""), programs.run("soap-client", endpoint, ALBUM))
        check("two trees", (0, tree * 2, ""), programs.run("soap-client", endpoint, ALBUM, ALBUM))
        status, printed, error = programs.run("soap-client", endpoint, "Alb.none", ALBUM)
        check("a fault, and a tree", (1, tree), (status, printed))
        check("what was wrong", [True] * 3, [error.startswith(f"soap-client: {endpoint}: Alb.none:"),
                                             "no such identifier" in error, error.count("\n") == 1])
    check("nobody answers",
          (1, b"", f"soap-client: {endpoint}: {ALBUM}: Connection refused\n"),
          programs.run("soap-client", endpoint, ALBUM))
    check("from the service to the listing", (0, listing_of(document) * 2, ""),
          programs.run("tree-receiver", input=tree * 2))


def check_other_services(programs):
    """What is no SOAP service of ours is told in words, on one line."""
    head = b"HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nConnection: close\r\n\r\n"
    envelope = (b'<E:Envelope xmlns:E="http://schemas.xmlsoap.org/soap/envelope/"><E:Body>'
                b"%b</E:Body></E:Envelope>")
    for what, answer in (("nothing", b""), ("another record", head + envelope % b"<Concert/>"),
                         ("no envelope", head + b"<Album/>"),
                         ("no such page", b"HTTP/1.1 404 Not Found\r\n\r\n")):
        with Answer(answer) as endpoint:
            status, printed, error = programs.run("soap-client", endpoint, ALBUM)
        check(f"{what} ({error.strip()})", (1, b"", 1, True, False),
              (status, printed, error.count("\n"),
               error.startswith(f"soap-client: {endpoint}: {ALBUM}: "),
               error.endswith(": \n") or "no reason" in error))


def check_client_usage(programs):
    check("no address", (2, b"", 'soap-client: "localhost" is no http:// address\n'),
          programs.run("soap-client", "localhost", ALBUM))
    check("no identifier", (2, b"", "usage: soap-client ENDPOINT ID...\n"),
          programs.run("soap-client", "http://127.0.0.1"))


def check_receiver(programs, data):
    full = (data / "DataAlbum" / "full.tree.xml").read_bytes()
    printed = listing_of(data / "DataAlbum" / "full.xml")
    check("an album", (0, printed, ""), programs.run("tree-receiver", input=full))
    check("nothing", (0, b"", ""), programs.run("tree-receiver"))
    for what, tree, message in (
            ("another record", (data / "DataTrackInfo" / "full.tree.xml").read_bytes(),
             'the root is "Track", but DataAlbum reads "Album"'),
            ("not well-formed", (data / "bad" / "mismatched-tag.tree.xml").read_bytes(),
             "mismatched tag")):
        found = programs.run("tree-receiver", input=tree + b"\0" + full)
        check(what, (1, printed, True), (*found[:2], message in found[2]))
    longest = b"<Album>".ljust(LONGEST_TREE - len(b"</Album>")) + b"</Album>"
    check("the longest tree", (0, b" (, 0)\n", ""), programs.run("tree-receiver", input=longest))
    refused = (1, b"", f"tree-receiver: unreadable, or a tree of more than {LONGEST_TREE} bytes\n")
    check("a longer one", refused, programs.run("tree-receiver", input=b" " + longest))
    folder = os.open(data, os.O_RDONLY)
    check("what cannot be read", refused, programs.run("tree-receiver", stdin=folder))
    os.close(folder)


def check_log_reader(programs, data):
    # Trees of an element that a fuller record has, too, are taken for that one's.
    folders = [folder for folder in sorted(data.glob("Data*"))
               if not (folder.name.endswith("Lite") and
                       (data / folder.name.removesuffix("Lite")).is_dir() and
                       b"Lite>" not in (folder / "full.tree.xml").read_bytes())]
    trees = [folder / "full.tree.xml" for folder in folders]
    lines = []
    for folder, tree in zip(folders, trees):
        text = (folder / "full.txt").read_bytes()
        lines += [bytes(tree) + b": " + line for line in text.splitlines(keepends=True)]
    check("all records", True, len(folders) > 10)
    check("all lines", (0, b"".join(lines), ""), programs.run("log-reader", "", *trees))
    check("some lines", (0, b"".join(line for line in lines if "ß".encode() in line), ""),
          programs.run("log-reader", "ß", *trees))

    bad = data / "bad"
    status, printed, error = programs.run(
        "log-reader", "", data / "none.xml", data, bad / "mismatched-tag.tree.xml",
        bad / "unknown-root.tree.xml", trees[0])
    check("bad files, and a good one",
          (1, b"".join(line for line in lines if line.startswith(bytes(trees[0])))),
          (status, printed))
    for line, (file, message) in zip(error.splitlines(), (
            (data / "none.xml", "cannot be read"), (data, "cannot be read"),
            (bad / "mismatched-tag.tree.xml", "mismatched tag"),
            (bad / "unknown-root.tree.xml", 'no record has the root "Concert"'))):
        check("what was wrong", [True] * 2,
              [line.startswith(f"log-reader: {file}: "), line.endswith(message)])
    check("lines of failures", 4, error.count("\n"))


def check_platform(programs, data):
    record = xml.etree.ElementTree.parse(data / "DataAlbum" / "full.xml").find(RECORD)
    check("an album's text", (0, (data / "DataAlbum" / "full.txt").read_bytes(), ""),
          programs.run("album-text", input=xml.etree.ElementTree.tostring(record)))
    for text in (b"", b"no record"):
        status, printed, error = programs.run("album-text", input=text)
        check("no album", (1, b"", True, 1),
              (status, printed, error.startswith("album-text: "), error.count("\n")))


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return str(listener.getsockname()[1])


def check_session(page, folder, programs, tool):
    """What the page shows, one command after the other in one shell."""
    text = page.read_text(encoding="utf-8").replace("8080", free_port())
    blocks = re.findall(r"^```console\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)
    shown = re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", "".join(blocks), re.MULTILINE)
    end = "-- end of the output --\n"
    script = "".join(f"{command}\necho '{end.strip()}'\n" for command, _ in shown)
    path = os.pathsep.join([str(programs), str(tool.parent), os.environ["PATH"]])
    made = subprocess.run(
        ["bash", "--noprofile", "--norc"], input=f"exec 2>&1\n{script}kill $(jobs -p)\n".encode(),
        stdout=subprocess.PIPE, cwd=folder, env=dict(os.environ, PATH=path, LC_ALL="C.UTF-8"),
        timeout=SECONDS, check=False)
    printed = made.stdout.decode().replace("\r\n", "\n").split(end)
    check("commands of the page", True, len(printed) == len(shown) + 1 > 1)
    for (command, lines), found in zip(shown, printed):
        pattern = re.escape(lines).replace(re.escape("...\n"), "(?:.*\n)*")
        if not re.fullmatch(pattern, found):
            check(f"$ {command}", lines, found)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--programs", required=True, type=pathlib.Path)
    parser.add_argument("--sources", required=True, type=pathlib.Path)
    parser.add_argument("--tool", type=pathlib.Path)
    parser.add_argument("--emulator", default="")
    parser.add_argument("--only-platform", action="store_true")
    parser.add_argument("--session", type=pathlib.Path)
    options = parser.parse_args()
    emulator = shlex.split(options.emulator)
    programs = Programs(options.programs, emulator)
    data = options.sources / "tests" / "data"
    check_platform(programs, data)
    if not options.only_platform:
        check_client_usage(programs)
        check_other_services(programs)
        check_receiver(programs, data)
        check_log_reader(programs, data)
        if options.tool:
            check_client(programs, [*emulator, options.tool],
                         options.sources / "tools" / "catalog")
    if options.session:
        check_session(options.sources / "examples" / "README.md", options.session,
                      options.programs, options.tool)
    sys.exit(1 if failures else 0)


main()
