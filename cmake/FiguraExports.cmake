# figura_limit_exports(target)
#
# Visibility alone lets out what Qt's own templates leave behind when they are used here: symbols that
# nobody promised, and that the linker would share with other libraries.
function(figura_limit_exports target)
    if(UNIX AND NOT APPLE)
        set(map ${PROJECT_SOURCE_DIR}/cmake/exports.map)
        target_link_options(${target} PRIVATE LINKER:--version-script=${map})
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${map})
    endif()
endfunction()
