# Installs the build into a folder of its own, then builds and runs the programs of this folder twice: with the CMake
# package, and with pkg-config. Run by ctest as `cmake -DBUILD=... -DSOURCE=... -DWORK=... -DLIBDIR=... -DCXX=...
# -DFLAGS=... -DPICTURES=... -DDRAWING=... -P installed_library.cmake`.

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

# Runs the two programs in `folder` on the drawing.
function(try_programs folder)
    run("${folder}/program" COMMAND "${folder}/program" "${DRAWING}" OUTPUT shapes)
    if(NOT shapes MATCHES "compound.*face cylinder.*edge circle")
        message(FATAL_ERROR "${folder}/program said: ${shapes}")
    endif()
    if(PICTURES)
        run("${folder}/picture"
            COMMAND "${folder}/picture" "${DRAWING}" "${folder}/picture.svg" "${folder}/mesh.stl")
        file(READ "${folder}/picture.svg" picture)
        if(NOT picture MATCHES "<svg.*</svg>")
            message(FATAL_ERROR "${folder}/picture made no picture")
        endif()
        file(SIZE "${folder}/mesh.stl" size)
        if(size LESS 134)  # a header and one triangle
            message(FATAL_ERROR "${folder}/picture made no mesh")
        endif()
    endif()
endfunction()

function(build_with_pkg_config source library)
    run("asking pkg-config" COMMAND pkg-config --cflags --libs ${library} OUTPUT library_flags)
    separate_arguments(library_flags UNIX_COMMAND "${library_flags}")
    separate_arguments(flags UNIX_COMMAND "${FLAGS}")
    cmake_path(GET source STEM name)
    if(name STREQUAL "main")
        set(name program)
    endif()
    run("building ${source} with pkg-config" COMMAND "${CXX}" -std=c++20 ${flags} "${SOURCE}/${source}"
        ${library_flags} "-Wl,-rpath,${prefix}/${LIBDIR}" -o "${WORK}/pkg-config/${name}")
endfunction()

run("installing" COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${prefix}")

run("configuring with the CMake package" COMMAND "${CMAKE_COMMAND}" -S "${SOURCE}" -B "${WORK}/cmake"
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_CXX_FLAGS=${FLAGS}"
    "-DPICTURES=${PICTURES}")
run("building with the CMake package" COMMAND "${CMAKE_COMMAND}" --build "${WORK}/cmake")
try_programs("${WORK}/cmake")

set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
file(MAKE_DIRECTORY "${WORK}/pkg-config")
build_with_pkg_config(main.cpp veltrane_dxf)
if(PICTURES)
    build_with_pkg_config(picture.cpp veltrane_output)
endif()
try_programs("${WORK}/pkg-config")
