# Settings and helpers shared by every target of the project.

# Without a build type the compiler would neither optimise nor keep line numbers.
get_property(multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(NOT multi_config AND NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Debug, Release or RelWithDebInfo" FORCE)
endif()

# Line tables are all that profiles and stack traces need; full debug data would double the time of a build.
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")

find_program(CCACHE_PROGRAM ccache)
mark_as_advanced(CCACHE_PROGRAM)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)  # for editors and clang tools
set(CMAKE_THREAD_PREFER_PTHREAD ON)

# How the sources of this project are compiled. Never exported: whoever uses the library picks their own flags.
add_library(veltrane_flags INTERFACE)
target_compile_features(veltrane_flags INTERFACE cxx_std_20)
target_compile_options(veltrane_flags INTERFACE -Wall -Wextra -Wpedantic $<$<BOOL:${VELTRANE_WERROR}>:-Werror>)
if(VELTRANE_SANITIZE)
    target_compile_options(veltrane_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(veltrane_flags INTERFACE -fsanitize=address,undefined)
endif()
if(VELTRANE_BUILD_FUZZ)
    target_compile_options(veltrane_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# All .cpp files below the given folders, in `out`. The folders are searched anew at every build
# (CONFIGURE_DEPENDS), so a new file is built without an entry in any list: with some hundred small files
# a list would only be a second, stale statement of what the folder says. Missing folders give no files.
function(veltrane_sources out)
    set(files)
    foreach(folder IN LISTS ARGN)
        file(GLOB_RECURSE found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
        list(APPEND files ${found})
    endforeach()
    set(${out} "${files}" PARENT_SCOPE)
endfunction()

# The settings every target of the project shares.
function(veltrane_target name)
    target_compile_features(${name} PUBLIC cxx_std_20)
    # Compile-time only, hence not part of what is exported.
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:veltrane_flags>)
    set_target_properties(${name} PROPERTIES
        CXX_EXTENSIONS OFF
        POSITION_INDEPENDENT_CODE ON
        LINKER_LANGUAGE CXX)  # a target of headers and objects alone does not tell its language
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endfunction()
