# SPDX-License-Identifier: MIT

# Where `cmake --install` puts the program, its menu entry, its software-center page and its icon.
# The base name of the last three is Constants::bundleIdentifier.
set(SABLEQUILL_IDENTIFIER io.github.sablequill.Sablequill)

install(TARGETS sablequill DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "packaging/${SABLEQUILL_IDENTIFIER}.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "packaging/${SABLEQUILL_IDENTIFIER}.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(FILES "resources/icon/${SABLEQUILL_IDENTIFIER}.svg"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
