# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# The Debian packages libzoeffect1, libzoeffect-dev and libzoeffect-doc, from the components "runtime", "dev" and "doc".
# What CMake does not build (pages, changelogs, symbols) scripts/package prepares in the folder "packaging" of the build.
# Nothing of it is part of a plain installation.
set(ZOEFFECT_PREPARED ${CMAKE_CURRENT_BINARY_DIR}/packaging)
set(ZOEFFECT_RUNTIME libzoeffect${PROJECT_VERSION_MAJOR})

# zoeffect_document(COMPONENT PACKAGE): what every package says about itself.
function(zoeffect_document component package)
  set(folder ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package})
  install(FILES packaging/copyright ${ZOEFFECT_PREPARED}/changelog.gz ${ZOEFFECT_PREPARED}/changelog.Debian.gz
    DESTINATION ${folder} COMPONENT ${component} EXCLUDE_FROM_ALL)
  if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/packaging/${package}.lintian-overrides)
    install(FILES packaging/${package}.lintian-overrides DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides
      RENAME ${package} COMPONENT ${component} EXCLUDE_FROM_ALL)
  endif()
endfunction()
zoeffect_document(runtime ${ZOEFFECT_RUNTIME})
zoeffect_document(dev libzoeffect-dev)
zoeffect_document(doc libzoeffect-doc)

install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/libzoeffect-dev
  COMPONENT dev EXCLUDE_FROM_ALL PATTERN .clang-tidy EXCLUDE)
install(DIRECTORY ${ZOEFFECT_PREPARED}/html DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/libzoeffect-doc
  COMPONENT doc EXCLUDE_FROM_ALL)
install(FILES packaging/libzoeffect-doc.doc-base DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc-base
  RENAME libzoeffect-doc.libzoeffect-doc COMPONENT doc EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime dev doc)
set(CPACK_PACKAGE_NAME libzoeffect)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The libzoeffect developers <developers@libzoeffect.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${ZOEFFECT_DEBIAN_RELEASE})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(about "libzoeffect keeps the editable effect settings of media files (crop,
watermarks, subtitle and audio tracks, colour, frame effects, audio
effects) for a host application that converts them. Qt signals announce
changed values and lists, geometry follows the size of the video, and a
picture shows the watermarks.")

# zoeffect_package(COMPONENT PACKAGE SECTION SUMMARY TEXT)
macro(zoeffect_package component package section summary text)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n${about}\n\n${text}")
endmacro()

zoeffect_package(runtime ${ZOEFFECT_RUNTIME} libs "effect settings of media files - shared library"
  "This package holds the shared library.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  ${ZOEFFECT_PREPARED}/symbols ${ZOEFFECT_PREPARED}/shlibs ${CMAKE_CURRENT_SOURCE_DIR}/packaging/triggers)

zoeffect_package(dev libzoeffect-dev libdevel "effect settings of media files - headers"
  "This package holds the headers, the CMake package ZoEffect, the pkg-config\nfile zoeffect and the programs of the guide.")
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${ZOEFFECT_RUNTIME} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), qtbase5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS libzoeffect-doc)

zoeffect_package(doc libzoeffect-doc doc "effect settings of media files - guide and reference"
  "This package holds the guide and the reference.")
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)

include(CPack)
