# Compiler settings that hold for every target.
set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Small before fast: the programs stay in memory all day, where their own code counts in full, and compute next to nothing.
set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
# Programs are compiled as libraries are, so that both can use one precompiled header.
set(CMAKE_CXX_COMPILE_OPTIONS_PIE -fPIC)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    # Precompiled headers and clones in other folders hit the cache as well.
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${CCACHE_PROGRAM}")
    add_compile_options(-fpch-preprocess)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wold-style-cast -Wcast-qual -Wnull-dereference -Wimplicit-fallthrough -Werror)
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(TOMCATTO_SANITIZE)
    add_compile_options(-fsanitize=${TOMCATTO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${TOMCATTO_SANITIZE})
    # They make programs so large that linking them is felt.
    find_program(MOLD_PROGRAM mold)
    if(MOLD_PROGRAM)
        add_link_options(-fuse-ld=mold)
    endif()
    # Sanitizer instrumentation makes the compiler see null paths that cannot happen.
    add_compile_options(-Wno-null-dereference -Wno-maybe-uninitialized)
endif()
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    add_compile_options(-ffunction-sections -fdata-sections -Wno-null-dereference)
    add_link_options(-Wl,--gc-sections -Wl,--as-needed)
    include(CheckLinkerFlag)
    # What the loader adjusts is listed in a tenth of the pages.
    check_linker_flag(CXX -Wl,-z,pack-relative-relocs TOMCATTO_PACKS_RELOCATIONS)
    if(TOMCATTO_PACKS_RELOCATIONS)
        add_link_options(-Wl,-z,pack-relative-relocs)
    endif()
    # GNU ld reads it; with another linker the programs are larger in memory.
    set(TOMCATTO_START_ORDER "${CMAKE_CURRENT_LIST_DIR}/StartOrder.ld")
    check_linker_flag(CXX "-Wl,-T,${TOMCATTO_START_ORDER}" TOMCATTO_ORDERS_FUNCTIONS)
endif()

# tomcatto_order_functions(TARGET): what a hidden program runs lies together. The kernel maps 64 KiB around each page that
# is used, so a few functions everywhere would have all of the code in memory.
function(tomcatto_order_functions target)
    if(TOMCATTO_ORDERS_FUNCTIONS)
        target_link_options(${target} PRIVATE "-Wl,-T,${TOMCATTO_START_ORDER}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${TOMCATTO_START_ORDER}")
    endif()
endfunction()
