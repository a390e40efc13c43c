# What makers of savers of their own build against, from src/, and the names that the libraries give it.

set(KESTRO_SDK_HEADERS
    platform/base/Clock.h
    platform/base/Log.h
    platform/base/Random.h
    platform/display/desktop/Cursor.h
    platform/display/desktop/Desktop.h
    platform/display/view/Geometry.h
    platform/display/view/Identity.h
    platform/display/view/Layer.h
    platform/display/desktop/Notifications.h
    platform/display/view/Painter.h
    platform/display/view/Picture.h
    platform/display/desktop/Screen.h
    platform/display/surface/Surface.h
    platform/display/desktop/Timer.h
    platform/display/view/View.h
    platform/display/view/Window.h
    platform/saver/SaverPlugin.h
    platform/saver/ScreenSaverFunctions.h
    platform/saver/ScreenSaverView.h)

# kestro_sdk_symbols(VARIABLE)
# Sets VARIABLE to a version script for the linker: what those headers declare has the version KESTRO_ and the number of the
# interface, all else KESTRO_PRIVATE. The libraries of one release share that; a saver that has it in it links to what is
# nobody's to rely on.
function(kestro_sdk_symbols variable)
    set(patterns "")
    foreach(header ${KESTRO_SDK_HEADERS})
        set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${header})
        file(STRINGS ${PROJECT_SOURCE_DIR}/src/${header} lines)
        foreach(line IN LISTS lines)
            if(line MATCHES "^(class|struct) ([A-Za-z]+) .*{$")
                set(name kestro::${CMAKE_MATCH_2})
                string(APPEND patterns "        ${name}::*;\n        vtable?for?${name};\n        typeinfo*?for?${name};\n"
                    "        *thunk?to?${name}::*;\n")
            elseif(line MATCHES "^[A-Za-z[].* ([A-Za-z]+)\\(.*$")
                string(APPEND patterns "        kestro::${CMAKE_MATCH_1}?*;\n")
            endif()
        endforeach()
    endforeach()
    set(script ${PROJECT_BINARY_DIR}/sdk-symbols.map)
    file(CONFIGURE OUTPUT ${script} CONTENT
        "KESTRO_${KESTRO_SAVER_INTERFACE} {\n    extern \"C++\" {\n${patterns}    };\n};\nKESTRO_PRIVATE {\n    *;\n};\n")
    set(${variable} ${script} PARENT_SCOPE)
endfunction()
