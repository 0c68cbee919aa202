"""Blocks "cmake" and "cpp": programs on the installed package, all pages' in one project.

A page's blocks "cpp" are the sources of one library each. The blocks "cmake" are the end of its
CMakeLists.txt; without one, it is linked with all that the package has. examples/ are built, too.
"""

import re
import subprocess

LINK = "target_link_libraries"
ALL = f"""find_package(Quavera CONFIG REQUIRED)
{LINK}(program PRIVATE Quavera::quavera Quavera::zqshared Quavera::soap)
"""


def project_of(page, folder):
    """Writes a page's part of the project. The number of its sources."""
    sources = page.of_kind("cpp")
    text = "".join(block.text for block in page.of_kind("cmake"))
    if not sources and not text:
        return 0
    if LINK not in text:
        text += ALL
    names = [f"line{block.line}.cpp" for block in sources] or ["none.cpp"]
    for name, block in zip(names, sources):
        (folder / name).write_text(block.text, encoding="utf-8")
    (folder / "none.cpp").write_text("")
    target = re.search(LINK + r"\((\w+)", text)[1]
    own = re.sub(r"\W", "-", page.name)
    text = text.replace(LINK, f"add_library({target} SHARED {' '.join(names)})\n{LINK}", 1)
    text = re.sub(rf"\b{target}\b", own, text)
    (folder / "CMakeLists.txt").write_text(text, encoding="utf-8")
    return len(sources)


def build(pages, prefix, folder, programs, arguments):
    """Builds all of it. The number of sources; what fails is the problem of the first page."""
    parts = []
    count = 0
    for page in pages:
        part = folder / re.sub(r"\W", "-", page.name)
        part.mkdir(parents=True)
        count += project_of(page, part)
        if (part / "CMakeLists.txt").exists():
            parts.append(f'add_subdirectory("{part.name}")\n')
    examples = pages[0].source / "examples"
    if (examples / "CMakeLists.txt").exists():
        parts.append(f'add_subdirectory("{examples}" examples)\n')
    (folder / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.25)\nproject(Pages CXX)\n"
        f'set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "{programs}")\n' + "".join(parts), encoding="utf-8")
    for command in (["cmake", "-S", folder, "-B", folder / "build",
                     f"-DCMAKE_PREFIX_PATH={prefix}",
                     "-DCMAKE_SHARED_LINKER_FLAGS=-Wl,--no-undefined", *arguments],
                    ["cmake", "--build", folder / "build", "--parallel", "2"]):
        made = subprocess.run(command, capture_output=True, text=True, check=False)
        if made.returncode != 0:
            pages[0].problems.append(f"a page's program does not build\n{made.stdout}{made.stderr}")
            break
    return count
