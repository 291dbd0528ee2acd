# SPDX-License-Identifier: MIT
# tqlrc_catalogues(<variable> <qrc> <catalogue>…): compiles the catalogues (.ts) and packs them as the
# resources that <qrc> lists; all of them stand in the current folder. The source to be added to a module
# is put into <variable>.
function(tqlrc_catalogues variable qrc)
    set(compiled)
    foreach(catalogue IN LISTS ARGN)
        cmake_path(REPLACE_EXTENSION catalogue qm OUTPUT_VARIABLE name)
        set(target ${CMAKE_CURRENT_BINARY_DIR}/${name})
        add_custom_command(
            OUTPUT ${target}
            COMMAND Qt6::lrelease -silent ${CMAKE_CURRENT_SOURCE_DIR}/${catalogue} -qm ${target}
            DEPENDS ${catalogue}
            VERBATIM)
        list(APPEND compiled ${target})
    endforeach()
    # The list stands beside what it lists, and that is built.
    configure_file(${qrc} ${CMAKE_CURRENT_BINARY_DIR}/${qrc} COPYONLY)
    cmake_path(GET qrc STEM name)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    add_custom_command(
        OUTPUT ${source}
        COMMAND Qt6::rcc --name ${name} --output ${source} ${CMAKE_CURRENT_BINARY_DIR}/${qrc}
        DEPENDS ${compiled} ${CMAKE_CURRENT_BINARY_DIR}/${qrc}
        VERBATIM)
    set_source_files_properties(${source} PROPERTIES SKIP_AUTOGEN ON)
    set(${variable} ${source} PARENT_SCOPE)
endfunction()
