# Installed: the libraries, their public headers, the tool, and package files for CMake and
# pkg-config. An external platform library is not part of the package: it is only referred to.
#
# Packagers may split it, each part an installation's component (`cmake --install --component`):
#
#   quavera_runtime            libquavera and libzqshared, as programs need them to run
#   quavera_development        what programs are built with: headers, package files, static libraries
#   quavera_soap_runtime       the same two of libquavera-soap: only these need gSOAP
#   quavera_soap_development
#   quavera_tools              the tool and its manual; needs both runtimes

include(CMakePackageConfigHelpers)

set(quavera_header_dir "${CMAKE_INSTALL_INCLUDEDIR}/quavera")
set(quavera_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Quavera")

quavera_install_library(quavera QuaveraRecordsTargets quavera)
if(QUAVERA_PLATFORM STREQUAL "bundled")
    quavera_install_library(zqshared QuaveraRecordsTargets quavera)
    set(quavera_platform_headers
        platform/AutoCom.h
        platform/Base64Encoder.h
        platform/Diagnostics.h
        platform/Export.h
        platform/ToString.h
        platform/XmlNode.h
        platform/XmlText.h
        platform/zqshared.h)
    install(FILES ${quavera_platform_headers}
        DESTINATION ${quavera_header_dir}/platform COMPONENT quavera_development)
    install(FILES records/RecordText.h
        DESTINATION ${quavera_header_dir}/records COMPONENT quavera_development)
endif()
if(QUAVERA_PLATFORM STREQUAL "bundled" AND QUAVERA_LIBRARY_TYPE STREQUAL "SHARED")
    # Where gdb looks for it: below a folder of its own, by the full path of the library's real file,
    # which only the installation knows.
    install(CODE "
        set(path_kind REALPATH)
        if(NOT \"\$ENV{DESTDIR}\" STREQUAL \"\")
            set(path_kind ABSOLUTE)  # links of this machine are not those of the one that it is for
        endif()
        get_filename_component(quavera_gdb_libdir \"${CMAKE_INSTALL_LIBDIR}\" \${path_kind}
            BASE_DIR \"\${CMAKE_INSTALL_PREFIX}\")"
        COMPONENT quavera_development)
    install(FILES platform/gdb/libzqshared-gdb.py
        DESTINATION "${CMAKE_INSTALL_DATADIR}/gdb/auto-load\${quavera_gdb_libdir}"
        RENAME "$<TARGET_FILE_NAME:zqshared>-gdb.py"
        COMPONENT quavera_development)
endif()

set(quavera_common_headers
    common/Branding.h
    common/ClientMessages.h
    common/Export.h
    common/MessageTexts.h
    common/QuaveraCommon.h
    common/SocketHelpers.h
    common/TextConversion.h
    "${PROJECT_BINARY_DIR}/generated/common/Version.h")
install(FILES ${quavera_common_headers}
    DESTINATION ${quavera_header_dir}/common COMPONENT quavera_development)
# One header for each record class; the verbs that the records are written with stay inside.
list(TRANSFORM QUAVERA_RECORD_CLASSES REPLACE "(.+)" "records/\\1.h"
    OUTPUT_VARIABLE quavera_record_headers)
list(APPEND quavera_record_headers
    records/QuavData.h
    records/Records.def
    records/SoapRecords.h)
install(FILES ${quavera_record_headers}
    DESTINATION ${quavera_header_dir}/records COMPONENT quavera_development)

# What a project names as components of the package: one set of targets for each.
install(EXPORT QuaveraRecordsTargets NAMESPACE Quavera::
    DESTINATION ${quavera_package_dir} COMPONENT quavera_development)
install(EXPORT QuaveraSoapTargets NAMESPACE Quavera::
    DESTINATION ${quavera_package_dir} COMPONENT quavera_soap_development)
configure_package_config_file(packaging/QuaveraConfig.cmake.in QuaveraConfig.cmake
    INSTALL_DESTINATION ${quavera_package_dir}
    NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
if(QUAVERA_PLATFORM STREQUAL "external")
    configure_file(packaging/QuaveraPlatform.cmake.in QuaveraPlatform.cmake @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/QuaveraPlatform.cmake"
        DESTINATION ${quavera_package_dir} COMPONENT quavera_development)
endif()
write_basic_package_version_file(QuaveraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/QuaveraConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/QuaveraConfigVersion.cmake"
    DESTINATION ${quavera_package_dir} COMPONENT quavera_development)
install(FILES cmake/FindGSOAP.cmake
    DESTINATION ${quavera_package_dir} COMPONENT quavera_soap_development)

include(QuaveraPkgConfig)

install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT quavera_runtime)

if(PROJECT_IS_TOP_LEVEL)
    add_custom_target(uninstall
        COMMAND "${CMAKE_COMMAND}" "-DBUILD_DIR=${PROJECT_BINARY_DIR}"
                -P "${PROJECT_SOURCE_DIR}/cmake/Uninstall.cmake"
        COMMENT "Removing what was installed"
        USES_TERMINAL
        VERBATIM)
endif()
