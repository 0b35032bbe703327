# Compile options that every target of this project takes; third-party headers stay outside them.
add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE "${CMAKE_SOURCE_DIR}")
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

# One static library a folder: a wrong arrow between the layers does not link.
# sniffer_add_library(name SOURCES ... LINKS ... [PRECOMPILED test_pch])
function(sniffer_add_library name)
    cmake_parse_arguments(ARG "" "PRECOMPILED" "SOURCES;LINKS" ${ARGN})
    if(NOT ARG_PRECOMPILED)
        set(ARG_PRECOMPILED product_pch)
    endif()
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC project_options ${ARG_LINKS})
    sniffer_reuse_precompiled_headers(${name} ${ARG_PRECOMPILED})
endfunction()
