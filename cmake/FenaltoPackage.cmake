# Installation and the Debian package.
include(GNUInstallDirs)
install(TARGETS fenalto RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY data/schema data/modello data/ini data/fonts data/icons
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fenalto)
# The guide as the program shows it, with what it refers to.
install(DIRECTORY docs/guida docs/immagini DESTINATION ${CMAKE_INSTALL_DATADIR}/fenalto/help)
install(FILES docs/impostazioni.md docs/modelli.md DESTINATION ${CMAKE_INSTALL_DATADIR}/fenalto/help)
install(FILES data/icons/fenalto.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES data/icons/fenalto.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/128x128/apps)
install(FILES data/fenalto.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)

# The package needs the program alone, not the tests.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME fenalto)
set(CPACK_PACKAGE_CONTACT "Fenalto <fenalto@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Contabilità e gestione per la piccola impresa")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-liberation, qt6-translations-l10n")
set(CPACK_STRIP_FILES ON)
include(CPack)
