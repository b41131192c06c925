# What is installed beside the program, and the Debian package of it all: `./dev package`.
include(GNUInstallDirs)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)

# Debian compresses what it reads with man and zless; without the time in it two builds give the same bytes.
function(install_compressed source name destination)
    set(compressed ${PROJECT_BINARY_DIR}/packaging/${name}.gz)
    add_custom_command(
        OUTPUT ${compressed}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/packaging
        COMMAND gzip -9 --no-name --stdout ${source} > ${compressed}
        DEPENDS ${source}
        VERBATIM)
    add_custom_target(compressed_${name} ALL DEPENDS ${compressed})
    install(FILES ${compressed} DESTINATION ${destination})
endfunction()

install(TARGETS pingwell)
install(FILES ${packaging}/com.pingwell.mac.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/com.pingwell.mac.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY ${packaging}/icons/ DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${packaging}/debian/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/pingwell)
install_compressed(${packaging}/man/pingwell.1 pingwell.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_compressed(${packaging}/debian/changelog changelog ${CMAKE_INSTALL_DATADIR}/doc/pingwell)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pingwell)
set(CPACK_PACKAGE_CONTACT "The Pingwell authors <pingwell@pingwell.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Desktop client that brings you the questions of AI agents")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://pingwell.example")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Pingwell lives in the status area of the desktop. It asks its server for
alerts that AI agents posted, shows how many of them wait for an answer,
raises notifications that can be answered from the banner, and sends the
answers back to the agents.
.
The server is the managed service or one of your own. The session's token is
kept in the desktop's keyring.")
# What is linked is found by itself. What is loaded at run time is not: the parts of Qt Quick that the screens import,
# and the plugin that draws SVG.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
string(JOIN ", " CPACK_DEBIAN_PACKAGE_DEPENDS
    libqt6svg6
    qml6-module-qtqml
    qml6-module-qtqml-models
    qml6-module-qtqml-workerscript
    qml6-module-qtquick
    qml6-module-qtquick-templates
    qml6-module-qtquick-window)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "gnome-keyring | kwalletmanager, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-inter")
include(CPack)
