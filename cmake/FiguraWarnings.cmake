# Linked privately by everything we compile ourselves, so that no flag reaches those who use us.
add_library(figura_warnings INTERFACE)

# -Woverloaded-virtual stays off: figures overload and hide operations of their bases by design.
target_compile_options(
    figura_warnings
    INTERFACE
        $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:
        -Wall
        -Wextra
        -Wpedantic
        -Wshadow
        -Wnon-virtual-dtor
        -Wsuggest-override
        $<$<BOOL:${FIGURA_WARNINGS_AS_ERRORS}>:-Werror>
        >
)

# What moc writes is not ours to mend. One check has to stay: none at all is an error.
if(CMAKE_CXX_CLANG_TIDY AND PROJECT_IS_TOP_LEVEL)
    file(WRITE ${CMAKE_BINARY_DIR}/.clang-tidy "Checks: '-*,misc-definitions-in-headers'\n")
endif()
