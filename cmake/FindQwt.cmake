# Finds Qwt 6 built for Qt 5 and gives the target Qwt::Qwt.
find_path(QWT_INCLUDE_DIR qwt_plot.h PATH_SUFFIXES qwt qwt-qt5 qt5/qwt qwt6)
find_library(QWT_LIBRARY NAMES qwt-qt5 qwt6-qt5 qwt)
if(WIN32)
    # Its classes are imported from the DLL, unless Qwt was built as a static library.
    find_file(QWT_DLL_FILE qwt.dll PATH_SUFFIXES bin lib)
endif()

if(QWT_INCLUDE_DIR AND EXISTS "${QWT_INCLUDE_DIR}/qwt_global.h")
    file(STRINGS "${QWT_INCLUDE_DIR}/qwt_global.h" _qwt_version_line
         REGEX "#define[ \t]+QWT_VERSION_STR")
    string(REGEX REPLACE ".*\"([0-9.]+)\".*" "\\1" QWT_VERSION "${_qwt_version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt REQUIRED_VARS QWT_LIBRARY QWT_INCLUDE_DIR
                                  VERSION_VAR QWT_VERSION)

if(Qwt_FOUND AND NOT TARGET Qwt::Qwt)
    add_library(Qwt::Qwt UNKNOWN IMPORTED)
    set_target_properties(Qwt::Qwt PROPERTIES IMPORTED_LOCATION "${QWT_LIBRARY}"
                                              INTERFACE_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}")
    target_link_libraries(Qwt::Qwt INTERFACE Qt5::Widgets)
    if(QWT_DLL_FILE)
        target_compile_definitions(Qwt::Qwt INTERFACE QWT_DLL)
    endif()
endif()
