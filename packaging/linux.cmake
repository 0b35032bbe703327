# The program in a Unix desktop: starters on the path, menu entry, icons, the simulated installation.
install(PROGRAMS linux/tavro-cordex-sniffer DESTINATION bin COMPONENT program)
install(TARGETS ldb-simulator RUNTIME DESTINATION bin COMPONENT program)
install(FILES "${CMAKE_SOURCE_DIR}/simulator/README.md" DESTINATION ${PROGRAM_FOLDER}/scenarios
        COMPONENT program)
install(DIRECTORY "${CMAKE_SOURCE_DIR}/simulator/scenarios" DESTINATION ${PROGRAM_FOLDER}
        COMPONENT program)

foreach(side 16 22 24 32 48 64 128 256)
    install(FILES "${CMAKE_SOURCE_DIR}/resources/appicon/${side}.png"
            DESTINATION share/icons/hicolor/${side}x${side}/apps
            RENAME tavro-cordex-sniffer.png
            COMPONENT program)
endforeach()

# The starter finds the working directory by itself, so that this entry holds wherever the tree is
# unpacked with its bin/ on the path and its share/ among the desktop's folders, as in ~/.local.
set(DESKTOP_PATH_LINE)
configure_file(linux/tavro-cordex-sniffer.desktop.in portable/tavro-cordex-sniffer.desktop @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/portable/tavro-cordex-sniffer.desktop"
        DESTINATION share/applications COMPONENT desktop)

# What stands elsewhere in a Debian package: an engineer edits the tuning file, so it belongs to
# /etc, where an upgrade leaves the edits alone. Destinations are relative to the root of the system.
set(DESKTOP_PATH_LINE "Path=/usr/${PROGRAM_FOLDER}\n")
configure_file(linux/tavro-cordex-sniffer.desktop.in debian/tavro-cordex-sniffer.desktop @ONLY)
set(tuning_folder etc/tavro-cordex-sniffer)
set(doc_folder usr/share/doc/tavro-cordex-sniffer)
set(tuning_link "${CMAKE_CURRENT_BINARY_DIR}/debian/settings.ini")
file(CREATE_LINK /${tuning_folder}/settings.ini "${tuning_link}" SYMBOLIC)
file(STRINGS debian/changelog latest_change LIMIT_COUNT 1)
if(NOT latest_change MATCHES "\\(${PROJECT_VERSION}-")
    message(FATAL_ERROR "packaging/debian/changelog says nothing of version ${PROJECT_VERSION}")
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS debian/changelog)
set(changelog "${CMAKE_CURRENT_BINARY_DIR}/debian/changelog.Debian.gz")
add_custom_command(
    OUTPUT "${changelog}"
    COMMAND gzip -9n < "${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog" > "${changelog}"
    DEPENDS debian/changelog)
add_custom_target(debian_changelog DEPENDS "${changelog}")

install(FILES "${CMAKE_SOURCE_DIR}/settings.ini" DESTINATION ${tuning_folder}
        COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES "${tuning_link}" DESTINATION usr/${PROGRAM_FOLDER}
        COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/debian/tavro-cordex-sniffer.desktop"
        DESTINATION usr/share/applications
        COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES debian/copyright "${changelog}" DESTINATION ${doc_folder}
        COMPONENT debian EXCLUDE_FROM_ALL)
