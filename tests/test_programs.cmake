# Writes down, at the end of the configuration, which test files went into which program, so that a test can compare
# the list with the folder: a test file that no program holds would never run and never fail.

# Appends "PROGRAM FILE" for each *_test.cpp of each program of `folder` and of the folders below it.
function(romika_list_test_programs folder result)
    set(rows)
    get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        if(type STREQUAL "EXECUTABLE")
            get_target_property(sources ${target} SOURCES)
            get_target_property(source_folder ${target} SOURCE_DIR)
            list(FILTER sources INCLUDE REGEX "_test\\.cpp$")
            foreach(source IN LISTS sources)
                get_filename_component(source "${source}" ABSOLUTE BASE_DIR "${source_folder}")
                file(RELATIVE_PATH source "${CMAKE_SOURCE_DIR}/tests" "${source}")
                list(APPEND rows "    {\"${target}\", \"${source}\"},")
            endforeach()
        endif()
    endforeach()
    get_property(subfolders DIRECTORY "${folder}" PROPERTY SUBDIRECTORIES)
    foreach(subfolder IN LISTS subfolders)
        romika_list_test_programs("${subfolder}" below)
        list(APPEND rows ${below})
    endforeach()
    set(${result} "${rows}" PARENT_SCOPE)
endfunction()

function(romika_write_test_programs)
    romika_list_test_programs("${CMAKE_CURRENT_SOURCE_DIR}" rows)
    list(JOIN rows "\n" rows)
    file(CONFIGURE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/generated/test_programs.h" @ONLY CONTENT [[
#pragma once
// Written by the build: each test file below tests/ with the program that holds it.

struct BuiltTestFile {
    const char* program;
    const char* path; ///< below tests/
};
inline constexpr BuiltTestFile builtTestFiles[] = {
@rows@
};
inline constexpr const char* testBuildFolder = "@CMAKE_CURRENT_BINARY_DIR@";
]])
endfunction()

cmake_language(DEFER CALL romika_write_test_programs)
