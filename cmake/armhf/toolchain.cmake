# The target: 32-bit ARM, little-endian, ARMv7 with hard float, as Debian's armhf.
#
# QUAVERA_SYSROOT is the target's root folder; cmake/armhf/sysroot makes one.

set(QUAVERA_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../../build/armhf-sysroot" CACHE PATH
    "Root folder of the target")
get_filename_component(QUAVERA_SYSROOT "${QUAVERA_SYSROOT}" ABSOLUTE)
if(NOT IS_DIRECTORY "${QUAVERA_SYSROOT}/usr")
    message(FATAL_ERROR
        "There is no root folder of the target in ${QUAVERA_SYSROOT}. In the project's folder, this "
        "makes one of Debian's packages, in build/armhf-sysroot, where it is looked for:\n"
        "  cmake/armhf/sysroot build/armhf-sysroot\n"
        "\"./run target\" does that too, and then builds and tests. For another root folder, set "
        "QUAVERA_SYSROOT to its path.")
endif()
# The checks that CMake compiles are projects of their own.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUAVERA_SYSROOT)

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_SYSROOT "${QUAVERA_SYSROOT}")

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(ENV{PKG_CONFIG_PATH} "")
set(ENV{PKG_CONFIG_LIBDIR}
    "${QUAVERA_SYSROOT}/usr/lib/arm-linux-gnueabihf/pkgconfig:${QUAVERA_SYSROOT}/usr/share/pkgconfig")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${QUAVERA_SYSROOT}")

set(CMAKE_CROSSCOMPILING_EMULATOR "qemu-arm;-L;${QUAVERA_SYSROOT}")
