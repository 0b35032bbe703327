# Compile options that every target of this project takes; third-party headers stay outside them.
# They hold no include path: see sniffer_add_library.
add_library(project_options INTERFACE)
target_compile_definitions(
    project_options
    INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
              QT_NO_URL_CAST_FROM_STRING QT_DEPRECATED_WARNINGS)

if(WIN32)
    # windows.h would make macros of min and max.
    target_compile_definitions(project_options INTERFACE NOMINMAX)
endif()

if(MSVC)
    # Warnings are no errors here: this compiler's set is not what the sources are kept clean of.
    target_compile_options(project_options INTERFACE /W4 /utf-8)
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

# A header precompiled once, for many targets. clang alone lets targets with fewer Qt modules, and
# so with fewer macros, share it.
# sniffer_add_precompiled_headers(name HEADERS ... LINKS ...)
function(sniffer_add_precompiled_headers name)
    cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
    set(source "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
    if(NOT EXISTS "${source}")
        file(WRITE "${source}" "")
    endif()
    add_library(${name} OBJECT "${source}")
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${name} PRIVATE project_options ${ARG_LINKS})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

if(SNIFFER_PCH)
    # Without a time in it, ccache can tell that the header is the same as before.
    target_compile_options(project_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
    sniffer_add_precompiled_headers(
        product_pch
        HEADERS <QByteArray> <QCoreApplication> <QDateTime> <QHash> <QHeaderView> <QLabel> <QMap>
                <QObject> <QPainter> <QPointer> <QSettings> <QString> <QStringList> <QThread>
                <QTimer> <QVariant> <QVector> <QWidget> <algorithm> <memory> <optional> <vector>
        LINKS Qt5::Widgets)
endif()

# Lets a target take the headers precompiled in another one, where they are.
function(sniffer_reuse_precompiled_headers target from)
    if(TARGET ${from})
        target_precompile_headers(${target} REUSE_FROM ${from})
    endif()
endfunction()

# A folder of the build tree with the headers listed and no others, so that an include path can hold
# a part of a source folder. Each is a file of one line that includes the real one: an edit is seen
# at once, and messages name the real file.
# sniffer_make_header_folder(folder header...)
function(sniffer_make_header_folder folder)
    file(GLOB_RECURSE stale "${folder}/*")
    foreach(header IN LISTS ARGN)
        get_filename_component(file "${header}" ABSOLUTE)
        if(NOT EXISTS "${file}")
            message(FATAL_ERROR "There is no header ${file}")
        endif()
        file(RELATIVE_PATH path "${CMAKE_SOURCE_DIR}" "${file}")
        list(REMOVE_ITEM stale "${folder}/${path}")
        # Leaves a file that is right already its time, and who includes it unbuilt.
        file(GENERATE OUTPUT "${folder}/${path}" CONTENT "#include \"${file}\"\n")
    endforeach()
    if(stale)
        file(REMOVE ${stale})
    endif()
endfunction()

# Lets a target include the headers among its own sources, below the name of their folder.
function(sniffer_use_own_headers target)
    get_target_property(headers ${target} SOURCES)
    list(FILTER headers INCLUDE REGEX "\\.h$")
    set(folder "${CMAKE_BINARY_DIR}/include/${target}/private")
    sniffer_make_header_folder("${folder}" ${headers})
    target_include_directories(${target} PRIVATE "${folder}")
endfunction()

# One static library a room. Its public headers are the only way in; its other headers are out of
# reach for everybody else, and so are the headers of what it links for itself (LINKS). What its
# public headers include is handed on (PUBLIC_LINKS).
# The tests of a private unit link <name>_private, which no product code may.
# sniffer_add_library(name SOURCES ... PUBLIC_HEADERS ... [LINKS ...] [PUBLIC_LINKS ...]
#                     [PRECOMPILED test_pch])
function(sniffer_add_library name)
    cmake_parse_arguments(ARG "" "PRECOMPILED" "SOURCES;PUBLIC_HEADERS;LINKS;PUBLIC_LINKS" ${ARGN})
    if(NOT ARG_PRECOMPILED)
        set(ARG_PRECOMPILED product_pch)
    endif()
    set(headers ${ARG_SOURCES})
    list(FILTER headers INCLUDE REGEX "\\.h$")
    foreach(link IN LISTS ARG_LINKS ARG_PUBLIC_LINKS)
        if(link MATCHES "_private$" AND NOT CMAKE_CURRENT_SOURCE_DIR MATCHES "/tests(/|$)")
            message(FATAL_ERROR "${name} links ${link}, which is for tests alone")
        endif()
    endforeach()

    set(public_folder "${CMAKE_BINARY_DIR}/include/${name}/public")
    set(private_folder "${CMAKE_BINARY_DIR}/include/${name}/private")
    sniffer_make_header_folder("${public_folder}" ${ARG_PUBLIC_HEADERS})
    sniffer_make_header_folder("${private_folder}" ${headers})
    if(ARG_SOURCES)
        add_library(${name} STATIC ${ARG_SOURCES} ${ARG_PUBLIC_HEADERS})
        target_link_libraries(${name} PUBLIC project_options ${ARG_PUBLIC_LINKS}
                                      PRIVATE ${ARG_LINKS})
        target_include_directories(${name} PUBLIC "${public_folder}" PRIVATE "${private_folder}")
        sniffer_reuse_precompiled_headers(${name} ${ARG_PRECOMPILED})
    else()
        add_library(${name} INTERFACE)
        target_link_libraries(${name} INTERFACE project_options ${ARG_PUBLIC_LINKS})
        target_include_directories(${name} INTERFACE "${public_folder}")
    endif()

    add_library(${name}_private INTERFACE)
    target_link_libraries(${name}_private INTERFACE ${name} ${ARG_LINKS})
    target_include_directories(${name}_private INTERFACE "${private_folder}")
endfunction()
