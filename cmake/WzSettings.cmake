# Compiler settings shared by every target, carried by the interface target wz_settings.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

option(WZ_WERROR "Treat warnings as errors" OFF)
option(WZ_TESTS "Build the test programs" ON)
option(WZ_BENCHMARKS "Build the benchmark programs" OFF)
option(WZ_FUZZ "Build the libFuzzer targets (clang only)" OFF)
set(WZ_SANITIZE "" CACHE STRING "Sanitizers for all targets, such as address,undefined")

find_program(WZ_CCACHE ccache)
if(WZ_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${WZ_CCACHE})
endif()

# Headers of others make up nearly all of what is compiled. A compiler cache would not take precompiled ones.
include(CMakeDependentOption)
cmake_dependent_option(WZ_PRECOMPILE "Compile the headers of others once for each target" ON
                       "NOT WZ_CCACHE" OFF)

add_library(wz_settings INTERFACE)
target_compile_options(wz_settings INTERFACE
    -Wall -Wextra -Wshadow -pedantic -Wnon-virtual-dtor -Wold-style-cast
    $<$<CXX_COMPILER_ID:GNU>:-Wsuggest-override>
    $<$<BOOL:${WZ_WERROR}>:-Werror>)
target_compile_definitions(wz_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_FOREACH QT_STRICT_ITERATORS QT_USE_QSTRINGBUILDER QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_DEPRECATED_WARNINGS
    SPDLOG_FMT_EXTERNAL
    WZ_VERSION="${PROJECT_VERSION}"
    $<$<NOT:$<CONFIG:Release>>:QT_FORCE_ASSERTS>)

if(WZ_SANITIZE)
    target_compile_options(wz_settings INTERFACE
        -fsanitize=${WZ_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(wz_settings INTERFACE -fsanitize=${WZ_SANITIZE})
endif()
