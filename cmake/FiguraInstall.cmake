include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(FIGURA_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Figura)

# figura_install_library(target EXPORT name PKG_CONFIG name DESCRIPTION text REQUIRES module...)
#
# Installs a library with its headers, its export set and its pkg-config file. The library is a
# component called like its target, which becomes a package of its own; all the rest of all libraries
# is the component development.
function(figura_install_library target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORT;PKG_CONFIG;DESCRIPTION" "REQUIRES")

    install(
        TARGETS ${target}
        EXPORT ${arg_EXPORT}
        RUNTIME COMPONENT ${target}
        LIBRARY COMPONENT ${target} NAMELINK_COMPONENT development
        ARCHIVE COMPONENT development
        FILE_SET HEADERS
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
            COMPONENT development
        FILE_SET forwarding
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/figura/forwarding
            COMPONENT development
    )
    install(
        EXPORT ${arg_EXPORT}
        NAMESPACE Figura::
        DESTINATION ${FIGURA_PACKAGE_DIR}
        COMPONENT development
    )
    figura_install_pkg_config(${target})
    set_property(GLOBAL APPEND PROPERTY FIGURA_LIBRARIES ${target})
    set_property(TARGET ${target} PROPERTY FIGURA_PACKAGE lib${arg_PKG_CONFIG}${PROJECT_VERSION_MAJOR})
endfunction()

# The prefix is found from where the file lies, so that the whole may be moved.
macro(figura_install_pkg_config target)
    file(RELATIVE_PATH pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    cmake_path(NORMAL_PATH pc_to_prefix)
    string(REGEX REPLACE "/$" "" pc_to_prefix ${pc_to_prefix})
    set(pc_name ${arg_PKG_CONFIG})
    set(pc_description ${arg_DESCRIPTION})
    list(JOIN arg_REQUIRES " " pc_requires)
    set(pc_library ${target})
    configure_file(
        ${PROJECT_SOURCE_DIR}/cmake/figura.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${pc_name}.pc @ONLY
    )
    install(
        FILES ${CMAKE_CURRENT_BINARY_DIR}/${pc_name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development
    )
endmacro()

configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/FiguraConfig.cmake.in FiguraConfig.cmake
    INSTALL_DESTINATION ${FIGURA_PACKAGE_DIR}
)
write_basic_package_version_file(FiguraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
    FILES ${CMAKE_CURRENT_BINARY_DIR}/FiguraConfig.cmake
          ${CMAKE_CURRENT_BINARY_DIR}/FiguraConfigVersion.cmake
    DESTINATION ${FIGURA_PACKAGE_DIR}
    COMPONENT development
)
