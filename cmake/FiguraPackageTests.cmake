# The two ways in which others take the library: installed, and as a part of their own tree.
set(stage ${CMAKE_BINARY_DIR}/stage)
set(consumer_options
    -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER}
    -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE}
    # Code that runs a sanitized library has to be sanitized as well.
    "-DCMAKE_CXX_FLAGS_DEBUG=${CMAKE_CXX_FLAGS_DEBUG}"
)

add_test(NAME package_installs COMMAND ${CMAKE_COMMAND} --install ${CMAKE_BINARY_DIR} --prefix
                                       ${stage}
)
set_tests_properties(package_installs PROPERTIES FIXTURES_SETUP stage LABELS package)

add_test(
    NAME package_serves_consumer
    COMMAND
        ${CMAKE_CTEST_COMMAND} --build-and-test ${PROJECT_SOURCE_DIR}/tests/install
        ${CMAKE_BINARY_DIR}/consumer --build-generator ${CMAKE_GENERATOR} --build-options
        ${consumer_options} -DCMAKE_PREFIX_PATH=${stage} --test-command consumer
)
figura_set_test_environment(package_serves_consumer)
set_tests_properties(package_serves_consumer PROPERTIES FIXTURES_REQUIRED stage LABELS package)

# The same for the diagram library, with an example as the consumer.
if(TARGET figura_diagram)
    add_test(
        NAME package_serves_diagram_consumer
        COMMAND
            ${CMAKE_CTEST_COMMAND} --build-and-test ${PROJECT_SOURCE_DIR}/examples/00-ten-lines
            ${CMAKE_BINARY_DIR}/diagram-consumer --build-generator ${CMAKE_GENERATOR}
            --build-options ${consumer_options} -DCMAKE_PREFIX_PATH=${stage} --test-command
            ten-lines ${CMAKE_BINARY_DIR}/diagram-consumer/diagram.svg
    )
    figura_set_test_environment(package_serves_diagram_consumer)
    set_tests_properties(
        package_serves_diagram_consumer PROPERTIES FIXTURES_REQUIRED stage LABELS package
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
