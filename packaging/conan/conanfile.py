"""Quavera for Conan 2. The source is the tree that this file stands in: nothing is fetched."""

import os

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy, rmdir


class QuaveraConan(ConanFile):
    name = "quavera"
    version = "1.0.0"
    description = "Data layer of a music streaming integration"
    # What gSOAP generates, and its runtime, come under its own licences (docs/dependencies.md).
    license = "MIT AND (GPL-2.0-or-later OR gSOAP-1.3b)"
    topics = ("music", "soap", "xml")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {
        "shared": [True, False],
        "fPIC": [True, False],
        "with_soap": [True, False],  # libquavera-soap, too; without, gSOAP is needed to build only
        "tool": [True, False],
    }
    default_options = {"shared": True, "fPIC": True, "with_soap": True, "tool": False}
    generators = "CMakeDeps", "PkgConfigDeps"

    def export_sources(self):
        root = os.path.join(self.recipe_folder, "..", "..")
        for pattern in ("CMakeLists.txt", "LICENSE", "base/*", "cmake/*", "common/*", "docs/*",
                        "packaging/*", "platform/*", "records/*", "soap/*", "tools/*"):
            copy(self, pattern, root, self.export_sources_folder)

    def layout(self):
        self.folders.root = os.path.join("..", "..")
        cmake_layout(self)

    def configure(self):
        if self.options.shared:
            self.options.rm_safe("fPIC")

    def validate(self):
        check_min_cppstd(self, 17)
        if self.settings.os != "Linux":
            raise ConanInvalidConfiguration("Quavera is for Linux")
        if self.options.tool and not self.options.with_soap:
            raise ConanInvalidConfiguration("the tool speaks SOAP: it needs with_soap=True")

    def requirements(self):
        self.requires("expat/[>=2.5 <3]")
        # Its types stand in the headers of the SOAP records.
        if self.options.with_soap:
            self.requires("gsoap/[>=2.8.124 <2.9]", transitive_headers=True, transitive_libs=True)
        else:
            self.requires("gsoap/[>=2.8.124 <2.9]", libs=False, visible=False)
        if self.options.tool:
            self.requires("cli11/[>=2.3 <3]", visible=False)
            self.requires("gnutls/[>=3.7 <4]", visible=False)
            self.requires("libcurl/[>=7.88 <9]", visible=False)
            self.requires("libmicrohttpd/[>=0.9.75 <2]", visible=False)
            self.requires("nlohmann_json/[>=3.11 <4]", visible=False)

    def build_requirements(self):
        # The generator, which runs on the build machine, in the runtime's version.
        self.tool_requires("gsoap/<host_version>")

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["QUAVERA_TOOL"] = bool(self.options.tool)
        # What cmake/FindGSOAP.cmake looks for, so that it finds no other gSOAP of this machine.
        runtime = self.dependencies["gsoap"]
        folder = runtime.package_folder
        info = runtime.cpp_info.aggregated_components()
        library = "libgsoap++.so" if runtime.options.get_safe("shared") else "libgsoap++.a"
        generator = self.dependencies.build["gsoap"].package_folder
        toolchain.cache_variables["GSOAP_INCLUDE_DIR"] = os.path.join(folder, "include")
        toolchain.cache_variables["GSOAP_LIBRARY"] = os.path.join(folder, "lib", library)
        toolchain.cache_variables["GSOAP_DEFINITIONS"] = ";".join(info.defines)
        toolchain.cache_variables["GSOAP_SOAPCPP2"] = os.path.join(generator, "bin", "soapcpp2")
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        components = ["quavera_runtime", "quavera_development"]
        if self.options.with_soap:
            components += ["quavera_soap_runtime", "quavera_soap_development"]
        if self.options.tool:
            components += ["quavera_tools"]
        cmake = CMake(self)
        for component in components:
            cmake.install(component=component)
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))
        # What consumers find instead is made of package_info, for the packages of their graph.
        rmdir(self, os.path.join(self.package_folder, "lib", "cmake"))
        rmdir(self, os.path.join(self.package_folder, "lib", "pkgconfig"))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "Quavera")
        self._describe("zqshared", "zqshared", "Quavera::zqshared", "zqshared", ["expat::expat"])
        self._describe("quavera", "quavera", "Quavera::quavera", "quavera", ["zqshared"])
        if not self.options.with_soap:
            return
        self._describe("soap", "quavera-soap", "Quavera::soap", "quavera-soap", ["gsoap::gsoap"])
        # gSOAP's runtime takes functions and the namespace table from this library, which a linker
        # meets ahead of it and may drop from programs that call the runtime only.
        flags = ["-Wl,--no-as-needed"]
        if not self.options.shared:
            flags = ["-Wl,-u,namespaces", "-Wl,-u,soap_getelement"]
        self.cpp_info.components["soap"].exelinkflags = flags
        self.cpp_info.components["soap"].sharedlinkflags = flags

    def _describe(self, component, library, target, package, requires):
        info = self.cpp_info.components[component]
        info.libs = [library]
        info.includedirs = [os.path.join("include", "quavera")]
        info.requires = requires
        info.set_property("cmake_target_name", target)
        info.set_property("pkg_config_name", package)
