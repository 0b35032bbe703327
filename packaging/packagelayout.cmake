# Read by cpack once for each generator: which components it packs, and below which folder.
# The entries of the list are: build tree, project, component, folder.
set(_tree "${CPACK_BUILD_TREE}")
if(CPACK_GENERATOR STREQUAL "DEB")
    set(CPACK_PACKAGING_INSTALL_PREFIX /)
    set(CPACK_INSTALL_CMAKE_PROJECTS
        "${_tree};TavroCordexSniffer;program;/usr"
        "${_tree};TavroCordexSniffer;debian;/")
else()
    set(CPACK_INSTALL_CMAKE_PROJECTS
        "${_tree};TavroCordexSniffer;program;/"
        "${_tree};TavroCordexSniffer;tuning;/"
        "${_tree};TavroCordexSniffer;desktop;/")
endif()
