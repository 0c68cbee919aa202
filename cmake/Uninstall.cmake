# Removes what the last installation from a build folder has installed, by its manifests.
#
#   cmake -DBUILD_DIR=<build folder> -P Uninstall.cmake
#
# As at the installation, DESTDIR goes ahead of each path.

# One for the whole, or one for each component.
file(GLOB manifests "${BUILD_DIR}/install_manifest*.txt")
if(NOT manifests)
    message(FATAL_ERROR
        "Nothing was installed from ${BUILD_DIR}: there is no install_manifest.txt.")
endif()

# Folders of our own go with their last file; those that are everybody's stay.
function(remove_empty_folders folder)
    while(folder MATCHES "/[Qq]uavera(/|$)")
        file(GLOB entries "${folder}/*" "${folder}/.*")
        list(FILTER entries EXCLUDE REGEX "/\\.\\.?$")
        if(entries OR NOT IS_DIRECTORY "${folder}")
            return()
        endif()
        file(REMOVE_RECURSE "${folder}")
        message(STATUS "Removed folder: ${folder}")
        get_filename_component(folder "${folder}" DIRECTORY)
    endwhile()
endfunction()

set(failures "")
foreach(manifest IN LISTS manifests)
    file(STRINGS "${manifest}" files)
    foreach(file IN LISTS files)
        set(file "$ENV{DESTDIR}${file}")
        if(NOT EXISTS "${file}" AND NOT IS_SYMLINK "${file}")
            message(STATUS "Not there: ${file}")
            continue()
        endif()
        execute_process(COMMAND "${CMAKE_COMMAND}" -E rm "${file}" RESULT_VARIABLE status)
        if(NOT status EQUAL 0)
            list(APPEND failures "${file}")
            continue()
        endif()
        message(STATUS "Removed: ${file}")
        get_filename_component(folder "${file}" DIRECTORY)
        remove_empty_folders("${folder}")
    endforeach()
endforeach()

if(failures)
    list(JOIN failures "\n  " failures)
    message(FATAL_ERROR "These files could not be removed:\n  ${failures}")
endif()
file(REMOVE ${manifests})
