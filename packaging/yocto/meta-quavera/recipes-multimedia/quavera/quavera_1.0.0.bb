SUMMARY = "Data layer of a music streaming integration"
DESCRIPTION = "Turns the records of a music streaming service into trees of XML nodes that cross a \
process boundary, reads them back, and renders them as text for a log."
SECTION = "libs/multimedia"

# What gSOAP generates, and its runtime, come under its own licences: see docs/dependencies.md. A
# commercial licence of its makers takes the place of the second part.
LICENSE = "MIT & (GPL-2.0-or-later | gSOAP-1.3b)"
LICENSE:${PN} = "MIT"
LICENSE:${PN}-dev = "MIT"
LIC_FILES_CHKSUM = "file://LICENSE;md5=427957397cca78ead0cdcb3e4d6d009b"

# The source is the tree that this layer stands in: nothing is fetched.
inherit externalsrc
EXTERNALSRC = "${@os.path.abspath('${THISDIR}/../../../../..')}"

inherit cmake pkgconfig

# The generator that runs on the build machine, and the runtime of the same version.
DEPENDS = "gsoap-native gsoap expat"

# As docs/target.md measures it.
EXTRA_OECMAKE = " \
    -DCMAKE_BUILD_TYPE=MinSizeRel \
    -DGSOAP_SOAPCPP2=${STAGING_BINDIR_NATIVE}/soapcpp2 \
"

PACKAGECONFIG ??= ""
PACKAGECONFIG[tool] = "-DQUAVERA_TOOL=ON,-DQUAVERA_TOOL=OFF,cli11 curl gnutls libmicrohttpd nlohmann-json"
# The controller's own platform library in place of the bundled one. Both variables name what its
# recipe, which has to be in DEPENDS, puts into the sysroot.
PACKAGECONFIG[external-platform] = "-DQUAVERA_PLATFORM=external -DQUAVERA_PLATFORM_INCLUDE_DIR=${QUAVERA_PLATFORM_INCLUDE_DIR} -DQUAVERA_PLATFORM_LIBRARY=${QUAVERA_PLATFORM_LIBRARY},-DQUAVERA_PLATFORM=bundled,,,,tool"
QUAVERA_PLATFORM_INCLUDE_DIR ?= "${STAGING_INCDIR}"
QUAVERA_PLATFORM_LIBRARY ?= "${STAGING_LIBDIR}/libcontroller.so"

# One package for each component of the installation, so that what needs gSOAP stands apart. A file
# goes to the first package that names it.
PACKAGES = "${PN}-src ${PN}-dbg ${PN}-tools ${PN}-soap-dev ${PN}-dev ${PN}-doc ${PN}-soap ${PN}"

FILES:${PN} = "${libdir}/libquavera.so.* ${libdir}/libzqshared.so.*"
FILES:${PN}-dev = " \
    ${includedir}/quavera/common \
    ${includedir}/quavera/platform \
    ${includedir}/quavera/records \
    ${libdir}/cmake/Quavera \
    ${libdir}/libquavera.so \
    ${libdir}/libzqshared.so \
    ${libdir}/pkgconfig/quavera.pc \
    ${libdir}/pkgconfig/zqshared.pc \
    ${datadir}/gdb/auto-load \
"
FILES:${PN}-soap = "${libdir}/libquavera-soap.so.*"
FILES:${PN}-soap-dev = " \
    ${includedir}/quavera/soap \
    ${libdir}/cmake/Quavera/FindGSOAP.cmake \
    ${libdir}/cmake/Quavera/QuaveraSoapTargets*.cmake \
    ${libdir}/libquavera-soap.so \
    ${libdir}/pkgconfig/quavera-soap.pc \
    ${datadir}/quavera/Quavera.wsdl \
"
FILES:${PN}-tools = "${bindir}/quavera ${datadir}/bash-completion ${mandir}/man1/quavera.1"
FILES:${PN}-doc = "${docdir}"

# Code that speaks SOAP is compiled with gSOAP's header; the records' headers do without.
RDEPENDS:${PN}-soap-dev = "${PN}-dev (= ${EXTENDPKGV}) ${PN}-soap (= ${EXTENDPKGV}) gsoap-dev"
