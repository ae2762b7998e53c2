# The installable package: the program, its desktop entry and icon, and the rule that opens the HID channel to the user.
include(GNUInstallDirs)
install(TARGETS quillon RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS quillon_chart LIBRARY DESTINATION $<IF:$<BOOL:${WIN32}>,bin,lib/quillon>)
install(FILES packaging/quillon.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES resources/icons/app.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME quillon.svg)
install(FILES packaging/60-r47.rules DESTINATION lib/udev/rules.d)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillon)
set(CPACK_PACKAGE_VENDOR Quillon)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Control application of the R47 audio interface")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Quillon developers <quillon@example.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is used at run time only, so that no linker sees it: a plugin, the library that reads archives, and the authorities that updates
# are checked against.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, libarchive13, ca-certificates")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
