# The licence texts of the libraries go into licenses/ beside the program: the system's own copies,
# so that they fit the libraries that are linked.
set(licenses_folder "${CMAKE_BINARY_DIR}/app/licenses")

if(UNIX)
    set(_doc /usr/share/doc)
    set(_texts /usr/share/common-licenses)
    # NAME=FILE; the copyright files refer to the four common texts.
    set(_default_license_files
        Qt.txt=${_doc}/libqt5core5a/copyright
        QtSerialPort.txt=${_doc}/libqt5serialport5/copyright
        QtMultimedia.txt=${_doc}/libqt5multimedia5/copyright
        Qwt.txt=${_doc}/libqwt-qt5-6/copyright
        LGPL-2.1.txt=${_texts}/LGPL-2.1
        LGPL-3.txt=${_texts}/LGPL-3
        GPL-2.txt=${_texts}/GPL-2
        GPL-3.txt=${_texts}/GPL-3)
endif()
set(SNIFFER_LICENSE_FILES "${_default_license_files}"
    CACHE STRING "Licence texts of the libraries that are handed out: NAME=FILE;NAME=FILE...")

set(license_copies)
foreach(entry IN LISTS SNIFFER_LICENSE_FILES)
    string(REGEX MATCH "^([^=]+)=(.+)$" _ "${entry}")
    set(name "${CMAKE_MATCH_1}")
    set(file "${CMAKE_MATCH_2}")
    if(NOT EXISTS "${file}")
        message(WARNING "The licence text ${file} is not there; see docs/building.md before the "
                        "program is handed out.")
        continue()
    endif()
    add_custom_command(
        OUTPUT "${licenses_folder}/${name}"
        COMMAND ${CMAKE_COMMAND} -E copy "${file}" "${licenses_folder}/${name}"
        DEPENDS "${file}"
        VERBATIM)
    list(APPEND license_copies "${licenses_folder}/${name}")
endforeach()
if(NOT license_copies)
    message(WARNING "SNIFFER_LICENSE_FILES names no licence text; see docs/building.md.")
endif()

add_custom_target(licenses ALL DEPENDS ${license_copies})
