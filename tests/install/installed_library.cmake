# Installs the build into a folder of its own, then builds and runs main.cpp twice: found by CMake, and found by
# pkg-config. Run by ctest as `cmake -DBUILD=... -DSOURCE=... -DWORK=... -DLIBDIR=... -DCXX=... -DFLAGS=... -P`.

set(prefix "${WORK}/prefix")
file(REMOVE_RECURSE "${WORK}")

function(run what)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "OUTPUT" "COMMAND")
    execute_process(COMMAND ${arg_COMMAND} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${what} failed (${status})\n${output}\n${error}")
    endif()
    if(arg_OUTPUT)
        set(${arg_OUTPUT} "${output}" PARENT_SCOPE)
    endif()
endfunction()

function(expect_greeting program)
    run("running ${program}" COMMAND "${program}" OUTPUT said)
    if(NOT said STREQUAL "installed and running\n")
        message(FATAL_ERROR "${program} said: ${said}")
    endif()
endfunction()

run("installing" COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${prefix}")

run("configuring with the CMake package" COMMAND "${CMAKE_COMMAND}" -S "${SOURCE}" -B "${WORK}/cmake"
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_CXX_FLAGS=${FLAGS}")
run("building with the CMake package" COMMAND "${CMAKE_COMMAND}" --build "${WORK}/cmake")
expect_greeting("${WORK}/cmake/program")

set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
run("asking pkg-config" COMMAND pkg-config --cflags --libs veltrane_dxf OUTPUT library_flags)
separate_arguments(library_flags UNIX_COMMAND "${library_flags}")
separate_arguments(FLAGS UNIX_COMMAND "${FLAGS}")
run("building with pkg-config" COMMAND "${CXX}" -std=c++20 ${FLAGS} "${SOURCE}/main.cpp" ${library_flags}
    "-Wl,-rpath,${prefix}/${LIBDIR}" -o "${WORK}/program")
expect_greeting("${WORK}/program")
