# Compile options that every target of this project takes; third-party headers stay outside them.
add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_definitions(
    project_options
    INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
              QT_NO_URL_CAST_FROM_STRING QT_DEPRECATED_WARNINGS)

if(MSVC)
    target_compile_options(project_options INTERFACE /W4 /WX /utf-8)
else()
    target_compile_options(project_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion
                                                     -Wshadow -Werror)
endif()

if(SNIFFER_SANITIZE)
    target_compile_options(project_options INTERFACE -fsanitize=address,undefined
                                                     -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
    target_link_options(project_options INTERFACE -fsanitize=address,undefined)
endif()

if(SNIFFER_FUZZ)
    target_compile_options(project_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                     -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
    target_link_options(project_options INTERFACE -fsanitize=address,undefined)
endif()

if(SNIFFER_COVERAGE)
    target_compile_options(project_options INTERFACE --coverage)
    target_link_options(project_options INTERFACE --coverage)
endif()

# One static library a folder: a wrong arrow between the layers does not link.
function(sniffer_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC project_options ${ARG_LINKS})
endfunction()
