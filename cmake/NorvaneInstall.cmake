# Installation in the usual Linux layout and the Debian package (cpack -G DEB).
# The installed programs find their data in ../share/norvane beside bin/.
include(GNUInstallDirs)

set(NORVANE_PACKAGING_DIR ${PROJECT_SOURCE_DIR}/packaging)
set(NORVANE_APP_ID org.norvane.Norvane)
set(NORVANE_SHARE ${CMAKE_INSTALL_DATADIR}/norvane)

install(TARGETS norvane-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET norvane)
  install(TARGETS norvane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
# Relocations resolved at start and then made read-only, as Debian builds its programs.
foreach(program norvane-cli norvane)
  if(TARGET ${program})
    target_link_options(${program} PRIVATE -Wl,-z,relro,-z,now)
  endif()
endforeach()

# Everything in data/ that the programs read at run time, in one rule: the
# tables compiled into the programs (*.inc) and the sources they are made
# from stay behind, and the element files (NAME_YYYY-MM-DD.EXT) go to the
# examples folder.
set(NORVANE_ELEMENT_FILE_PATTERN "*_[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9].*")
install(DIRECTORY ${NORVANE_DATA_DIR}/ DESTINATION ${NORVANE_SHARE}
        PATTERN sources EXCLUDE
        PATTERN "*.inc" EXCLUDE
        PATTERN "${NORVANE_ELEMENT_FILE_PATTERN}" EXCLUDE)
file(GLOB element_files CONFIGURE_DEPENDS ${NORVANE_DATA_DIR}/${NORVANE_ELEMENT_FILE_PATTERN})
install(FILES ${element_files} DESTINATION ${NORVANE_SHARE}/examples)

# Manual pages and completion, made by cli/'s make_docs from the command table.
# The pages name the data folder, so they are made again for the prefix the
# installation really uses (cpack installs into /usr).
set(installed_docs ${PROJECT_BINARY_DIR}/docs-installed)
install(CODE "
  file(MAKE_DIRECTORY \"${installed_docs}\")
  execute_process(COMMAND \"$<TARGET_FILE:make_docs>\" \"${installed_docs}\" ${PROJECT_VERSION}
                          \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/norvane\" COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND gzip -9nf \"${installed_docs}/norvane.1\" \"${installed_docs}/norvane-cli.1\"
                  COMMAND_ERROR_IS_FATAL ANY)")
install(FILES ${installed_docs}/norvane-cli.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${NORVANE_DOCS_DIR}/norvane-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
if(TARGET norvane)
  install(FILES ${installed_docs}/norvane.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

  # Desktop entry, icons and AppStream metadata.
  install(FILES ${NORVANE_PACKAGING_DIR}/${NORVANE_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${NORVANE_PACKAGING_DIR}/icons/norvane.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  foreach(size 16 22 24 32 48 64 128 256)
    install(FILES ${NORVANE_PACKAGING_DIR}/icons/${size}x${size}/norvane.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
  configure_file(${NORVANE_PACKAGING_DIR}/${NORVANE_APP_ID}.metainfo.xml.in
                 ${PROJECT_BINARY_DIR}/packaging/${NORVANE_APP_ID}.metainfo.xml @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/packaging/${NORVANE_APP_ID}.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()

# Debian's documentation files: the copyright and the changelog.
execute_process(COMMAND date -u -R -d "${NORVANE_RELEASE_DATE} 00:00:00 UTC"
                OUTPUT_VARIABLE NORVANE_RELEASE_CHANGELOG_DATE OUTPUT_STRIP_TRAILING_WHITESPACE)
configure_file(${NORVANE_PACKAGING_DIR}/changelog.in ${PROJECT_BINARY_DIR}/packaging/changelog @ONLY)
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/packaging/changelog.gz
                   COMMAND gzip -9nkf ${PROJECT_BINARY_DIR}/packaging/changelog
                   DEPENDS ${PROJECT_BINARY_DIR}/packaging/changelog)
add_custom_target(changelog ALL DEPENDS ${PROJECT_BINARY_DIR}/packaging/changelog.gz)
install(FILES ${NORVANE_PACKAGING_DIR}/copyright ${PROJECT_BINARY_DIR}/packaging/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/norvane)

# The Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME norvane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Norvane developers <developers@norvane.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "satellite tracker for radio amateurs and satellite watchers")
# The long description; CPack puts the summary above it and indents each line.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Norvane shows where satellites are for an observer on the ground, now or at
a simulated time. It reads two-line element sets, propagates them with the
SGP4/SDP4 and SGP8/SDP8 models and shows an information page, an Earth map,
a sky view with stars and planets, an orbit view and a GPS page. It predicts
passes and Iridium flares, downloads current element sets and follows a GPS
receiver on a serial port or through gpsd.

The command-line tool norvane-cli runs the same computations in scripts.")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://norvane.org/")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The runtime libraries the programs link, as dpkg-shlibdeps finds them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "gpsd")
set(CPACK_STRIP_FILES ON)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
