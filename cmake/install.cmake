# Install rules and the Debian package: the two programs, the desktop entry,
# the icon in the hicolor sizes and the AppStream metainfo.
include(GNUInstallDirs)

set(KESTRIN_APP_ID org.kestrin.Kestrin)
# The date of the release named by PROJECT_VERSION, for the metainfo.
set(KESTRIN_RELEASE_DATE 2026-11-23)

install(TARGETS kestrin-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

if(KESTRIN_UI)
  install(TARGETS kestrin RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${CMAKE_SOURCE_DIR}/data/${KESTRIN_APP_ID}.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  configure_file(${CMAKE_SOURCE_DIR}/data/${KESTRIN_APP_ID}.metainfo.xml.in
                 ${CMAKE_BINARY_DIR}/data/${KESTRIN_APP_ID}.metainfo.xml @ONLY)
  install(FILES ${CMAKE_BINARY_DIR}/data/${KESTRIN_APP_ID}.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

  # The PNG sizes are drawn from the one SVG at build time.
  set(icon_svg ${CMAKE_SOURCE_DIR}/data/icons/${KESTRIN_APP_ID}.svg)
  find_program(RSVG_CONVERT rsvg-convert REQUIRED)
  set(icon_pngs)
  foreach(size 16 24 32 48 64 128 256)
    set(png ${CMAKE_BINARY_DIR}/icons/${size}x${size}/${KESTRIN_APP_ID}.png)
    add_custom_command(OUTPUT ${png}
                       COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/icons/${size}x${size}
                       COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${png} ${icon_svg}
                       DEPENDS ${icon_svg} VERBATIM)
    list(APPEND icon_pngs ${png})
    install(FILES ${png} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
  add_custom_target(kestrin_icons ALL DEPENDS ${icon_pngs})
  # Also built in, for a program run from its build folder or a desktop
  # without the icon theme.
  qt_add_resources(kestrin_ui kestrin_icons_rc PREFIX /icons BASE ${CMAKE_BINARY_DIR}/icons
                   FILES ${CMAKE_BINARY_DIR}/icons/64x64/${KESTRIN_APP_ID}.png
                         ${CMAKE_BINARY_DIR}/icons/256x256/${KESTRIN_APP_ID}.png)
  install(FILES ${icon_svg} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kestrin)
set(CPACK_PACKAGE_VENDOR "Kestrin")
set(CPACK_PACKAGE_CONTACT "Kestrin developers <kestrin@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "manager's program of a football league played by e-mail")
set(CPACK_PACKAGE_DESCRIPTION "Kestrin shows the manager his clubs, players, fixtures, tables, news and
match reports, takes his orders for the coming week under the game's rules
and writes the turnsheet that goes back to the game's administrator.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt finds its window system plugins at run time, so no library names them.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
include(CPack)

if(KESTRIN_TESTS AND KESTRIN_UI)
  add_test(NAME install_package
           COMMAND ${CMAKE_COMMAND} -DBUILD=${CMAKE_BINARY_DIR} -DWORK=${CMAKE_BINARY_DIR}/install-test
                   -DVERSION=${PROJECT_VERSION} -DAPP_ID=${KESTRIN_APP_ID}
                   -P ${CMAKE_SOURCE_DIR}/tests/install/package.cmake)
endif()
