# Makes the reference: cmake -DDOXYGEN=… -DDOXYFILE=… -DOUTPUT_DIR=… -P MakeReference.cmake
#
# Pages of folders are named after a hash of the folder's path, which says where a build was made. Here
# they get names that are the same everywhere: after what such a page says.

cmake_minimum_required(VERSION 3.25)

set(html "${OUTPUT_DIR}/html")
file(REMOVE_RECURSE "${html}")  # or pages of what is gone would stay
execute_process(COMMAND "${DOXYGEN}" "${DOXYFILE}" RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "The comments in the headers are not complete, or not right: ${status}")
endif()

file(GLOB folders RELATIVE "${html}" "${html}/dir_*.html")
set(old_names ${folders})
list(TRANSFORM old_names REPLACE "\\.html$" "")
file(GLOB_RECURSE pages "${html}/*.html" "${html}/*.js")

set(new_names "")
foreach(old IN LISTS old_names)
    file(READ "${html}/${old}.html" text)
    foreach(name IN LISTS old_names)
        string(REPLACE "${name}" "" text "${text}")
    endforeach()
    string(MD5 hash "${text}")
    list(APPEND new_names "dir_${hash}")
endforeach()

set(different ${new_names})
list(REMOVE_DUPLICATES different)
if(NOT different STREQUAL new_names)
    message(FATAL_ERROR "Pages of two folders say the same")
endif()

foreach(page IN LISTS pages)
    file(READ "${page}" text)
    set(renamed "${text}")
    foreach(old new IN ZIP_LISTS old_names new_names)
        string(REPLACE "${old}" "${new}" renamed "${renamed}")
    endforeach()
    if(NOT renamed STREQUAL text)
        file(WRITE "${page}" "${renamed}")
    endif()
endforeach()
foreach(old new IN ZIP_LISTS old_names new_names)
    file(RENAME "${html}/${old}.html" "${html}/${new}.html")
endforeach()
