# SPDX-License-Identifier: MIT
#
# The package: every module that tqlrc_module() made, but for the insides of our own programs; its
# public headers, and what find_package(TQLrcEditor) needs. Included once all modules exist.

include(CMakePackageConfigHelpers)

# TQLrcEditor::TQLrcEditor is what a host links: the component, without the audio items and the
# player of our own host. Where Qt was left out it is the lyric model alone.
add_library(TQLrcEditor INTERFACE)
add_library(TQLrcEditor::TQLrcEditor ALIAS TQLrcEditor)
foreach(name IN ITEMS shell editor preview player views resources contracts kit catalogue lyrics)
    if(TARGET tqlrc_${name})
        target_link_libraries(TQLrcEditor INTERFACE tqlrc_${name})
    endif()
endforeach()

# The object libraries that the toolkit's resource functions hang on a static library.
function(tqlrc_resource_objects target result)
    set(found)
    get_target_property(folder ${target} SOURCE_DIR)
    get_property(siblings DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(sibling IN LISTS siblings)
        get_target_property(kind ${sibling} TYPE)
        if(kind STREQUAL "OBJECT_LIBRARY" AND sibling MATCHES "^${target}_resources_[0-9]+$")
            list(APPEND found ${sibling})
        endif()
    endforeach()
    set(${result} ${found} PARENT_SCOPE)
endfunction()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/TQLrcEditor)

get_property(modules GLOBAL PROPERTY TQLRC_MODULES)
list(REMOVE_ITEM modules tqlrc_host tqlrc_cli)
foreach(module IN LISTS modules)
    install(TARGETS ${module} EXPORT TQLrcEditorTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TQLrcEditor)
    tqlrc_resource_objects(${module} objects)
    if(objects)
        install(TARGETS ${objects} EXPORT TQLrcEditorTargets
            OBJECTS DESTINATION ${CMAKE_INSTALL_LIBDIR})
    endif()
endforeach()

install(TARGETS TQLrcEditor EXPORT TQLrcEditorTargets)
install(EXPORT TQLrcEditorTargets NAMESPACE TQLrcEditor:: DESTINATION ${package_folder})

configure_package_config_file(
    ${CMAKE_CURRENT_LIST_DIR}/TQLrcEditorConfig.cmake.in
    ${PROJECT_BINARY_DIR}/TQLrcEditorConfig.cmake
    INSTALL_DESTINATION ${package_folder}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/TQLrcEditorConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(
    FILES
        ${PROJECT_BINARY_DIR}/TQLrcEditorConfig.cmake
        ${PROJECT_BINARY_DIR}/TQLrcEditorConfigVersion.cmake
    DESTINATION ${package_folder})
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
