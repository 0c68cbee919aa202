# Installed: the libraries, their public headers, the tool, and package files for CMake and
# pkg-config. An external platform library is not part of the package: it is only referred to.

include(CMakePackageConfigHelpers)

set(quavera_header_dir "${CMAKE_INSTALL_INCLUDEDIR}/quavera")
set(quavera_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Quavera")

install(TARGETS quavera EXPORT QuaveraTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(QUAVERA_PLATFORM STREQUAL "bundled")
    install(TARGETS zqshared EXPORT QuaveraTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
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
    install(FILES records/RecordText.h DESTINATION ${quavera_header_dir}/records)

    # Where gdb looks for it: below a folder of its own, by the full path of the library's real file,
    # which only the installation knows.
    install(CODE "
        set(path_kind REALPATH)
        if(NOT \"\$ENV{DESTDIR}\" STREQUAL \"\")
            set(path_kind ABSOLUTE)  # links of this machine are not those of the one that it is for
        endif()
        get_filename_component(quavera_gdb_libdir \"${CMAKE_INSTALL_LIBDIR}\" \${path_kind}
            BASE_DIR \"\${CMAKE_INSTALL_PREFIX}\")")
    install(FILES platform/gdb/libzqshared-gdb.py
        DESTINATION "${CMAKE_INSTALL_DATADIR}/gdb/auto-load\${quavera_gdb_libdir}"
        RENAME "$<TARGET_FILE_NAME:zqshared>-gdb.py")

    install(TARGETS quavera-tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES docs/quavera.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES packaging/quavera.bash RENAME quavera
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
endif()

install(FILES
    common/Branding.h
    common/ClientMessages.h
    common/Export.h
    common/MessageTexts.h
    common/QuaveraCommon.h
    common/SocketHelpers.h
    common/TextConversion.h
    DESTINATION ${quavera_header_dir}/common)
# One header for each record class; the verbs that the records are written with stay inside.
list(TRANSFORM QUAVERA_RECORD_CLASSES REPLACE "(.+)" "records/\\1.h"
    OUTPUT_VARIABLE quavera_record_headers)
install(FILES
    ${quavera_record_headers}
    records/QuavData.h
    records/Records.def
    records/SoapRecords.h
    DESTINATION ${quavera_header_dir}/records)

install(EXPORT QuaveraTargets NAMESPACE Quavera:: DESTINATION ${quavera_package_dir})
configure_package_config_file(packaging/QuaveraConfig.cmake.in QuaveraConfig.cmake
    INSTALL_DESTINATION ${quavera_package_dir})
if(QUAVERA_PLATFORM STREQUAL "external")
    configure_file(packaging/QuaveraPlatform.cmake.in QuaveraPlatform.cmake @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/QuaveraPlatform.cmake"
        DESTINATION ${quavera_package_dir})
endif()
write_basic_package_version_file(QuaveraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/QuaveraConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/QuaveraConfigVersion.cmake"
    cmake/FindGSOAP.cmake
    DESTINATION ${quavera_package_dir})

# From the file itself, so that a prefix may be chosen at installation, or moved.
file(RELATIVE_PATH quavera_pc_to_prefix
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
set(quavera_pc_variables "")
set(quavera_pc_cflags "")
set(quavera_pc_libs "-lzqshared")
if(QUAVERA_PLATFORM STREQUAL "external")
    # As variables, so that pkg-config's --define-variable can name another place.
    get_filename_component(folder "${QUAVERA_PLATFORM_LIBRARY}" DIRECTORY)
    get_filename_component(file "${QUAVERA_PLATFORM_LIBRARY}" NAME)
    string(CONCAT quavera_pc_variables
        "platform_includedir=${QUAVERA_PLATFORM_INCLUDE_DIR}\n"
        "platform_libdir=${folder}\n"
        "platform_library=${file}\n")
    string(REPLACE " " "\\ " quavera_pc_variables "${quavera_pc_variables}")
    set(quavera_pc_cflags " -I\${platform_includedir}")
    set(quavera_pc_libs "-L\${platform_libdir} -l:\${platform_library}")
endif()
configure_file(packaging/quavera.pc.in quavera.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/quavera.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
