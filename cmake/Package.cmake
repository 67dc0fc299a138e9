# One Debian package with everything that is installed. The program `pack` makes it with CPack.

# The end of the version tells the releases of Debian apart, and sorts packages like the releases. Debian's unstable
# has no number.
cmake_host_system_information(RESULT distribution QUERY DISTRIB_ID)
cmake_host_system_information(RESULT release QUERY DISTRIB_VERSION_ID)
set(package_version ${PROJECT_VERSION})
if(distribution STREQUAL "debian" AND release)
  string(APPEND package_version "~deb${release}")
endif()

set(changelog ${CMAKE_BINARY_DIR}/changelog.gz)
add_custom_command(
  OUTPUT ${changelog}
  COMMAND sed "1s/(.*)/(${package_version})/" ${PROJECT_SOURCE_DIR}/packaging/debian/changelog |
    gzip --best --no-name --stdout > ${changelog}
  DEPENDS packaging/debian/changelog
  VERBATIM)
add_custom_target(changelog ALL DEPENDS ${changelog})
install(FILES ${changelog} packaging/debian/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/mireval)
install(FILES packaging/debian/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME mireval)

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME mireval)
set(CPACK_PACKAGE_VERSION ${package_version})
set(CPACK_PACKAGE_CONTACT "The Mireval authors <authors@mireval.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/StripComments.cmake)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Nearly everything in it is compressed already.
set(CPACK_DEBIAN_COMPRESSION_TYPE gzip)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_PACKAGE_DESCRIPTION
"Click the icon, pick one of four modes (focus, tempo, creative, relaxation),
and music plays, on and on, until you quit. There are sixteen tracks for each
mode, in a new order at each start; all of them were composed for Mireval.
.
It needs neither an account nor the network.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded by name, so dpkg-shlibdeps does not find them.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qml6-module-qtqml-workerscript, qml6-module-qtquick-shapes")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk, pulseaudio | pipewire-pulse, qt6-wayland")
include(CPack)
