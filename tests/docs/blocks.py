#!/usr/bin/env python3
"""Runs what a page shows: its sessions, and its programs.

    blocks.py --prefix PREFIX --work FOLDER [--cmake ARGUMENT]... PAGE...

PREFIX holds the installed package, FOLDER is made anew. In a page,

- a block "console" is a session: each line that begins with "$ " is typed into a shell, which goes on
  through the page, in a clean folder; what follows up to the next one is what it has to print, on
  standard output and standard error. A line "..." stands for any number of lines.
- a block "cmake" is the end of a project's CMakeLists.txt; the blocks "cpp" are the sources of its target.
  They have to compile and link.

Blocks of other kinds are not run. The port 8080 is a free one here.
"""

import argparse
import os
import pathlib
import re
import shutil
import socket
import subprocess
import sys

FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
PORT = "8080"
END = "-- end of the output --"


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return str(listener.getsockname()[1])


def blocks_of(page):
    """Pairs of the kind and the text of each fenced block."""
    return FENCE.findall(page.read_text(encoding="utf-8"))


def commands_of(session):
    """Pairs of a command and the lines that it prints."""
    commands = []
    for line in session.splitlines():
        if line.startswith("$ "):
            commands.append((line[2:], []))
        elif commands and line.startswith("> "):
            commands[-1] = (commands[-1][0] + "\n" + line[2:], commands[-1][1])
        elif commands:
            commands[-1][1].append(line)
        else:
            raise SystemExit(f"a session begins with no command: {line}")
    return commands


def is_as_shown(shown, printed):
    """Whether the lines that are printed are those that are shown, of which "..." stands for any."""
    if not shown:
        return not printed
    if shown[0] == "...":
        return any(is_as_shown(shown[1:], printed[at:]) for at in range(len(printed) + 1))
    return bool(printed) and printed[0] == shown[0] and is_as_shown(shown[1:], printed[1:])


class Shell:
    """A shell in a clean folder, that finds the installed tool."""

    def __init__(self, prefix, folder):
        environment = dict(os.environ, LC_ALL="C.UTF-8", PATH=f"{prefix}/bin:{os.environ['PATH']}")
        for name in ("COLUMNS", "NO_COLOR", "QUAVERA_PASSWORD"):
            environment.pop(name, None)
        self.process = subprocess.Popen(
            ["bash", "--noprofile", "--norc"], cwd=folder, env=environment, stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def run(self, command):
        """The lines that a command prints. A shell that stops to answer is ctest's to end."""
        self.process.stdin.write(f"{command}\necho '{END}'\n".encode())
        self.process.stdin.flush()
        printed = ""
        for line in self.process.stdout:
            printed += line.decode()  # a log text's lines end in CR LF
            if printed.endswith(END + "\n"):
                return printed[: -len(END) - 1].replace("\r\n", "\n").splitlines()
        raise SystemExit(f"the shell has ended at: {command}\n{printed}")

    def end(self):
        self.process.stdin.write(b"kill $(jobs -p) 2> /dev/null\n")
        self.process.stdin.close()
        self.process.wait()


def run_sessions(page, prefix, folder):
    """The number of commands, and of those that print something else than the page shows."""
    port = free_port()
    shell = Shell(prefix, folder)
    count = failures = 0
    for kind, text in blocks_of(page):
        if kind != "console":
            continue
        for command, shown in commands_of(text.replace(PORT, port)):
            printed = shell.run(command)
            count += 1
            if not is_as_shown(shown, printed):
                failures += 1
                print(f"{page}: $ {command}\nshown:\n" + "\n".join(shown) + "\nprinted:\n" +
                      "\n".join(printed))
    shell.end()
    return count, failures


def build_program(page, prefix, folder, arguments):
    """The number of sources of the page's program, which has to build."""
    projects = [text for kind, text in blocks_of(page) if kind == "cmake"]
    sources = [text for kind, text in blocks_of(page) if kind == "cpp"]
    if not projects:
        return 0
    target = re.search(r"target_link_libraries\((\w+)", "".join(projects)).group(1)
    names = [f"source{at}.cpp" for at in range(len(sources))]
    project = folder / "project"
    project.mkdir()
    for name, text in zip(names, sources):
        (project / name).write_text(text, encoding="utf-8")
    find, link = projects[0].split("\n", 1)
    (project / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.25)\nproject(Page CXX)\n" + find +
        f"\nadd_library({target} SHARED {' '.join(names)})\n" + link +
        "\n".join(projects[1:]), encoding="utf-8")
    for command in (["cmake", "-S", project, "-B", project / "build",
                     f"-DCMAKE_PREFIX_PATH={prefix}",
                     "-DCMAKE_SHARED_LINKER_FLAGS=-Wl,--no-undefined", *arguments],
                    ["cmake", "--build", project / "build"]):
        made = subprocess.run(command, capture_output=True, text=True, check=False)
        if made.returncode != 0:
            raise SystemExit(f"{page}: its program does not build\n{made.stdout}{made.stderr}")
    return len(sources)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--prefix", required=True, type=pathlib.Path)
    parser.add_argument("--work", required=True, type=pathlib.Path)
    parser.add_argument("--cmake", action="append", default=[])
    parser.add_argument("pages", nargs="+", type=pathlib.Path)
    options = parser.parse_args()
    shutil.rmtree(options.work, ignore_errors=True)
    commands = failures = sources = 0
    for page in options.pages:
        folder = options.work / page.stem
        (folder / "session").mkdir(parents=True)
        count, failed = run_sessions(page, options.prefix, folder / "session")
        commands += count
        failures += failed
        sources += build_program(page, options.prefix, folder, options.cmake)
    print(f"{commands} commands, {failures} of which print something else; {sources} sources")
    if failures or not commands or not sources:
        sys.exit(1)


if __name__ == "__main__":
    main()
