include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Figura)

install(
    TARGETS figura
    EXPORT FiguraTargets
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
)
install(
    EXPORT FiguraTargets
    NAMESPACE Figura::
    DESTINATION ${package_dir}
)

# A set of its own, so that a program without it need not find Qt6::Svg.
if(TARGET figura_diagram)
    install(
        TARGETS figura_diagram
        EXPORT FiguraDiagramTargets
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    )
    install(
        EXPORT FiguraDiagramTargets
        NAMESPACE Figura::
        DESTINATION ${package_dir}
    )
endif()

configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/FiguraConfig.cmake.in FiguraConfig.cmake
    INSTALL_DESTINATION ${package_dir}
)
write_basic_package_version_file(FiguraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/FiguraConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/FiguraConfigVersion.cmake DESTINATION ${package_dir}
)
