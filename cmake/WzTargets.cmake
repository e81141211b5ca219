# Functions that declare the project's libraries, programs and tests.

# wz_precompile(NAME): see Precompiled.h.
function(wz_precompile name)
    if(WZ_PRECOMPILE)
        target_precompile_headers(${name} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/Precompiled.h)
    endif()
endfunction()

# wz_add_library(NAME FOLDER folder SOURCES ... [PUBLIC libs] [PRIVATE libs])
#
# Declares the static library of one folder below src/. Includes are written from src/, yet the
# compiler sees only the folders of the libraries that are linked: each library offers a directory
# holding nothing but a link to its own folder. An include against the direction of the layers does
# not compile.
function(wz_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "FOLDER" "SOURCES;PUBLIC;PRIVATE")
    add_library(${name} STATIC ${arg_SOURCES})
    set(door ${PROJECT_BINARY_DIR}/include/${name})
    cmake_path(GET arg_FOLDER PARENT_PATH parent)
    file(MAKE_DIRECTORY ${door}/${parent})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${arg_FOLDER} ${door}/${arg_FOLDER} SYMBOLIC)
    target_include_directories(${name} PUBLIC ${door})
    target_link_libraries(${name} PUBLIC wz_settings ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
    wz_precompile(${name})
endfunction()

# wz_add_program(NAME SOURCES ... LINK libs)
#
# Programs export their functions' names, so that the backtrace of a crash log shows names, also of a
# stripped program.
function(wz_add_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_executable(${name} ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
    target_link_libraries(${name} PRIVATE wz_settings ${arg_LINK})
endfunction()

# wz_add_tests(NAME SOURCES tst_A.cpp ... LINK libs [HELPERS sources] [LOCKS tst_A=lock ...])
#
# Builds one test program of all sources and declares one CTest entry per test class, named
# NAME.A for tst_A.cpp. LOCKS names a resource (a fixed port, say) that an entry needs for itself.
function(wz_add_tests name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;HELPERS;LINK;LOCKS")
    set(program ${name}_tests)
    add_executable(${program} ${arg_SOURCES} ${arg_HELPERS})
    target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${program} PRIVATE wz_test_support ${arg_LINK})
    wz_precompile(${program})
    foreach(source IN LISTS arg_SOURCES)
        cmake_path(GET source STEM class)
        string(REPLACE "tst_" "" subject ${class})
        set(entry ${name}.${subject})
        add_test(NAME ${entry} COMMAND ${program} ${class})
        set_tests_properties(${entry} PROPERTIES
            TIMEOUT 120
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;UBSAN_OPTIONS=print_stacktrace=1;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0")
        foreach(lock IN LISTS arg_LOCKS)
            if(lock MATCHES "^${class}=(.+)$")
                set_property(TEST ${entry} APPEND PROPERTY RESOURCE_LOCK ${CMAKE_MATCH_1})
            endif()
        endforeach()
    endforeach()
endfunction()
