# SPDX-License-Identifier: MIT
#
# tqlrc_write_public_headers(<file>): the path from src/ of each header that a module declares as
# public, one a line.
function(tqlrc_write_public_headers file)
    get_property(modules GLOBAL PROPERTY TQLRC_MODULES)
    set(text)
    foreach(module IN LISTS modules)
        get_target_property(folder ${module} SOURCE_DIR)
        get_target_property(headers ${module} HEADER_SET)
        foreach(header IN LISTS headers)
            cmake_path(ABSOLUTE_PATH header BASE_DIRECTORY ${folder} NORMALIZE)
            cmake_path(RELATIVE_PATH header BASE_DIRECTORY ${PROJECT_SOURCE_DIR}/src)
            string(APPEND text "${header}\n")
        endforeach()
    endforeach()
    file(CONFIGURE OUTPUT ${file} CONTENT "${text}")
endfunction()
