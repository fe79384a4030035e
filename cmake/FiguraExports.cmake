# figura_limit_exports(target)
#
# Visibility alone lets out what Qt's own templates leave behind when they are used here: symbols that
# nobody promised, and that the linker would share with other libraries.
function(figura_limit_exports target)
    if(NOT UNIX OR APPLE)
        return()
    endif()

    # What our own tests count by is no part of what is given away.
    if(NOT FIGURA_BUILD_TESTS)
        set(tests_only "_ZN7Velmora6Figura12workCountersEv;")
    endif()
    set(map ${CMAKE_CURRENT_BINARY_DIR}/exports.map)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/exports.map.in ${map} @ONLY)
    target_link_options(${target} PRIVATE LINKER:--version-script=${map})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${map})
endfunction()
