# find_package(Kestro) gives Kestro::saver, the interface of savers, and kestro_add_saver, which makes a bundle of one.
include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Core Gui)

get_filename_component(_kestro_prefix "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
set(_kestro_cmake_folder "${CMAKE_CURRENT_LIST_DIR}")

foreach(_kestro_library base display saver)
    if(NOT TARGET Kestro::${_kestro_library})
        add_library(Kestro::${_kestro_library} SHARED IMPORTED)
        set_target_properties(Kestro::${_kestro_library} PROPERTIES
            IMPORTED_LOCATION "${_kestro_prefix}/lib/kestro/libkestro-${_kestro_library}.so"
            INTERFACE_INCLUDE_DIRECTORIES "${_kestro_prefix}/include/kestro"
            INTERFACE_COMPILE_FEATURES cxx_std_20)
    endif()
endforeach()
set_target_properties(Kestro::display PROPERTIES INTERFACE_LINK_LIBRARIES "Kestro::base;Qt6::Core;Qt6::Gui")
set_target_properties(Kestro::saver PROPERTIES INTERFACE_LINK_LIBRARIES "Kestro::display;Kestro::base")

# kestro_add_saver(NAME PRINCIPAL_CLASS Class SOURCES a.cpp …)
# Builds the bundle NAME.saver in the build folder, and installs it where every user of this machine finds it. The
# sources may hold a plug-in class; moc is run on them.
function(kestro_add_saver name)
    cmake_parse_arguments(ARG "" "PRINCIPAL_CLASS" "SOURCES" ${ARGN})
    set(bundle ${CMAKE_CURRENT_BINARY_DIR}/${name}.saver)
    add_library(${name} MODULE ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES
        PREFIX "" AUTOMOC ON LIBRARY_OUTPUT_DIRECTORY ${bundle}/Contents/Linux)
    target_link_libraries(${name} PRIVATE Kestro::saver)
    set(SAVER_NAME ${name})
    set(SAVER_PRINCIPAL_CLASS ${ARG_PRINCIPAL_CLASS})
    configure_file(${_kestro_cmake_folder}/SaverInfo.plist.in ${bundle}/Contents/Info.plist @ONLY)
    install(DIRECTORY ${bundle} DESTINATION "/Library/Screen Savers" USE_SOURCE_PERMISSIONS)
endfunction()
