# SPDX-License-Identifier: MIT
#
# One folder, one target, one call. Every module is a static library whose public headers are
# included with their folder ("editor/TQLRCEditorViewCtl.h").

include(GNUInstallDirs)

# What every target of ours is compiled with.
add_library(tqlrc_options INTERFACE)
target_compile_features(tqlrc_options INTERFACE cxx_std_20)
target_compile_options(tqlrc_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Wcast-qual -Wformat=2 -Werror
    # g++ 12 optimizing sees overlapping memory in "literal" + std::string where there is none.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(TQLRC_SANITIZE)
    # A list with a comma cannot stand in a generator expression.
    # g++ 12 with sanitizers takes the inside of std::regex for uninitialized.
    target_compile_options(tqlrc_options INTERFACE
        -fsanitize=${TQLRC_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(tqlrc_options INTERFACE -fsanitize=${TQLRC_SANITIZE})
endif()
target_compile_definitions(tqlrc_options INTERFACE
    $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)

# tqlrc_module(<name> SOURCES … HEADERS … [LINKS …] [PRIVATE_LINKS …] [QT])
#
# The library tqlrc_<name>, alias TQLrcEditor::<name>. HEADERS are public: they stand in a file
# set, are installed, and the target all_verify_interface_header_sets compiles each of them alone.
# Every other header of the folder is private to the module, which a test holds. QT turns on moc
# and the resource compiler. Every module becomes part of the package (TQLrcPackage.cmake).
function(tqlrc_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "SOURCES;HEADERS;LINKS;PRIVATE_LINKS")
    set(target tqlrc_${name})
    add_library(${target} STATIC)
    add_library(TQLrcEditor::${name} ALIAS ${target})
    target_sources(${target}
        PRIVATE ${arg_SOURCES}
        PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/src FILES ${arg_HEADERS})
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_link_libraries(${target}
        PUBLIC ${arg_LINKS}
        PRIVATE $<BUILD_INTERFACE:tqlrc_options> ${arg_PRIVATE_LINKS})
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${name}
        POSITION_INDEPENDENT_CODE ON
        VERIFY_INTERFACE_HEADER_SETS ON)
    if(arg_QT)
        set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
    endif()
    set_property(GLOBAL APPEND PROPERTY TQLRC_MODULES ${target})
endfunction()

# tqlrc_gtest(<ctest name> SOURCES … LINKS …): a GoogleTest program, for what lies below Qt.
function(tqlrc_gtest name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    string(REPLACE "." "_" target "tst_${name}")
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE tqlrc_options ${arg_LINKS} GTest::gmock GTest::gtest_main)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    add_test(NAME ${name} COMMAND ${target})
    tqlrc_test_environment(${name})
endfunction()

# tqlrc_qt_test(<ctest name> SOURCES … LINKS …): a Qt Test program, on the offscreen platform.
function(tqlrc_qt_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    string(REPLACE "." "_" target "tst_${name}")
    add_executable(${target} ${arg_SOURCES})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_link_libraries(${target} PRIVATE tqlrc_options ${arg_LINKS} Qt6::Test)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    add_test(NAME ${name} COMMAND ${target})
    tqlrc_test_environment(${name})
endfunction()

# No test needs the machine's screen, its sound card or the user's settings: one that does need a
# screen starts a private one. Each has an end.
function(tqlrc_test_environment name)
    set_tests_properties(${name} PROPERTIES
        TIMEOUT 120
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TQLRC_CASES=${PROJECT_SOURCE_DIR}/../shared/cases;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0")
endfunction()

# tqlrc_bench(<name> SOURCES … LINKS …): the benchmark program bench_<name>, which ./dev bench runs.
function(tqlrc_bench name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    add_executable(bench_${name} ${arg_SOURCES})
    target_link_libraries(bench_${name} PRIVATE tqlrc_options ${arg_LINKS} benchmark::benchmark)
    set_target_properties(bench_${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    if(NOT TARGET benchmarks)
        add_custom_target(benchmarks)
    endif()
    add_dependencies(benchmarks bench_${name})
endfunction()
