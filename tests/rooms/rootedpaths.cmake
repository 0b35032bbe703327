# Includes are written from the root of the sources, or name a file beside. SOURCE_TREE.
cmake_minimum_required(VERSION 3.16)

set(checked 0)
foreach(folder app benchmarks docs fuzz importexport resources serial simulator tests tracking views)
    file(GLOB_RECURSE files "${SOURCE_TREE}/${folder}/*.h" "${SOURCE_TREE}/${folder}/*.cpp"
         "${SOURCE_TREE}/${folder}/*.ui")
    foreach(file IN LISTS files)
        file(STRINGS "${file}" found REGEX "(#include [\"<]|<header[^>]*>)(/|[^\">]*\\.\\./)")
        if(found)
            message(SEND_ERROR "${file}: ${found}")
        endif()
        math(EXPR checked "${checked} + 1")
    endforeach()
endforeach()
if(checked LESS 100)
    message(FATAL_ERROR "Only ${checked} files were found below ${SOURCE_TREE}")
endif()
