class CMakeToolchain:
    def __init__(self, conanfile):
        self.conanfile = conanfile
        self.cache_variables = {}

    def generate(self):
        self.conanfile.cache_variables = self.cache_variables


class CMake:
    def __init__(self, conanfile):
        self.conanfile = conanfile

    def install(self, component):
        self.conanfile.installed.append(component)


def cmake_layout(_conanfile):
    pass
