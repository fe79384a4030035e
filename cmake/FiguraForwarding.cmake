# figura_add_forwarding_headers(target)
#
# Lets programs write <Figura/Figure> for <figura/figure/Figure.h>: one file for each public header
# that is named after a class. They have a folder of their own, as figura/figure and Figura/Figure are
# the same where file names know no case.
function(figura_add_forwarding_headers target)
    get_target_property(headers ${target} HEADER_SET)
    set(base ${CMAKE_CURRENT_BINARY_DIR}/forwarding)

    foreach(header IN LISTS headers)
        cmake_path(GET header STEM name)
        if(name MATCHES "^[A-Z]")
            file(RELATIVE_PATH path ${PROJECT_SOURCE_DIR}/include ${header})
            file(CONFIGURE OUTPUT ${base}/Figura/${name} CONTENT "#include <${path}>\n")
            list(APPEND files ${base}/Figura/${name})
        endif()
    endforeach()

    target_sources(
        ${target} PUBLIC FILE_SET forwarding TYPE HEADERS BASE_DIRS ${base} FILES ${files}
    )
    # They say no more than the headers, each of which is compiled on its own already.
    set_property(TARGET ${target} PROPERTY INTERFACE_HEADER_SETS_TO_VERIFY HEADERS)
endfunction()
