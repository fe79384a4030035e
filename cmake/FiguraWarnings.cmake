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
