# Protocols of Wayland, from their descriptions: kestro_wayland_client(TARGET NAME DESCRIPTION) gives a target the header
# <NAME.h> and the tables of the protocol; kestro_wayland_server the header of the other end, <NAME-server.h>, for tests, which
# take the tables from the library that they test.
pkg_get_variable(KESTRO_WAYLAND_SCANNER wayland-scanner wayland_scanner)
pkg_get_variable(KESTRO_WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)
find_path(KESTRO_PLASMA_PROTOCOLS idle.xml PATH_SUFFIXES plasma-wayland-protocols HINTS /usr/share REQUIRED)

# What a protocol calls "namespace" cannot be called so in C++.
function(kestro_wayland_header target kind header description)
    add_custom_command(OUTPUT ${header} VERBATIM DEPENDS ${description}
        COMMAND ${KESTRO_WAYLAND_SCANNER} --strict ${kind} ${description} ${CMAKE_CURRENT_BINARY_DIR}/${header}
        COMMAND sed -i s/\\bnamespace\\b/name_space/g ${CMAKE_CURRENT_BINARY_DIR}/${header})
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${header})
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
endfunction()

# The tables are C; as C++ they are seen by other files only where the header has declared them before. They want to be
# hidden, which comes too late then.
function(kestro_wayland_tables target name header description)
    set(tables ${CMAKE_CURRENT_BINARY_DIR}/${name}.c)
    add_custom_command(OUTPUT ${tables} VERBATIM DEPENDS ${description}
        COMMAND ${KESTRO_WAYLAND_SCANNER} --strict private-code ${description} ${tables})
    set_source_files_properties(${tables} PROPERTIES LANGUAGE CXX SKIP_AUTOMOC ON
        COMPILE_OPTIONS "-Wno-attributes;-include;${CMAKE_CURRENT_BINARY_DIR}/${header}"
        OBJECT_DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/${header})
    target_sources(${target} PRIVATE ${tables})
endfunction()

function(kestro_wayland_client target name description)
    kestro_wayland_header(${target} client-header ${name}.h ${description})
    kestro_wayland_tables(${target} ${name} ${name}.h ${description})
endfunction()

function(kestro_wayland_server target name description)
    kestro_wayland_header(${target} server-header ${name}-server.h ${description})
endfunction()
