"""Blocks "cmake" and "cpp": programs on the installed package, all pages' in one project.

A page's blocks "cpp" are the sources of one library; those with a main function are programs, which
are run and have to succeed without a word. The blocks "cmake" are the end of its CMakeLists.txt;
without one, it is linked with all that the package has. examples/ are built, too.
"""

import re
import subprocess

MAIN = re.compile(r"^int main\(", re.MULTILINE)
LINK = "target_link_libraries"
LIBRARIES = "Quavera::quavera Quavera::zqshared Quavera::soap"
ALL = f"""find_package(Quavera CONFIG REQUIRED)
{LINK}(page PRIVATE {LIBRARIES})
"""


def name_of(page):
    return re.sub(r"\W", "-", page.name)


def project_of(page, folder):
    """Writes a page's part of the project. The number of its sources."""
    sources = page.of_kind("cpp")
    text = "".join(block.text for block in page.of_kind("cmake"))
    if not sources and not text:
        return 0
    if LINK not in text:
        text += ALL
    own = name_of(page)
    names = ["none.cpp"]
    (folder / "none.cpp").write_text("")
    for block in sources:
        name = f"line{block.line}"
        (folder / f"{name}.cpp").write_text(block.text, encoding="utf-8")
        if MAIN.search(block.text):
            text += f"add_executable({own}-{name} {name}.cpp)\n{LINK}({own}-{name} {LIBRARIES})\n"
        else:
            names.append(f"{name}.cpp")
    target = re.search(LINK + r"\((\w+)", text)[1]
    text = re.sub(rf"\b{target}\b", f"{own}-page", text)
    text = text.replace(LINK, f"add_library({own}-page SHARED {' '.join(names)})\n{LINK}", 1)
    (folder / "CMakeLists.txt").write_text(text, encoding="utf-8")
    return len(sources)


def run(pages, programs):
    """Runs the programs of the pages."""
    for page in pages:
        for block in page.of_kind("cpp"):
            program = programs / f"{name_of(page)}-line{block.line}"
            if not program.exists():
                continue
            made = subprocess.run([program], capture_output=True, text=True, check=False)
            if made.returncode != 0 or made.stdout or made.stderr:
                page.problem(block.line, f"its program says, with status {made.returncode}:\n"
                                         f"{made.stdout}{made.stderr}")


def write(pages, folder, programs):
    """Writes the project. The pages that have a part of it, and the number of their sources."""
    parts = []
    count = 0
    for page in pages:
        part = folder / name_of(page)
        part.mkdir(parents=True)
        count += project_of(page, part)
        if (part / "CMakeLists.txt").exists():
            parts.append(page)
    lines = [f'add_subdirectory("{name_of(page)}")\n' for page in parts]
    examples = pages[0].source / "examples"
    if (examples / "CMakeLists.txt").exists():
        lines.append(f'add_subdirectory("{examples}" examples)\n')
    (folder / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.25)\nproject(Pages CXX)\n"
        f'set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "{programs}")\n' + "".join(lines), encoding="utf-8")
    return parts, count


def targets_of(page, folder):
    text = (folder / name_of(page) / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.findall(r"add_(?:library|executable)\(([\w-]+)", text)


def make(page, *command):
    """Whether a command succeeds. Else that is the page's problem."""
    made = subprocess.run(["cmake", *command], capture_output=True, text=True, check=False)
    if made.returncode != 0:
        page.problem(1, f"it does not build\n{made.stdout}{made.stderr}")
    return made.returncode == 0


def build(pages, prefix, folder, programs, arguments):
    """Builds all of it. The number of sources."""
    parts, count = write(pages, folder, programs)
    if not parts or not make(parts[0], "-S", folder, "-B", folder / "build",
                             f"-DCMAKE_PREFIX_PATH={prefix}",
                             "-DCMAKE_SHARED_LINKER_FLAGS=-Wl,--no-undefined", *arguments):
        return count
    all_targets = ["--build", folder / "build", "--parallel", "2"]
    if subprocess.run(["cmake", *all_targets], capture_output=True, check=False).returncode == 0:
        return count
    built = [make(page, *all_targets, "--target", *targets_of(page, folder)) for page in parts]
    if all(built):
        make(parts[0], *all_targets)  # so it is an example
    return count
