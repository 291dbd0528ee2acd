# SPDX-License-Identifier: MIT
#
# tqlrc_write_declared_headers(<file>): one line for each header that a module declares, its path
# from src/ after "public" (its header set) or "private" (its sources).

function(tqlrc_header_lines target kind property result)
    get_target_property(folder ${target} SOURCE_DIR)
    get_target_property(files ${target} ${property})
    set(lines)
    foreach(file IN LISTS files)
        if(file MATCHES "\\.h$")
            cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY ${folder} NORMALIZE)
            cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${PROJECT_SOURCE_DIR}/src)
            string(APPEND lines "${kind} ${file}\n")
        endif()
    endforeach()
    set(${result} "${lines}" PARENT_SCOPE)
endfunction()

function(tqlrc_write_declared_headers file)
    get_property(modules GLOBAL PROPERTY TQLRC_MODULES)
    set(text)
    foreach(module IN LISTS modules)
        tqlrc_header_lines(${module} public HEADER_SET public_lines)
        tqlrc_header_lines(${module} private SOURCES private_lines)
        string(APPEND text "${public_lines}${private_lines}")
    endforeach()
    file(CONFIGURE OUTPUT ${file} CONTENT "${text}")
endfunction()
