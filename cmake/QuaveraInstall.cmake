# Installed: the libraries, their public headers, the tool, and package files for CMake and
# pkg-config.

include(CMakePackageConfigHelpers)

set(quavera_header_dir "${CMAKE_INSTALL_INCLUDEDIR}/quavera")
set(quavera_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Quavera")

install(TARGETS zqshared quavera EXPORT QuaveraTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS quavera-tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

install(FILES
    platform/AutoCom.h
    platform/Base64Encoder.h
    platform/Diagnostics.h
    platform/Export.h
    platform/ToString.h
    platform/XmlNode.h
    platform/XmlText.h
    platform/zqshared.h
    DESTINATION ${quavera_header_dir}/platform)
install(FILES common/Export.h common/QuaveraCommon.h DESTINATION ${quavera_header_dir}/common)
# One header for each record class; the verbs that the records are written with stay inside.
file(GLOB quavera_record_headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/records/*Dat*.h")
install(FILES ${quavera_record_headers} DESTINATION ${quavera_header_dir}/records)

install(EXPORT QuaveraTargets NAMESPACE Quavera:: DESTINATION ${quavera_package_dir})
configure_package_config_file(packaging/QuaveraConfig.cmake.in QuaveraConfig.cmake
    INSTALL_DESTINATION ${quavera_package_dir})
write_basic_package_version_file(QuaveraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/QuaveraConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/QuaveraConfigVersion.cmake"
    cmake/FindGSOAP.cmake
    DESTINATION ${quavera_package_dir})

# From the file itself, so that a prefix may be chosen at installation, or moved.
file(RELATIVE_PATH quavera_pc_to_prefix
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file(packaging/quavera.pc.in quavera.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/quavera.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES docs/quavera.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
