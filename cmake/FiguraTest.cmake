find_package(Qt6 6.4 REQUIRED COMPONENTS Test)

option(FIGURA_SANITIZE "The flags turn sanitizers on: let the tests tell them what to do" OFF)
mark_as_advanced(FIGURA_SANITIZE)

# The same picture on every machine: no display, no local language, no folder of the user. Qt grumbles
# about a runtime folder that others can read.
set(FIGURA_RUNTIME_DIR ${CMAKE_CURRENT_BINARY_DIR}/runtime)
file(MAKE_DIRECTORY ${FIGURA_RUNTIME_DIR})
file(CHMOD ${FIGURA_RUNTIME_DIR} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
set(FIGURA_TEST_ENVIRONMENT QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
                            XDG_RUNTIME_DIR=${FIGURA_RUNTIME_DIR}
)
if(FIGURA_SANITIZE)
    list(
        APPEND
        FIGURA_TEST_ENVIRONMENT
        ASAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/address.supp:detect_stack_use_after_return=1:allocator_may_return_null=1
        UBSAN_OPTIONS=print_stacktrace=1
        LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/leak.supp:print_suppressions=0
    )
endif()

# Compiling the tests takes longer than running them: without optimization it takes a third less.
set(FIGURA_TEST_COMPILE_OPTIONS $<$<CONFIG:Debug>:-O0>)

# figura_add_test(tst_name [SOURCES file...] [LIBRARIES target...])
#
# One executable and one test, both called tst_name. Without SOURCES it is made of tst_name.cpp.
function(figura_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    if(NOT arg_SOURCES)
        set(arg_SOURCES ${name}.cpp)
    endif()

    add_executable(${name} ${arg_SOURCES})
    set_target_properties(
        ${name} PROPERTIES AUTOMOC ON CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF
    )
    target_link_libraries(
        ${name} PRIVATE Figura::Figura Qt6::Test figura_test_support figura_warnings
                        ${arg_LIBRARIES}
    )
    target_compile_options(${name} PRIVATE ${FIGURA_TEST_COMPILE_OPTIONS})
    target_precompile_headers(${name} REUSE_FROM figura_test_pch)
    # What moc makes is nearly empty here: reading the precompiled header would take far longer.
    set_source_files_properties(
        ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp
        PROPERTIES SKIP_PRECOMPILE_HEADERS ON
    )

    add_test(NAME ${name} COMMAND ${name})
    figura_set_test_environment(${name})
endfunction()

function(figura_set_test_environment name)
    set_tests_properties(
        ${name} PROPERTIES ENVIRONMENT "${FIGURA_TEST_ENVIRONMENT}" TIMEOUT 900
    )
endfunction()

find_program(XVFB_RUN xvfb-run)
mark_as_advanced(XVFB_RUN)

# figura_add_gui_variants(tst_name...)
#
# The same programs once more where a unit has another number of pixels, and, as a single test, one
# after the other on a real X server, where windows are exposed, flushed and read back in earnest.
# Starting that server takes longer than most of the programs.
function(figura_add_gui_variants)
    foreach(name IN LISTS ARGN)
        foreach(factor 1.5 2)
            add_test(NAME ${name}_at_${factor} COMMAND ${name})
            figura_set_test_environment(${name}_at_${factor})
            set_property(
                TEST ${name}_at_${factor} APPEND PROPERTY ENVIRONMENT QT_SCALE_FACTOR=${factor}
            )
        endforeach()
        list(APPEND programs $<TARGET_FILE:${name}>)
    endforeach()

    if(XVFB_RUN)
        get_filename_component(group ${CMAKE_CURRENT_SOURCE_DIR} NAME)
        list(JOIN programs "|" programs)
        add_test(
            NAME ${group}_on_x11
            COMMAND ${XVFB_RUN} -a ${CMAKE_COMMAND} "-DPROGRAMS=${programs}" -P
                    ${PROJECT_SOURCE_DIR}/cmake/RunPrograms.cmake
        )
        figura_set_test_environment(${group}_on_x11)
        set_property(TEST ${group}_on_x11 APPEND PROPERTY ENVIRONMENT QT_QPA_PLATFORM=xcb)
    endif()
endfunction()
