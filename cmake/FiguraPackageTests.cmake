# The ways in which others take the library: installed, through pkg-config, and as a part of their own
# tree.
set(stage ${CMAKE_BINARY_DIR}/stage)
set(consumer_options
    -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER}
    -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE}
    # Code that runs a sanitized library has to be sanitized as well.
    "-DCMAKE_CXX_FLAGS_DEBUG=${CMAKE_CXX_FLAGS_DEBUG}"
)

# figura_add_consumer_test(name source_directory [option...])
#
# Configures and builds a project with the installed library.
function(figura_add_consumer_test name source)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "OPTIONS;TEST_COMMAND")
    add_test(
        NAME ${name}
        COMMAND
            ${CMAKE_CTEST_COMMAND} --build-and-test ${source} ${CMAKE_BINARY_DIR}/${name}
            --build-generator ${CMAKE_GENERATOR} --build-options ${consumer_options}
            -DCMAKE_PREFIX_PATH=${stage} ${arg_OPTIONS} --test-command ${arg_TEST_COMMAND}
    )
    figura_set_test_environment(${name})
    set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED stage LABELS package)
    if(FIGURA_CCACHE)
        set_property(
            TEST ${name} APPEND PROPERTY ENVIRONMENT CMAKE_CXX_COMPILER_LAUNCHER=${FIGURA_CCACHE}
        )
    endif()
endfunction()

# Emptied first: what is no longer installed must not be found by chance.
add_test(NAME package_stage_is_empty COMMAND ${CMAKE_COMMAND} -E rm -rf ${stage})
set_tests_properties(package_stage_is_empty PROPERTIES FIXTURES_SETUP empty_stage LABELS package)

add_test(NAME package_installs COMMAND ${CMAKE_COMMAND} --install ${CMAKE_BINARY_DIR} --prefix
                                       ${stage}
)
set_tests_properties(
    package_installs PROPERTIES FIXTURES_REQUIRED empty_stage FIXTURES_SETUP stage LABELS package
)

figura_add_consumer_test(
    package_serves_consumer ${PROJECT_SOURCE_DIR}/tests/install TEST_COMMAND consumer
)

# Its configuring fails where the version that was asked for is taken or refused wrongly.
figura_add_consumer_test(
    package_knows_its_version ${PROJECT_SOURCE_DIR}/tests/install/version TEST_COMMAND
    ${CMAKE_COMMAND} -E true
)

separate_arguments(consumer_flags NATIVE_COMMAND "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_DEBUG}")
add_test(NAME package_serves_pkg_config
         COMMAND ${PROJECT_SOURCE_DIR}/tests/install/pkg-config.sh ${CMAKE_CXX_COMPILER}
                 ${CMAKE_BINARY_DIR}/pkg-config ${stage} ${consumer_flags}
)
figura_set_test_environment(package_serves_pkg_config)
set_tests_properties(
    package_serves_pkg_config PROPERTIES FIXTURES_REQUIRED stage LABELS package
)

# The sanitizers look at the same sources as part of this tree.
if(FIGURA_BUILD_EXAMPLES AND NOT FIGURA_SANITIZE)
    figura_add_consumer_test(
        package_serves_examples ${PROJECT_SOURCE_DIR}/tests/install/examples OPTIONS
        -DCMAKE_CXX_FLAGS_DEBUG=-O0 TEST_COMMAND 01-first-figure/first-figure
        ${CMAKE_BINARY_DIR}/package_serves_examples/first.png
    )
    set_tests_properties(package_serves_examples PROPERTIES TIMEOUT 900)
endif()

# The same for the diagram library, with an example as the consumer.
if(TARGET figura_diagram)
    figura_add_consumer_test(
        package_serves_diagram_consumer ${PROJECT_SOURCE_DIR}/examples/00-ten-lines TEST_COMMAND
        ten-lines ${CMAKE_BINARY_DIR}/package_serves_diagram_consumer/diagram.svg
    )
endif()

add_test(
    NAME package_serves_parent_project
    COMMAND
        ${CMAKE_CTEST_COMMAND} --build-and-test ${PROJECT_SOURCE_DIR}/tests/subdirectory
        ${CMAKE_BINARY_DIR}/parent --build-generator ${CMAKE_GENERATOR} --build-target consumer
        --build-options ${consumer_options}
)
set_tests_properties(package_serves_parent_project PROPERTIES LABELS package)
