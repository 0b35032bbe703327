# A .deb and a .tar.gz, or a .zip on Windows, in packages/ of the build tree.
set(SNIFFER_MAINTAINER "Velmark <service@velmark.example>"
    CACHE STRING "Who a Debian package names as its maintainer")

set(CPACK_PACKAGE_NAME TavroCordexSniffer)
set(CPACK_PACKAGE_VENDOR Velmark)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/packages")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

if(WIN32)
    set(CPACK_GENERATOR ZIP)
else()
    set(CPACK_GENERATOR DEB TGZ)
    # Components, and where they go, differ by generator.
    set(CPACK_BUILD_TREE "${CMAKE_BINARY_DIR}")
    set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_SOURCE_DIR}/packagelayout.cmake")
    set(CPACK_PACKAGE_FILE_NAME
        "${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}")

    set(CPACK_DEBIAN_PACKAGE_NAME tavro-cordex-sniffer)
    set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${SNIFFER_MAINTAINER}")
    set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
    set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
    # Below the summary, which is the project's description.
    set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
        "Finds the loop drive boards (LDBs) on the serial bus of a voice-alarm
installation, polls them, and shows the mode, loop, earth, amplifier,
voltages and currents of each in tables, lamps and a live plot. Logs what it
sees, reads and writes the settings of the boards, and guides the search for
an open, a short or a leakage.
.
Comes with ldb-simulator, an installation without hardware to train on.")
    # What it links is found by dpkg-shlibdeps; these are looked for at run time: the sound outputs,
    # the texts of Qt's own buttons, and what makes a folder of icons a theme.
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS
        "hicolor-icon-theme, libqt5multimedia5-plugins, qttranslations5-l10n")
    set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_SOURCE_DIR}/debian/conffiles")
    set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
endif()
include(CPack)

# The target "package" wants everything built, tests and benchmarks too; this one only what is
# packed.
add_custom_target(
    packages
    COMMAND ${CMAKE_CPACK_COMMAND} --config "${CMAKE_BINARY_DIR}/CPackConfig.cmake"
    DEPENDS TavroCordexSniffer licenses translations
    WORKING_DIRECTORY "${CMAKE_BINARY_DIR}"
    USES_TERMINAL
    VERBATIM)
if(UNIX)
    add_dependencies(packages debian_changelog ldb-simulator)
endif()
