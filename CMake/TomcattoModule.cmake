# A room is a static library with an explicit list of the rooms and libraries it may use. What is not listed does not
# link, and its headers are not on the include path either.

# One set of precompiled headers for the core rooms and one for the desktop's.
add_library(TomcattoPrecompiled INTERFACE)
target_precompile_headers(TomcattoPrecompiled INTERFACE
    <QtCore/QObject> <QtCore/QString> <QtCore/QDateTime> <functional> <memory> <optional> <vector>)

# tomcatto_module(NAME SOURCES … [USES rooms and libraries …])
# The target is Tomcatto<NAME>; headers are included as "NAME/Type.h" with the folder's path below Tomcatto/.
function(tomcatto_module name)
    cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
    set(target "Tomcatto${name}")
    set(has_sources FALSE)
    foreach(source ${ARG_SOURCES})
        if(source MATCHES "\\.cpp$")
            set(has_sources TRUE)
        endif()
    endforeach()
    if(has_sources)
        add_library(${target} STATIC ${ARG_SOURCES})
        set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
        target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}/Tomcatto")
        target_link_libraries(${target} PUBLIC ${ARG_USES} PRIVATE TomcattoPrecompiled)
    else()
        add_library(${target} INTERFACE ${ARG_SOURCES})
        target_include_directories(${target} INTERFACE "${PROJECT_SOURCE_DIR}/Tomcatto")
        target_link_libraries(${target} INTERFACE ${ARG_USES})
    endif()
endfunction()

# For qt_add_qml_module(): views are compiled to byte code for the program that people run. A debug build reads their
# sources, which spares the compiler some hundred files.
set(TOMCATTO_QML_CACHE "")
if(NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    set(TOMCATTO_QML_CACHE NO_CACHEGEN)
endif()
