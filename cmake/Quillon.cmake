# Shared rules of the build: language, warnings, sanitizers, and one function each for a library and a test.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

find_program(QUILLON_CCACHE ccache)
if(QUILLON_CCACHE AND PROJECT_IS_TOP_LEVEL)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        ${QUILLON_CCACHE})
endif()

add_library(quillon_flags INTERFACE)
target_compile_definitions(quillon_flags INTERFACE QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(MSVC)
    target_compile_options(quillon_flags INTERFACE /W4 /WX /utf-8 /permissive-)
else()
    target_compile_options(quillon_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wundef
        -Wnull-dereference -Werror)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_BUILD_TYPE STREQUAL "Release")
        # The optimiser of this compiler sees null paths inside Qt's inline containers and overlaps inside std::string's operator+.
        target_compile_options(quillon_flags INTERFACE -Wno-null-dereference -Wno-restrict)
    endif()
endif()
if(QUILLON_SANITIZE)
    target_compile_options(quillon_flags INTERFACE -fsanitize=${QUILLON_SANITIZE} -fno-omit-frame-pointer -g1)
    target_link_options(quillon_flags INTERFACE -fsanitize=${QUILLON_SANITIZE})
    if(QUILLON_SANITIZE STREQUAL "address")
        target_compile_options(quillon_flags INTERFACE -fsanitize=undefined -fno-sanitize-recover=undefined)
        target_link_options(quillon_flags INTERFACE -fsanitize=undefined)
    endif()
endif()

# quillon_sanitize(NAME)
# What the sanitizer of this build, if any, has to be told in an executable.
function(quillon_sanitize name)
    if(QUILLON_SANITIZE STREQUAL "thread")
        target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/ThreadSanitizer.cpp)
    elseif(QUILLON_SANITIZE STREQUAL "address")
        target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/AddressSanitizer.cpp)
    endif()
endfunction()

# Everything that the sanitizer builds run: the tests of the link, the store and the readers.
add_custom_target(sanitized)

# quillon_library(NAME SOURCES a.cpp ... PUBLIC lib ... PRIVATE lib ... PCH <header> ...)
# One folder, one library. Headers are included from the root of the tree.
function(quillon_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE;PCH" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE quillon_flags ${ARG_PRIVATE})
    if(ARG_PCH)
        target_precompile_headers(${name} PRIVATE ${ARG_PCH})
    endif()
endfunction()

# quillon_test(NAME SOURCES tst_x.cpp ... LIBS lib ... LABELS label ... [TIMEOUT seconds])
# Runs on the offscreen platform, in a home of its own, and fails on a warning that it did not announce.
# The label "link" or "store" puts a test into the sanitizer builds as well; a test that needs wall-clock calm runs alone (SERIAL).
function(quillon_test name)
    cmake_parse_arguments(ARG "SERIAL" "TIMEOUT" "SOURCES;LIBS;LABELS;ENVIRONMENT" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE Qt6::Test quillon_flags ${ARG_LIBS})
    quillon_sanitize(${name})
    add_test(NAME ${name} COMMAND ${name})
    if("link" IN_LIST ARG_LABELS OR "store" IN_LIST ARG_LABELS)
        add_dependencies(sanitized ${name})
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    set(home ${CMAKE_BINARY_DIR}/test-home/${name})
    file(MAKE_DIRECTORY ${home})
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${ARG_TIMEOUT}
        RUN_SERIAL ${ARG_SERIAL}
        LABELS "${ARG_LABELS}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_DATA_HOME=${home}/data;XDG_RUNTIME_DIR=${home};${ARG_ENVIRONMENT}")
endfunction()
