# Installs headers, libraries and tool, a CMake package (VeltraneDxf) and a pkg-config file for each library.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/VeltraneDxf")

install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/veltrane" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILES_MATCHING PATTERN "*.hpp")

configure_package_config_file(cmake/VeltraneDxfConfig.cmake.in VeltraneDxfConfig.cmake
    INSTALL_DESTINATION "${package_dir}" NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(VeltraneDxfConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/VeltraneDxfConfig.cmake" "${CMAKE_CURRENT_BINARY_DIR}/VeltraneDxfConfigVersion.cmake"
    DESTINATION "${package_dir}")

# Installs one library. Each has an export of its own, so that a program which wants the drawings alone does not
# need what pictures and meshes are made with.
#   REQUIRES          pkg-config modules that stand in its headers
#   REQUIRES_PRIVATE  pkg-config modules that only its code uses
function(veltrane_install_library component target)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "DESCRIPTION" "REQUIRES;REQUIRES_PRIVATE")
    install(TARGETS ${target} EXPORT VeltraneDxf_${component}
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
    install(EXPORT VeltraneDxf_${component} NAMESPACE Veltrane:: DESTINATION "${package_dir}")

    get_target_property(type ${target} TYPE)
    if(type STREQUAL "STATIC_LIBRARY")  # then whoever links it links these as well
        list(APPEND arg_REQUIRES ${arg_REQUIRES_PRIVATE})
        set(arg_REQUIRES_PRIVATE)
    endif()
    list(JOIN arg_REQUIRES ", " pc_requires)
    list(JOIN arg_REQUIRES_PRIVATE ", " pc_requires_private)
    set(pc_name ${target})
    set(pc_description "${arg_DESCRIPTION}")
    # Relative to the file, so that the prefix may be chosen, and changed, after the build.
    file(RELATIVE_PATH pc_prefix "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/library.pc.in" "${CMAKE_CURRENT_BINARY_DIR}/${target}.pc" @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${target}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endfunction()

veltrane_install_library(dxf veltrane_dxf
    DESCRIPTION "DXF drawings to B-rep shapes and back"
    REQUIRES eigen3)
if(TARGET veltrane_output)
    veltrane_install_library(output veltrane_output
        DESCRIPTION "Pictures and meshes of drawings and shapes"
        REQUIRES "veltrane_dxf = ${PROJECT_VERSION}"
        REQUIRES_PRIVATE cairo assimp zlib)
endif()
if(TARGET vdxf)
    install(TARGETS vdxf RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()
