# Settings every target shares, and the three ways this project makes one.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# The build tree has the shape of the installed one, so that programs find their package the same way in both: what is
# installed is the file that was built, byte for byte.
include(GNUInstallDirs)
set(KESTRO_LIBRARY_DIR ${CMAKE_INSTALL_LIBDIR}/kestro)
set(KESTRO_DATA_DIR ${CMAKE_INSTALL_DATADIR}/kestro)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_BINDIR})
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${KESTRO_LIBRARY_DIR})
set(KESTRO_SHARE_DIR ${CMAKE_BINARY_DIR}/${KESTRO_DATA_DIR})
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

option(BUILD_TESTING "Build the tests" ON)
set(KESTRO_SANITIZE "" CACHE STRING "Sanitizers for every target, as -fsanitize= takes them")

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
# A library calls its own functions directly: the loader has fewer names to look up, and a call no table to go through.
add_link_options(LINKER:--exclude-libs,ALL LINKER:-Bsymbolic-functions)
# What only has to be moved takes a bit for each pointer, and not 24 bytes.
include(CheckLinkerFlag)
check_linker_flag(CXX LINKER:-z,pack-relative-relocs KESTRO_PACKS_RELOCATIONS)
if(KESTRO_PACKS_RELOCATIONS)
    add_link_options(LINKER:-z,pack-relative-relocs)
endif()
include(Hardening)
include(PrecompiledHeaders)
if(KESTRO_SANITIZE)
    add_compile_options(-fsanitize=${KESTRO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${KESTRO_SANITIZE})
endif()

# The number of the interface for savers of other makers, which the libraries that they link to bear.
file(STRINGS ${PROJECT_SOURCE_DIR}/src/platform/saver/SaverPlugin.h KESTRO_SAVER_INTERFACE REGEX "^#define KestroSaverPlugin_iid ")
string(REGEX REPLACE ".*/([0-9]+)\"$" "\\1" KESTRO_SAVER_INTERFACE "${KESTRO_SAVER_INTERFACE}")
include(SdkSymbols)
kestro_sdk_symbols(KESTRO_SDK_SYMBOLS)

# kestro_library(NAME [STATIC|SDK] SOURCES a.cpp … [LINK lib …] [LINK_PRIVATE lib …])
# One library per folder of src/, shared: a host and a saver bundle in one process then have one copy of each. STATIC is for
# what stands in one of them alone; whoever it becomes part of does not hand on its symbols. SDK is for what savers of other
# makers link to.
function(kestro_library name)
    cmake_parse_arguments(ARG "STATIC;SDK" "" "SOURCES;LINK;LINK_PRIVATE" ${ARGN})
    set(kind SHARED)
    if(ARG_STATIC)
        set(kind STATIC)
    endif()
    add_library(${name} ${kind} ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE ${ARG_LINK_PRIVATE})
    kestro_precompile(${name})
    if(ARG_SDK)
        set_target_properties(${name} PROPERTIES SOVERSION ${KESTRO_SAVER_INTERFACE} LINK_DEPENDS ${KESTRO_SDK_SYMBOLS})
        target_link_options(${name} PRIVATE LINKER:--version-script=${KESTRO_SDK_SYMBOLS})
    endif()
    if(NOT ARG_STATIC)
        set_target_properties(${name} PROPERTIES OUTPUT_NAME kestro-${name})
        install(TARGETS ${name} LIBRARY DESTINATION ${KESTRO_LIBRARY_DIR})
    endif()
endfunction()

# kestro_relative_path(VARIABLE FROM TO)
# Sets VARIABLE to the way from one folder of what is installed to another.
function(kestro_relative_path variable from to)
    file(RELATIVE_PATH path /prefix/${from} /prefix/${to})
    set(${variable} ${path} PARENT_SCOPE)
endfunction()

# All test programs of readers of foreign bytes: .ci/run builds and runs these with sanitizers too.
add_custom_target(foreign_tests)

# kestro_test(NAME [GUI|WIDGETS] [FOREIGN] [WAITS] SOURCES a.cpp … [LINK lib …] [ENVIRONMENT VAR=VALUE …])
# One test program per folder of tests/; each of its suites is one ctest entry, so that a process is started for each suite
# and not for each test. With GUI the tests run inside a Qt application without a display (tests/support/GuiMain.cpp), with
# WIDGETS in one that has widgets (WidgetMain.cpp). FOREIGN is for those whose subjects read what others wrote: their tests
# have the label "foreign". WAITS is for those that wait for the most part, for movies to play: they count as a sixth of a
# core, others as half of one (tests/run).
function(kestro_test name)
    cmake_parse_arguments(ARG "GUI;WIDGETS;FOREIGN;WAITS" "" "SOURCES;LINK;ENVIRONMENT" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    if(ARG_GUI)
        target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/GuiMain.cpp)
        target_link_libraries(${name} PRIVATE Qt6::Gui)
    elseif(ARG_WIDGETS)
        target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/WidgetMain.cpp)
        target_link_libraries(${name} PRIVATE Qt6::Widgets)
    else()
        target_link_libraries(${name} PRIVATE GTest::gtest_main)
    endif()
    if(KESTRO_SANITIZE STREQUAL "thread")
        target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/PlainClone.cpp)
    endif()
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gtest)
    kestro_precompile(${name})
    list(PREPEND ARG_ENVIRONMENT QT_QPA_PLATFORM=offscreen)
    set(properties "TIMEOUT 1200 ENVIRONMENT [=[${ARG_ENVIRONMENT}]=]")
    if(NOT ARG_WAITS)
        string(APPEND properties " PROCESSORS 3")
    endif()
    if(ARG_FOREIGN)
        add_dependencies(foreign_tests ${name})
        string(APPEND properties " LABELS foreign")
    endif()
    kestro_list_suites(${name} "${properties}")
endfunction()

# Has ctest know the suites of a test program, with those properties; one that is not built counts as a test that fails.
function(kestro_list_suites name properties)
    set(suites ${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake)
    add_custom_command(TARGET ${name} POST_BUILD VERBATIM
        COMMAND ${CMAKE_COMMAND} -D PROGRAM=$<TARGET_FILE:${name}> -D PREFIX=${name}. -D "PROPERTIES=${properties}"
            -D OUTPUT=${suites} -P ${PROJECT_SOURCE_DIR}/cmake/ListSuites.cmake)
    set(included ${CMAKE_CURRENT_BINARY_DIR}/${name}_tests.cmake)
    file(WRITE ${included} "if(EXISTS [=[${suites}]=])\n    include([=[${suites}]=])\nelse()\n"
        "    add_test(${name}_NOT_BUILT ${name}_NOT_BUILT)\nendif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${included})
endfunction()
