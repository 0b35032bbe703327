# Compiles a source that includes HEADER, once with each include path: with ALLOWED it has to
# succeed, with FORBIDDEN to fail because the header is not found. Their folders are parted by |.
# COMPILER, WORK_FOLDER.
cmake_minimum_required(VERSION 3.16)

# compile(<folders> <variable for the exit status> <variable for what the compiler says>)
function(compile folders status said)
    string(REPLACE "|" ";" folders "${folders}")
    list(TRANSFORM folders PREPEND "-I")
    execute_process(
        COMMAND "${COMPILER}" -std=c++17 -fPIC -fsyntax-only ${folders} "${WORK_FOLDER}/source.cpp"
        RESULT_VARIABLE result ERROR_VARIABLE errors OUTPUT_QUIET)
    set(${status} "${result}" PARENT_SCOPE)
    set(${said} "${errors}" PARENT_SCOPE)
endfunction()

file(WRITE "${WORK_FOLDER}/source.cpp" "#include <${HEADER}>\n")
compile("${ALLOWED}" status said)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${HEADER} does not compile where it may be included:\n${said}")
endif()
compile("${FORBIDDEN}" status said)
if(status EQUAL 0)
    message(FATAL_ERROR "${HEADER} can be included where it must not")
endif()
# g++: "fatal error: NAME: No such file or directory"; clang: "fatal error: 'NAME' file not found"
if(NOT said MATCHES "fatal error: '?${HEADER}(' file not found|: No such file)")
    message(FATAL_ERROR "${HEADER} fails for another reason:\n${said}")
endif()
