# The Debian package. `cpack -G DEB` in a build folder makes sonoptic_<version>-1_<arch>.deb from this
# build: the two programs in /usr/bin, and with the windows the desktop entry, the icons at every size
# a desktop's icon theme looks for and the AppStream metadata that software centres read. The package's
# dependencies are computed by dpkg-shlibdeps from the libraries the programs link, so they follow the
# build and are never written out by hand.
include(GNUInstallDirs)

# SONOPTIC_APP_ID (set at the top) names the desktop entry, the icon files and the metadata
# component: AppStream links the metadata to the desktop entry by it, and the entry finds its icon by it.
# The sizes of the fixed-size icon folders that desktops look in under hicolor/.
set(SONOPTIC_ICON_SIZES 16 22 24 32 48 64 128 256)

if(SONOPTIC_GUI)
  # The icons are drawn at build time by tools/make_bitmaps' make_icons, from the same drawing as the
  # About box's bitmap, each size drawn anew rather than scaled from another.
  set(icon_root ${CMAKE_BINARY_DIR}/packaging/icons)
  set(icon_files "")
  foreach(size IN LISTS SONOPTIC_ICON_SIZES)
    set(icon ${icon_root}/${size}x${size}/apps/${SONOPTIC_APP_ID}.png)
    list(APPEND icon_files ${icon})
    install(FILES ${icon} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
  add_custom_command(OUTPUT ${icon_files}
    COMMAND make_icons ${icon_root} ${SONOPTIC_APP_ID} ${SONOPTIC_ICON_SIZES}
    DEPENDS make_icons
    COMMENT "Drawing the program's icons")
  add_custom_target(sonoptic_icons ALL DEPENDS ${icon_files})

  configure_file(${CMAKE_CURRENT_LIST_DIR}/sonoptic.desktop.in
                 ${CMAKE_BINARY_DIR}/packaging/${SONOPTIC_APP_ID}.desktop @ONLY)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/sonoptic.metainfo.xml.in
                 ${CMAKE_BINARY_DIR}/packaging/${SONOPTIC_APP_ID}.metainfo.xml @ONLY)
  install(FILES ${CMAKE_BINARY_DIR}/packaging/${SONOPTIC_APP_ID}.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${CMAKE_BINARY_DIR}/packaging/${SONOPTIC_APP_ID}.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sonoptic)
set(CPACK_PACKAGE_VENDOR "Sonoptic maintainers")
set(CPACK_PACKAGE_CONTACT "Sonoptic maintainers <maintainers@users.noreply.c-seed-c2fb326f.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "workbench for the OpenAL Effects Extension (EFX)")
# The long description, wrapped for Debian's 80 columns.
string(CONCAT CPACK_PACKAGE_DESCRIPTION
    "Sonoptic lets a sound designer or an audio programmer hear what OpenAL's\n"
    "EFX does and shape it live: up to four auxiliary effect slots, each holding\n"
    "one of thirteen effect types with every parameter on a knob; up to 128 3D\n"
    "sources playing WAV files, with filters and sends into the slots; and the\n"
    "listener. sonoptic-render renders a WAV file through a saved preset from\n"
    "the command line.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# Binaries go in stripped, as in any Debian package; the build folder keeps the debug information.
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
