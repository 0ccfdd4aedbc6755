# Installing Tavlero as a desktop program, and its Debian package.
#
# Both programs read tavlero.cfg beside their own file. They are installed into a folder
# of their own under lib/, reached from bin/ by links, and the tavlero.cfg there is a link
# to the one in the system's configuration folder, where an administrator expects it.
include(GNUInstallDirs)

set(TAVLERO_PROGRAM_DIR ${CMAKE_INSTALL_LIBDIR}/tavlero)
set(TAVLERO_DOC_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/tavlero)
install(TARGETS tavlero tavlero-cli tavlero-cli-picture RUNTIME DESTINATION ${TAVLERO_PROGRAM_DIR})
# Decided at install time, so that "cmake --install --prefix /usr" and the package put the
# settings into /etc, and any other prefix into its own etc/.
install(CODE "
  set(root \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
  if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
    set(etc /etc/tavlero)
  else()
    set(etc \"\${CMAKE_INSTALL_PREFIX}/etc/tavlero\")
  endif()
  file(INSTALL \"${PROJECT_SOURCE_DIR}/data/tavlero.cfg\" DESTINATION \"\${etc}\")
  file(MAKE_DIRECTORY \"\${root}/${CMAKE_INSTALL_BINDIR}\")
  foreach(program tavlero tavlero-cli)
    file(CREATE_LINK \"../${TAVLERO_PROGRAM_DIR}/\${program}\" \"\${root}/${CMAKE_INSTALL_BINDIR}/\${program}\" SYMBOLIC)
  endforeach()
  file(CREATE_LINK \"\${etc}/tavlero.cfg\" \"\${root}/${TAVLERO_PROGRAM_DIR}/tavlero.cfg\" SYMBOLIC)
")

install(FILES data/tavlero.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/tavlero.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES data/tavlero.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 16 24 32 48 64 128 256)
  install(FILES data/icons/tavlero-${size}.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
          RENAME tavlero.png)
endforeach()
install(FILES data/tavlero.1 data/tavlero-cli.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(DIRECTORY examples/ DESTINATION ${TAVLERO_DOC_DIR}/examples)
install(FILES README.md docs/screenshot.png DESTINATION ${TAVLERO_DOC_DIR} OPTIONAL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tavlero)
set(CPACK_PACKAGE_VENDOR "Tavlero")
set(CPACK_PACKAGE_CONTACT "Tavlero <tavlero@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "plan the methods of a program on a board before it is written")
set(CPACK_PACKAGE_DESCRIPTION "Tavlero lays out the planned methods of a program as cells on a board, joined
by links, keeps the plan in a .tvl project file and hands it on as text, HTML,
pictures (also SVG and PDF from tavlero-cli) and print-outs.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# The settings file lies outside the prefix, so the package is staged with DESTDIR.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The board's fonts must measure as Arial does, or cells take other sizes; the window
# needs the platform plugins, which no library we link names.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation, qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "cups-client")
# The settings file is the administrator's; an upgrade must not overwrite their edits.
file(WRITE ${CMAKE_BINARY_DIR}/debian/conffiles "/etc/tavlero/tavlero.cfg\n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_BINARY_DIR}/debian/conffiles)
include(CPack)
