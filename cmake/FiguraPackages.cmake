# What cpack needs to know to make libfigura1, libfigura-dev and libfigura-doc, and one package more
# for each further library.
include(GNUInstallDirs)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME figura)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Figura developers <figura@velmora.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(own_version "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

find_program(FIGURA_GZIP gzip REQUIRED)
mark_as_advanced(FIGURA_GZIP)

# figura_add_package(component package text)
#
# The first line of the description is the same for all. Debian wants a copyright file and a
# compressed list of changes in each package.
macro(figura_add_package component package text)
    string(TOUPPER ${component} key)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${text}")

    install(
        FILES ${PROJECT_SOURCE_DIR}/packaging/debian/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
        COMPONENT ${component}
    )
    install(
        FILES ${PROJECT_BINARY_DIR}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
        RENAME changelog.Debian.gz
        COMPONENT ${component}
    )
endmacro()

# No name and no time in it: the same changes give the same file.
execute_process(
    COMMAND ${FIGURA_GZIP} -9nc ${PROJECT_SOURCE_DIR}/packaging/debian/changelog
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/changelog.gz COMMAND_ERROR_IS_FATAL ANY
)

get_property(libraries GLOBAL PROPERTY FIGURA_LIBRARIES)
foreach(library IN LISTS libraries)
    get_target_property(package ${library} FIGURA_PACKAGE)
    figura_add_package(${library} ${package} "The library lib${library} that programs are linked with.")
    set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)
    set(CPACK_DEBIAN_${key}_PACKAGE_SHLIBDEPS ON)
    # The libraries below come from the same build, where no package names them yet.
    list(JOIN development_depends ", " CPACK_DEBIAN_${key}_PACKAGE_DEPENDS)
    list(APPEND development_depends "${package} ${own_version}")
endforeach()

figura_add_package(
    development libfigura-dev
    "Headers, CMake package and pkg-config files for those who write programs."
)
list(JOIN development_depends ", " development_depends)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${development_depends}, ${FIGURA_DEVELOPMENT_DEPENDS}"
)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS libfigura-doc)

figura_add_package(
    documentation libfigura-doc
    "The guide, the reference and the examples, and how the libraries are built."
)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)

set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc/libfigura-doc)
install(
    FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
          ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md
    DESTINATION ${doc_dir}
    COMPONENT documentation
)
install(
    DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples
    DESTINATION ${doc_dir}
    COMPONENT documentation
)
# The reference, where scripts/docs.sh has made it before.
install(
    DIRECTORY ${PROJECT_SOURCE_DIR}/build/docs/html
    DESTINATION ${doc_dir}
    COMPONENT documentation
    OPTIONAL
)

include(CPack)
