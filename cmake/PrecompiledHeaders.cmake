# What most sources include of the standard library and of Qt, compiled once: a build takes half of the time so. Builds with tests
# do without it, and show that each source includes what it needs; those with sanitizers need not show it again.

set(precompile ON)
if(BUILD_TESTING AND NOT KESTRO_SANITIZE)
    set(precompile OFF)
endif()
option(KESTRO_PRECOMPILE "Compile what most sources include once" ${precompile})
if(KESTRO_PRECOMPILE)
    # Some libraries define it for whoever uses them, and what is precompiled fits only those who define the same.
    add_compile_definitions(_REENTRANT)
endif()

# kestro_precompile(TARGET)
# For targets that are linked to Qt Core, once that was found.
function(kestro_precompile target)
    if(NOT KESTRO_PRECOMPILE)
        return()
    endif()
    if(NOT TARGET precompiled)
        file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/precompiled.cpp CONTENT "")
        add_library(precompiled OBJECT ${PROJECT_BINARY_DIR}/precompiled.cpp)
        target_link_libraries(precompiled PRIVATE Qt6::Core)
        target_precompile_headers(precompiled PRIVATE
            <algorithm> <chrono> <functional> <map> <memory> <mutex> <optional> <string> <thread> <utility> <vector>
            <QCoreApplication> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QJsonDocument> <QJsonObject> <QList> <QObject>
            <QRegularExpression> <QSet> <QString> <QStringList> <QTimer> <QUrl> <QVariant>)
    endif()
    target_precompile_headers(${target} REUSE_FROM precompiled)
endfunction()
