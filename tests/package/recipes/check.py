#!/usr/bin/env python3
"""Compares the recipes of packaging/ with what CMake builds and installs.

    check.py --source TREE --build FOLDER --work FOLDER [--library FILE] [--cmake ARGUMENT]...

FOLDER is a build with the tool and shared libraries, of which each component is installed; --work is
made anew. The sources are configured as each recipe asks for it, with the ARGUMENTs of CMake; FILE
stands for an external platform library. Neither bitbake nor Conan is run: the one recipe is parsed,
the other one's methods are called with a stand-in for Conan's modules (conan/ beside this file).
"""

import argparse
import hashlib
import importlib.util
import itertools
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parent))

import bitbake  # noqa: E402

# What CMake looks for, and what provides it, by the names of both sides.
PROVIDERS = {
    "GSOAP": ("gsoap", "gsoap"),
    "EXPAT": ("expat", "expat"),
    "CLI11": ("cli11", "cli11"),
    "CURL": ("curl", "libcurl"),
    "nlohmann_json": ("nlohmann-json", "nlohmann_json"),
    "libmicrohttpd": ("libmicrohttpd", "libmicrohttpd"),
    "gnutls": ("gnutls", "gnutls"),
}
PARTS_OF_SYSTEMS = {"PkgConfig", "Threads"}

# The package of bitbake for each component of the installation.
COMPONENTS = {
    "quavera_runtime": "${PN}",
    "quavera_development": "${PN}-dev",
    "quavera_soap_runtime": "${PN}-soap",
    "quavera_soap_development": "${PN}-soap-dev",
    "quavera_tools": "${PN}-tools",
}

failures = 0


def check(what, is_true, *details):
    global failures
    if not is_true:
        failures += 1
        print(what, *details)


def same(what, expected, found):
    check(what, expected == found, f"\n  expected: {expected}\n  found:    {found}")


def run(*command, **options):
    """What a command prints, which has to succeed."""
    made = subprocess.run(command, capture_output=True, text=True, check=False, **options)
    if made.returncode != 0:
        raise SystemExit(f"{shlex.join(map(str, command))}\n{made.stdout}{made.stderr}")
    return made.stdout


class Project:
    """What CMake knows: options, dependencies, and the files of each component."""

    def __init__(self, options):
        self.source = options.source
        self.work = options.work
        self.arguments = options.cmake
        self.library = options.library
        cache = (options.build / "CMakeCache.txt").read_text(encoding="utf-8")
        # A name with a type; choices stand behind "-STRINGS".
        self.cache = {name: value for name, value in
                      re.findall(r"^([^#/\n][^:\n]*):\w+=(.*)$", cache, re.MULTILINE)}
        text = (self.source / "CMakeLists.txt").read_text(encoding="utf-8")
        self.version = re.search(r"project\(Quavera VERSION (\S+)", text).group(1)
        self.files = self.installed(options.build)
        self.root = self.work / "root"

    def installed(self, build):
        """The paths of each component's files, below /usr."""
        # The build folder keeps its account of installations.
        kept = {path: path.read_bytes() for path in build.glob("install_manifest*.txt")}
        files = {}
        for component in COMPONENTS:
            folder = self.work / component
            run("cmake", "--install", build, "--component", component, "--prefix", "/usr",
                env=dict(os.environ, DESTDIR=str(folder)))
            shutil.copytree(folder, self.work / "root", dirs_exist_ok=True, symlinks=True)
            files[component] = {"/" + str(path.relative_to(folder)) for path in folder.rglob("*")
                                if path.is_symlink() or path.is_file()}
            check(f"no files of {component}", files[component])
        for path in build.glob("install_manifest*.txt"):
            path.unlink()
        for path, text in kept.items():
            path.write_bytes(text)
        return files

    def sought(self, *files):
        """What these files of CMake cannot do without."""
        text = "".join((self.source / file).read_text(encoding="utf-8") for file in files)
        names = set(re.findall(r"find_package\((\S+) REQUIRED", text))
        names |= set(re.findall(r"pkg_check_modules\(\w+ REQUIRED.* ([-\w]+)\)", text))
        return names - PARTS_OF_SYSTEMS

    def configure(self, name, arguments, source=None):
        """Configures the sources so, with no word of a variable that is not used."""
        folder = self.work / name
        printed = subprocess.run(
            ["cmake", "-S", source or self.source, "-B", folder, *self.arguments, *arguments],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        check(f"{name}: not configured:\n{printed.stdout}", printed.returncode == 0)
        check(f"{name}: variables that are not used:\n{printed.stdout}",
              "not used by the project" not in printed.stdout)

    def targets_of(self, component):
        return {target for path in self.files[component] if path.endswith("Targets.cmake")
                for target in re.findall(r"add_library\((\S+) ",
                                         (self.root / path[1:]).read_text(encoding="utf-8"))}

    def packages_of(self, component):
        return {pathlib.Path(path).stem for path in self.files[component] if path.endswith(".pc")}


def definitions(text):
    """The variables that arguments of CMake define, with their values."""
    found = re.findall(r"^-D(\w+)=(.*)$", "\n".join(shlex.split(text)), re.MULTILINE)
    return dict(found)


# --- bitbake

def check_files(project, recipe):
    """Each file of a component is in its package, and each entry of a package is there."""
    packages = recipe.get("PACKAGES").split()
    same("packages twice", len(set(packages)), len(packages))
    unused = {(package, pattern) for package in packages
              for pattern in recipe.get(f"FILES:{package}", "").split()}
    for component, files in project.files.items():
        for path in files:
            package, pattern = recipe.package_of(path)
            wanted = recipe.expand(COMPONENTS[component])
            if path.endswith("/LICENSE"):
                wanted = recipe.expand("${PN}-doc")
            same(f"package of {path}", wanted, package)
            unused.discard((package, pattern))
    same("entries of FILES without a file", set(), unused)
    for name in recipe.variables:
        if match := re.match(r"(?:FILES|RDEPENDS|LICENSE):(.+)", name):
            check(f"{name}: no such package", match.group(1) in packages)


def check_options(project, recipe):
    """All variables are CMake's, each state of PACKAGECONFIG can be configured."""
    base = recipe.get("EXTRA_OECMAKE")
    states = {name: recipe.get(f"PACKAGECONFIG[{name}]").split(",")
              for name in ("tool", "external-platform")}
    same("options of PACKAGECONFIG", set(states),
         {name[14:-1] for name in recipe.variables if name.startswith("PACKAGECONFIG[")})
    for text in (base, *(state for fields in states.values() for state in fields[:2])):
        for name, value in definitions(text).items():
            check(f"no variable of CMake: {name}", name in project.cache)
            choices = project.cache.get(f"{name}-STRINGS", "").split(";")
            check(f"{name}: no choice: {value}", choices == [""] or value in choices)
    for name, fields in states.items():
        check(f"{name}: more than one field of six", len(fields) <= 6)
        on, off = definitions(fields[0]), definitions(fields[1])
        check(f"{name}: both states are one", on != off)
        check(f"{name}: left as it was in one state", set(off) <= set(on))
    same("conflict", ["tool"], states["external-platform"][5:])
    tool, platform = states["tool"], states["external-platform"]
    for name, parts in (("yocto", (tool[1], platform[1])), ("yocto-tool", (tool[0], platform[1])),
                        ("yocto-external", (tool[1], platform[0]))):
        project.configure(name, shlex.split(" ".join((base, *parts))))
    cache = (project.work / "yocto-external" / "CMakeCache.txt").read_text(encoding="utf-8")
    check("not external", "QUAVERA_PLATFORM:STRING=external" in cache)


def check_depends(project, recipe):
    tool = set(recipe.get("PACKAGECONFIG[tool]").split(",")[2].split())
    base = set(recipe.get("DEPENDS").split())
    sought = project.sought("CMakeLists.txt", "cmake/Gsoap.cmake", "soap/CMakeLists.txt",
                            "platform/CMakeLists.txt")
    same("DEPENDS", {PROVIDERS[name][0] for name in sought} | {"gsoap-native"}, base)
    same("dependencies of the tool",
         {PROVIDERS[name][0] for name in project.sought("tools/CMakeLists.txt")} - base, tool)


def check_yocto(project):
    layer = project.source / "packaging" / "yocto" / "meta-quavera"
    configuration = bitbake.Recipe(layer / "conf" / "layer.conf", {"LAYERDIR": str(layer)})
    found = list(pathlib.Path("/").glob(configuration.get("BBFILES").strip()[1:]))
    check(f"not one recipe: {found}", len(found) == 1)
    system = {
        "PN": "quavera", "EXTENDPKGV": "1.0.0-r0", "THISDIR": str(found[0].parent),
        "bindir": "/usr/bin", "includedir": "/usr/" + project.cache["CMAKE_INSTALL_INCLUDEDIR"],
        "libdir": "/usr/" + project.cache["CMAKE_INSTALL_LIBDIR"], "datadir": "/usr/share",
        "mandir": "/usr/share/man", "docdir": "/usr/share/doc",
        "STAGING_BINDIR_NATIVE": str(pathlib.Path(project.cache["GSOAP_SOAPCPP2"]).parent),
    }
    recipe = bitbake.Recipe(found[0], system)
    recipe.set("QUAVERA_PLATFORM_INCLUDE_DIR",
               str(project.source / "examples" / "platform" / "include"))
    recipe.set("QUAVERA_PLATFORM_LIBRARY", str(project.library))
    same("file name", f"quavera_{project.version}.bb", found[0].name)
    same("inherited", {"cmake", "pkgconfig", "externalsrc"}, recipe.inherited)
    # A function of Python's; what it is given is a path.
    path = re.fullmatch(r"\$\{@os\.path\.abspath\('(.*)'\)\}", recipe.get("EXTERNALSRC")).group(1)
    same("source", project.source, pathlib.Path(os.path.abspath(path)))
    name, checksum = re.fullmatch(r"file://(\S+);md5=(\w+)",
                                  recipe.get("LIC_FILES_CHKSUM")).groups()
    same("checksum of the licence", checksum,
         hashlib.md5((project.source / name).read_bytes()).hexdigest())
    check_files(project, recipe)
    check_options(project, recipe)
    check_depends(project, recipe)
    return recipe


# --- Conan

def load_conanfile(path):
    spec = importlib.util.spec_from_file_location(path.parent.name, path)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return next(value for name, value in vars(module).items()
                if name.endswith("Conan") and isinstance(value, type))


def check_package_info(project, conanfile, with_soap):
    components = ["quavera_development"] + ["quavera_soap_development"] * with_soap
    described = conanfile.cpp_info.components
    same("file of CMake", "Quavera", conanfile.cpp_info.properties["cmake_file_name"])
    same("targets", set().union(*map(project.targets_of, components)),
         {info.properties["cmake_target_name"] for info in described.values()})
    same("packages of pkg-config", set().union(*map(project.packages_of, components)),
         {info.properties["pkg_config_name"] for info in described.values()})
    libdir = pathlib.Path("/usr") / project.cache["CMAKE_INSTALL_LIBDIR"]
    pkg_config = (project.source / "cmake" / "QuaveraPkgConfig.cmake").read_text(encoding="utf-8")
    required = set()
    for name, info in described.items():
        file = project.root / str(libdir / "pkgconfig" / info.properties["pkg_config_name"])[1:]
        package = file.with_suffix(".pc").read_text(encoding="utf-8")
        for library in info.libs:
            check(f"{name}: another library: {library}", re.search(rf"-l{library}\b", package))
            check(f"{name}: no such library: {library}",
                  (project.root / str(libdir / f"lib{library}.so")[1:]).exists())
        for folder in info.includedirs:
            check(f"{name}: no such folder: {folder}", (project.root / "usr" / folder).is_dir())
        for flag in info.exelinkflags:
            check(f"{name}: another flag: {flag}",
                  re.search(re.escape(flag.removeprefix("-Wl,")) + r"\b", pkg_config))
        for needed in info.requires:
            owner, _, component = needed.rpartition("::")
            required |= {owner} - {""}
            check(f"{name}: no such component: {component}", owner or component in described)
    same("dependencies of components", required,
         {name for name, traits in conanfile.required.items() if traits.get("visible", True)})


def check_conan_with(project, recipe, options):
    conanfile = recipe(options, package_folder=project.work / "conan-package",
                       source_folder=project.source)
    conanfile.configure()
    conanfile.validate()
    conanfile.requirements()
    conanfile.build_requirements()
    conanfile.layout()
    conanfile.generate()
    conanfile.package()
    conanfile.package_info()
    sought = project.sought("CMakeLists.txt", "cmake/Gsoap.cmake", "soap/CMakeLists.txt",
                            "platform/CMakeLists.txt",
                            *(["tools/CMakeLists.txt"] if options["tool"] else []))
    same("requirements", {PROVIDERS[name][1] for name in sought}, set(conanfile.required))
    same("requirements of tools", ["gsoap/<host_version>"], conanfile.tools_required)
    for name in conanfile.cache_variables:
        check(f"no variable of CMake: {name}", name in project.cache)
    same("tool", options["tool"], conanfile.cache_variables["QUAVERA_TOOL"])
    expected = {name for name in COMPONENTS
                if ("soap" not in name or options["with_soap"]) and
                ("tools" not in name or options["tool"])}
    same("components", expected, set(conanfile.installed))
    check_package_info(project, conanfile, options["with_soap"])


def check_conan(project):
    folder = project.source / "packaging" / "conan"
    recipe = load_conanfile(folder / "conanfile.py")
    same("version", project.version, recipe.version)
    same("description", re.search(
        r'DESCRIPTION "(.*)"', (project.source / "CMakeLists.txt").read_text(encoding="utf-8")
    ).group(1), recipe.description)
    same("options with a default", set(recipe.options), set(recipe.default_options))
    same("options that are off", {"tool": False},
         {name: value for name, value in recipe.default_options.items() if not value})
    for values in itertools.product(*recipe.options.values()):
        options = dict(zip(recipe.options, values))
        if options["tool"] and not options["with_soap"]:
            try:
                recipe(options).validate()
                check("the tool without SOAP", False)
            except sys.modules["conan.errors"].ConanInvalidConfiguration:
                pass
        else:
            check_conan_with(project, recipe, options)

    # What is exported is all that the build needs, the tool's included.
    exported = project.work / "exported"
    conanfile = recipe(dict(recipe.default_options), recipe_folder=folder,
                       export_sources_folder=exported)
    conanfile.export_sources()
    project.configure("conan", ["-DQUAVERA_TOOL=ON", "-DBUILD_TESTING=OFF"], exported)
    for path in run("git", "-C", project.source, "ls-files", "base", "cmake", "common", "platform",
                    "records", "soap", "tools").split():
        check(f"not exported: {path}", (exported / path).is_file())
    for script in (project.work / "conan").rglob("cmake_install.cmake"):
        for path in re.findall(rf'"({re.escape(str(exported))}/[^"]+)"',
                               script.read_text(encoding="utf-8")):
            check(f"not exported: {path}", pathlib.Path(path).is_file())

    load_conanfile(folder / "test_package" / "conanfile.py")
    text = (folder / "test_package" / "CMakeLists.txt").read_text(encoding="utf-8")
    for target in re.findall(r"Quavera::\w+", text):
        check(f"no such target: {target}", target in project.targets_of("quavera_development"))
    return recipe


def main():
    parser = argparse.ArgumentParser()
    for name in ("source", "build", "work", "library"):
        parser.add_argument(f"--{name}", required=True, type=pathlib.Path)
    parser.add_argument("--cmake", action="append", default=[])
    options = parser.parse_args()
    shutil.rmtree(options.work, ignore_errors=True)
    project = Project(options)
    yocto = check_yocto(project)
    conan = check_conan(project)
    same("licence", yocto.get("LICENSE").replace("&", "AND").replace("|", "OR"), conan.license)
    sys.exit(1 if failures else 0)


main()
