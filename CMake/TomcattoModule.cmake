# A room is a static library with an explicit list of the rooms and libraries it may use. What is not listed does not
# link. All rooms share one include folder, so a header alone would compile: a room that includes one lists its room.

# One precompiled header for all targets, and one for the tests: at some 150 MB each, one per target would fill a disk.
set(TOMCATTO_PRECOMPILED_HEADERS <QtCore/QObject> <QtCore/QString> <QtCore/QDateTime> <functional> <memory> <optional> <vector>)
set(precompiled_source "${CMAKE_BINARY_DIR}/Precompiled.cpp")
file(CONFIGURE OUTPUT "${precompiled_source}" CONTENT "// Exists so that the precompiled header has a target.\n")
add_library(TomcattoPrecompiled STATIC "${precompiled_source}")
target_link_libraries(TomcattoPrecompiled PRIVATE Qt6::Core)
target_precompile_headers(TomcattoPrecompiled PRIVATE ${TOMCATTO_PRECOMPILED_HEADERS})

# tomcatto_precompile(TARGET…): the targets, which all use Qt6::Core, begin with the precompiled header.
function(tomcatto_precompile)
    foreach(target ${ARGV})
        target_precompile_headers(${target} REUSE_FROM TomcattoPrecompiled)
    endforeach()
endfunction()

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
        target_link_libraries(${target} PUBLIC ${ARG_USES})
        tomcatto_precompile(${target})
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

# tomcatto_view_models(VIEWS HEADER… [VALUES names]): the views may name the classes that these headers, below Tomcatto/,
# are named as, and use the classes of values there. qmllint reads what moc tells of them; nothing of their rooms is linked.
function(tomcatto_view_models views)
    cmake_parse_arguments(ARG "" "" "VALUES" ${ARGN})
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/view_models")
    foreach(header ${ARG_UNPARSED_ARGUMENTS})
        get_filename_component(name "${header}" NAME_WE)
        add_custom_command(OUTPUT "${folder}/${name}.cpp.json"
            COMMAND "${CMAKE_COMMAND}" -E make_directory "${folder}"
            COMMAND Qt6::moc --output-json -o "${folder}/${name}.cpp" "${PROJECT_SOURCE_DIR}/Tomcatto/${header}"
            DEPENDS "${PROJECT_SOURCE_DIR}/Tomcatto/${header}" VERBATIM)
        list(APPEND documents "${folder}/${name}.cpp.json")
        if(name MATCHES "Model$")
            string(APPEND names "TOMCATTO_VIEW_MODEL(${name})\n")
        endif()
    endforeach()
    foreach(name ${ARG_VALUES})
        string(APPEND names "TOMCATTO_VIEW_VALUE(${name})\n")
    endforeach()
    file(CONFIGURE OUTPUT "${folder}/${views}Models.h" CONTENT
        "#include \"Appearance/ViewModelName.h\"\n\n// Two modules may name the same class.\nnamespace tomcatto::${views} {\n\n${names}\n}\n")
    add_custom_command(OUTPUT "${folder}/metatypes.json"
        COMMAND Qt6::moc --collect-json -o "${folder}/metatypes.json" ${documents} DEPENDS ${documents} VERBATIM)
    target_sources(${views} PRIVATE "${folder}/${views}Models.h" "${folder}/metatypes.json")
    # The generated registration includes headers by their base names.
    target_include_directories(${views} PRIVATE "${folder}")
    set_property(TARGET ${views} APPEND PROPERTY AUTOMOC_MACRO_NAMES TOMCATTO_VIEW_MODEL TOMCATTO_VIEW_VALUE)
endfunction()
