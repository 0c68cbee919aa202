"""A stand-in for Conan, as far as the recipe uses it: it notes what the recipe asks for."""

import collections
import pathlib
import types

PRESENT = pathlib.Path("/present")  # where packages are said to be


class Options:
    def __init__(self, values):
        self.__dict__.update(values)

    def rm_safe(self, name):
        self.__dict__.pop(name, None)

    def get_safe(self, name):
        return self.__dict__.get(name)


class Info:
    """A `cpp_info`, of a package or of a component."""

    def __init__(self):
        self.components = collections.defaultdict(Info)
        self.properties = {}
        self.libs = []
        self.includedirs = []
        self.requires = []
        self.defines = []
        self.exelinkflags = []
        self.sharedlinkflags = []

    def set_property(self, name, value):
        self.properties[name] = value

    def aggregated_components(self):
        return self


class Dependencies(dict):
    def __init__(self, conanfile):
        for name in conanfile.required:
            self[name] = types.SimpleNamespace(package_folder=str(PRESENT / name),
                                               cpp_info=Info(), options=Options({}))

    @property
    def build(self):
        return self


class ConanFile:
    def __init__(self, options=None, recipe_folder=None, source_folder=None, package_folder=None,
                 export_sources_folder=None):
        self.options = Options(options or {})
        self.settings = types.SimpleNamespace(os="Linux", arch="armv7hf", compiler="gcc",
                                              build_type="Release")
        self.folders = types.SimpleNamespace(root=None)
        self.recipe_folder = recipe_folder
        self.source_folder = source_folder
        self.package_folder = package_folder
        self.export_sources_folder = export_sources_folder
        self.cpp_info = Info()
        self.required = {}
        self.tools_required = []
        self.cache_variables = {}
        self.installed = []

    def requires(self, reference, **traits):
        self.required[reference.split("/")[0]] = traits

    def tool_requires(self, reference):
        self.tools_required.append(reference)

    @property
    def dependencies(self):
        return Dependencies(self)
