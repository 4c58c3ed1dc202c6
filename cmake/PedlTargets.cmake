# Language, warnings, hardening and the helper functions that every CMakeLists.txt of ours uses.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

include(GNUInstallDirs)
# Where hosts look for VST 2.4 plug-ins, below the prefix.
set(PEDL_PLUGIN_FOLDER lib/vst)

# ccache where it is installed, unless the caller chose a launcher.
find_program(PEDL_CCACHE ccache)
if(PEDL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # It keeps nothing that starts from a precompiled header unless told so.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${PEDL_CCACHE})
endif()

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()
# -O2 and nothing that relaxes IEEE arithmetic: the NaN tests and the tiny denormal guards must survive.
# A broken promise of ours must not end a musician's host: assertions are for debug and test builds.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_DEBUG "-O0 -g")

add_library(pedl_options INTERFACE)
target_include_directories(pedl_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(pedl_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -ffp-contract=off
    # The same sources give the same bytes wherever they are built.
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=build
    -fstack-protector-strong -fstack-clash-protection -fcf-protection -ffunction-sections
    -fdata-sections
    # A source that another one includes may have unnamed namespaces.
    $<$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>:-Wno-subobject-linkage>)
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_compile_options(pedl_options INTERFACE
        $<$<NOT:$<BOOL:$<TARGET_PROPERTY:PEDL_UNOPTIMISED>>>:-D_FORTIFY_SOURCE=2>)
endif()
target_link_options(pedl_options INTERFACE -Wl,-z,relro,-z,now -Wl,--gc-sections)
# A fuzzer steers by what its inputs reach, so all of our code counts edges, and stops at a finding.
if(PEDL_FUZZ)
    target_compile_options(pedl_options INTERFACE
        -g1 -fno-omit-frame-pointer -fsanitize=fuzzer-no-link,address,undefined
        -fno-sanitize-recover=all)
    target_link_options(pedl_options INTERFACE -fsanitize=address,undefined)
endif()

# For builds that are only run, the sanitizers': the sources of a library are compiled several at a
# time (CMAKE_UNITY_BUILD), so that names in unnamed namespaces are each used once in a folder, and
# start from what nearly every one includes, compiled once. In the others a source has to name what it
# needs.
option(PEDL_PRECOMPILE "Start every library's sources from one precompiled header" OFF)
if(PEDL_PRECOMPILE)
    set(empty ${CMAKE_CURRENT_BINARY_DIR}/libraryHeaders.cpp)
    file(CONFIGURE OUTPUT ${empty} CONTENT "")
    add_library(pedl_library_headers OBJECT ${empty})
    target_compile_options(pedl_library_headers PRIVATE -fpch-preprocess) # ccache needs it
    target_precompile_headers(pedl_library_headers PRIVATE
        <algorithm> <array> <atomic> <cmath> <cstdint> <cstring> <filesystem> <functional> <map>
        <memory> <optional> <span> <string> <string_view> <utility> <vector>)
    target_link_libraries(pedl_library_headers PRIVATE pedl_options)
endif()

# For programs that run when the project is built: optimised whatever the preset, and never
# instrumented, or a sanitizer's build would wait for them.
add_library(pedl_tool_options INTERFACE)
target_include_directories(pedl_tool_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(pedl_tool_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -O2 -ffp-contract=off -fno-sanitize=all)
target_link_options(pedl_tool_options INTERFACE -fno-sanitize=all)

# pedl_library(NAME SOURCES ... LIBS ...): a static library of one folder.
function(pedl_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC pedl_options ${ARG_LIBS})
    if(PEDL_PRECOMPILE)
        target_compile_options(${name} PRIVATE -fpch-preprocess)
        target_precompile_headers(${name} REUSE_FROM pedl_library_headers)
    endif()
endfunction()

# pedl_install_notices(COMPONENT PACKAGE...): our licence, and the notices of what others wrote that is
# inside the files of that component. docs/third-party.md tells which and why.
function(pedl_install_notices component)
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT ${component})
    foreach(package ${ARGN})
        install(FILES /usr/share/doc/${package}/copyright RENAME ${package}.copyright
            DESTINATION ${CMAKE_INSTALL_DOCDIR}/licences COMPONENT ${component} OPTIONAL)
    endforeach()
endfunction()

# pedl_test_program(NAME SOURCES ... LIBS ...): one GoogleTest program. Its own sources start from one
# precompiled header, are compiled several at a time and not optimised, whatever the preset: their
# assertions are compiled once and run once, and made up more than half of a build's time. What is
# tested is optimised as ever. ccache needs -fpch-preprocess to tell what the header holds.
function(pedl_test_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES
        PEDL_UNOPTIMISED ON UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
    target_compile_options(${name} PRIVATE -O0 -fpch-preprocess)
    target_precompile_headers(${name} REUSE_FROM pedl_test_headers)
    target_link_libraries(${name} PRIVATE pedl_options ${ARG_LIBS} GTest::gtest_main)
endfunction()

# pedl_test(NAME SOURCES ... LIBS ...): such a program, its cases listed by CTest. They see no settings
# of the user who runs them.
function(pedl_test name)
    pedl_test_program(${name} ${ARGN})
    pedl_test_label(label)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
        PROPERTIES ENVIRONMENT "XDG_CONFIG_HOME=/nonexistent/zmt-pedlfilter-tests" LABELS ${label})
endfunction()

# pedl_test_label(OUT): what the tests of this folder are called together, for `ctest -L`: the folder,
# without tests/.
function(pedl_test_label out)
    file(RELATIVE_PATH label ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    string(REGEX REPLACE "^tests/" "" label ${label})
    set(${out} ${label} PARENT_SCOPE)
endfunction()

# pedl_label_tests(): gives that label to the folder's tests that are no cases of GoogleTest. Last.
function(pedl_label_tests)
    pedl_test_label(label)
    get_directory_property(names TESTS)
    set_tests_properties(${names} PROPERTIES LABELS ${label})
endfunction()

# libpixman keeps what its loading allocates when the plug-in that brought it goes. A program that has
# the library for itself gives the leak sanitizer nothing to find; see the toolkit's README.
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=address")
    target_link_options(pedl_options INTERFACE -Wl,--push-state,--no-as-needed -lpixman-1 -Wl,--pop-state)
endif()
