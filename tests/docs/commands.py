"""Blocks "sh", and what prose names: commands that a test cannot run, as they install or take long.
Their parts have to be there: commands of ./run, options and presets of the build, files, programs."""

import functools
import json
import re
import shlex
import shutil
import subprocess

WORDS_OF_SHELL = {"for", "do", "done", "in", "if", "then", "fi", "while"}
BUILT_INTO_SHELLS = {"cd", "export"}
# Programs of other machines, or that ./run installs for some of its commands only.
ELSEWHERE = {"bitbake", "bitbake-layers", "conan", "qemu-arm"}
OPTION = re.compile(r"-D([A-Za-z_]+)")


@functools.cache
def run_commands(source):
    """What ./run takes, and tells of."""
    text = (source / "run").read_text(encoding="utf-8")
    usage = subprocess.run([source / "run"], capture_output=True, text=True, check=True).stdout
    labels = re.findall(r"^ +([a-z][a-z |-]*)\)", text, re.MULTILINE)
    taken = {name for label in labels for name in label.split(" | ")}
    return {name for name in taken if re.search(rf"(?<![\w-]){name}(?![\w-])", usage)}


@functools.cache
def build_files(source):
    """The texts of the files that CMake reads."""
    folders = [path for path in source.iterdir()  # of builds, the files are others'
               if path.is_dir() and not path.name.startswith("build")]
    paths = [path for folder in folders for ending in ("CMakeLists.txt", "*.cmake")
             for path in folder.rglob(ending)]
    paths.append(source / "CMakeLists.txt")
    return "".join(path.read_text(encoding="utf-8") for path in paths)


def is_option(source, name):
    declared = rf"(option|set)\({name} [^)]*(\"|CACHE)"
    return name.startswith("CMAKE_") or re.search(declared, build_files(source)) or (
        name == "BUILD_SHARED_LIBS" and name in build_files(source))


def is_preset(source, name):
    presets = json.loads((source / "CMakePresets.json").read_text(encoding="utf-8"))
    return any(name == preset["name"] for preset in presets["configurePresets"])


def is_built(source, path):
    """Whether the build makes a file of that name."""
    name = re.sub(r"^lib|\.so$", "", path.rsplit("/", 1)[-1])
    return re.search(rf"\({name}\b|\b{name}\)", build_files(source))


def is_program(source, name):
    return name in ELSEWHERE | BUILT_INTO_SHELLS or shutil.which(name) or (source / name).is_file()


def wrong_path(source, word):
    """What is wrong with a word that is a path of the source tree."""
    folder, slash, rest = word.partition("/")
    if not slash or not rest or "$" in word or "*" in word:
        return None
    if folder == "build":
        is_folder = rest.count("/") < 2 and not rest.endswith(".so")
        return None if is_folder or is_built(source, word) else "is nothing that the build makes"
    is_own = (source / folder).is_dir() and folder not in (".", "..")
    return "is not there" if is_own and not (source / word).exists() else None


def wrong_words(source, words):
    """What is wrong with a simple command."""
    program = words[0]
    if program == "./run":
        return [f"./run has no command {word}" for word in words[1:]
                if not word.isdigit() and word not in run_commands(source)]
    wrong = []
    if program == "quavera":
        wrong.append("a command of the tool belongs in a block \"console\"")
    elif program.startswith("build/") and not is_built(source, program):
        wrong.append(f"{program} is nothing that the build makes")
    elif not program.startswith("build/") and not is_program(source, program):
        wrong.append(f"there is no program {program}")
    for before, word in zip(words, words[1:]):
        option = OPTION.match(word)
        if program == "cmake" and option and not is_option(source, option[1]):
            wrong.append(f"the build has no option {option[1]}")
        if before == "--preset" and not is_preset(source, word):
            wrong.append(f"there is no preset {word}")
        if trouble := wrong_path(source, word):
            wrong.append(f"{word} {trouble}")
    return wrong


def simple_commands(text):
    """The words of each simple command of a script."""
    text = text.replace("\\\n", " ")
    for line in text.splitlines():
        words = shlex.split(line, comments=True)
        command = []
        for word in [*words, ";"]:
            ends = word.endswith(";") and word != ";"
            if word not in ("&&", "||", "|", ";"):
                command.append(word.rstrip(";"))
            if (ends or word in ("&&", "||", "|", ";")) and command:
                yield command
                command = []


def check_block(page, block):
    shell = subprocess.run(["bash", "-n"], input=block.text, capture_output=True, text=True,
                           check=False)
    if shell.returncode != 0:
        page.problem(block.line, shell.stderr)
        return
    for words in simple_commands(block.text):
        if words[0] == "for":
            continue
        while words and words[0] in WORDS_OF_SHELL:
            words = words[1:]
        for wrong in wrong_words(page.source, words) if words else []:
            page.problem(block.line, wrong)


def check_prose(page, tool_commands):
    for code in page.codes():
        words = code.split()
        wrong = []
        if words[:1] == ["./run"] and len(words) > 1 and words[1].islower():
            wrong = wrong_words(page.source, words[:2])
        elif words[:1] == ["quavera"] and len(words) > 1 and words[1].isalpha():
            wrong = [] if words[1] in tool_commands else [f"the tool has no command {words[1]}"]
        elif option := OPTION.match(code):
            wrong = wrong_words(page.source, ["cmake", option[0]])
        for each in wrong:
            page.problems.append(f"{page.name}: `{code}`: {each}")
