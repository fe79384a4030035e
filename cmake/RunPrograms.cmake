# cmake "-DPROGRAMS=a|b" -P RunPrograms.cmake
#
# Runs one program after the other, all of them in any case; fails when one does.
string(REPLACE "|" ";" programs "${PROGRAMS}")
foreach(program IN LISTS programs)
    execute_process(COMMAND ${program} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        list(APPEND failed ${program})
    endif()
endforeach()
if(failed)
    message(FATAL_ERROR "failed: ${failed}")
endif()
