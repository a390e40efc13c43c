# Writes what ctest includes for one test program: an entry for each of its suites. Run by cmake -P once the program is
# built, with PROGRAM, PREFIX, PROPERTIES (as set_tests_properties takes them) and OUTPUT.
execute_process(COMMAND ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "(^|\n)[A-Za-z_][^ \n]*\\.[ \n]" suites "${listing}")
set(entries "")
foreach(line ${suites})
    string(REGEX REPLACE "[ \n]|\\.[ \n]$" "" suite "${line}")
    string(APPEND entries "add_test([=[${PREFIX}${suite}]=] [=[${PROGRAM}]=] [=[--gtest_filter=${suite}.*]=])\n"
        "set_tests_properties([=[${PREFIX}${suite}]=] PROPERTIES ${PROPERTIES})\n")
endforeach()
if(NOT entries)
    message(FATAL_ERROR "${PROGRAM} has no tests")
endif()
file(WRITE ${OUTPUT} "${entries}")
