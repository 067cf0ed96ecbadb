# The checks that read the project instead of running it, as tests of ctest, so that one summary tells everything.

# They use every processor by themselves; RUN_SERIAL keeps them from disturbing tests that watch a clock.
add_test(NAME Format COMMAND "${PROJECT_SOURCE_DIR}/Tools/format" --check)
set_tests_properties(Format PROPERTIES RUN_SERIAL ON TIMEOUT 300)

if(TARGET all_qmllint)
    add_test(NAME QmlLint COMMAND "${CMAKE_COMMAND}" --build "${CMAKE_BINARY_DIR}" --target all_qmllint)
    set_tests_properties(QmlLint PROPERTIES RUN_SERIAL ON TIMEOUT 600)
endif()

# The picture of the rooms is what the lists of rooms and libraries give.
add_test(NAME Rooms COMMAND "${PROJECT_SOURCE_DIR}/Tools/rooms" --check)

# What the included videos have to be: shape, seam, motion, sound.
add_test(NAME Clips COMMAND /usr/bin/python3 "${PROJECT_SOURCE_DIR}/Tools/clips/check")
set_tests_properties(Clips PROPERTIES TIMEOUT 300)

# The sounds of phases are those that their program makes.
add_test(NAME Sounds COMMAND "${PROJECT_SOURCE_DIR}/Tools/sounds" --check)

# What an installation puts where, started from there.
if(TARGET command-line-documents AND TOMCATTO_DESKTOP)
    add_test(NAME Installation COMMAND "${PROJECT_SOURCE_DIR}/Tools/check-installation" "${CMAKE_BINARY_DIR}")
endif()

# Tests whose names begin with Core look at the product built without its desktop; ./test builds that for them.
if(TARGET tomcatto)
    add_test(NAME CoreLinks COMMAND "${PROJECT_SOURCE_DIR}/Tools/check-core-links" "${PROJECT_SOURCE_DIR}/build/core/tomcatto")
endif()
