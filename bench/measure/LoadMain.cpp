// Loads a library and prints where: a trace of the run then tells what its initialisers cost.

#include <dlfcn.h>
#include <link.h>

#include <cstdio>

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::fputs("usage: quavera-bench-load LIBRARY\n", stderr);
        return 2;
    }
    void* const library = dlopen(arguments[1], RTLD_NOW);
    if (library == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    link_map* map = nullptr;
    if (dlinfo(library, RTLD_DI_LINKMAP, &map) != 0) {
        return 1;
    }
    const unsigned long address = map->l_addr;
    std::printf("%08lx\n", address);
    return 0;
}
