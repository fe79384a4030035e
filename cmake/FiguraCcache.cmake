# A parent project chooses its own launcher; and one named on the command line wins.
if(NOT PROJECT_IS_TOP_LEVEL OR DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    return()
endif()

find_program(FIGURA_CCACHE ccache)
mark_as_advanced(FIGURA_CCACHE)

if(FIGURA_CCACHE)
    set(launcher_environment
        # Without this leniency ccache refuses every file that uses a precompiled header.
        CCACHE_SLOPPINESS=pch_defines,time_macros
        # What one clone of this tree has compiled, another one need not.
        CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
    )
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env ${launcher_environment}
                                    ${FIGURA_CCACHE}
    )
endif()
