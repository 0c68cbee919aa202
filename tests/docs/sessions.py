"""Blocks "console": sessions in a shell."""

import os
import shutil
import socket
import subprocess

PORT = "8080"
END = "-- end of the output --"
SAMPLES = ["tests/data", "tools/catalog"]  # of the source tree, which a session begins in

# In place of the project's: the tool is built and installed by now.
RUN = """#!/bin/sh
[ "$*" = demo ] && exec quavera demo
echo "run: of its commands, a session has demo only" >&2
exit 2
"""


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return str(listener.getsockname()[1])


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
    """A shell in a clean folder, that finds the installed package and further programs."""

    def __init__(self, prefix, programs, folder):
        path = f"{prefix}/bin:{programs}:{os.environ['PATH']}"
        environment = dict(os.environ, LC_ALL="C.UTF-8", PATH=path, CMAKE_PREFIX_PATH=str(prefix))
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


def run(page, prefix, programs, folder):
    """The number of commands, and of outputs that the page shows. Differences are its problems."""
    for name in SAMPLES:
        shutil.copytree(page.source / name, folder / name)
    own_run = folder / "run"
    own_run.write_text(RUN)
    own_run.chmod(0o755)
    port = free_port()
    shell = Shell(prefix, programs, folder)
    commands = outputs = 0
    for block in page.of_kind("console"):
        for command, shown in commands_of(block.text.replace(PORT, port)):
            printed = shell.run(command)
            commands += 1
            outputs += bool(shown)
            if not is_as_shown(shown, printed):
                page.problem(block.line, f"$ {command}\nshown:\n" + "\n".join(shown) +
                             "\nprinted:\n" + "\n".join(printed))
    shell.end()
    return commands, outputs
