# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Headers, library, CMake package ZoEffect and pkg-config file. What the builds for Qt 5 and Qt 6 have in common
# (headers, ZoEffectConfig.cmake) is the same in both, so that one prefix can hold them.
set(ZOEFFECT_PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/ZoEffect)
set(ZOEFFECT_TARGETS ZoEffectQt${ZOEFFECT_QT_MAJOR}Targets)

install(TARGETS zoeffect EXPORT ${ZOEFFECT_TARGETS} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES
  catalogue/zoeffectcatalogue.h
  defaults/zoeffectitemdefaultvalmgr.h
  log/writelog.h
  model/zoeffectitemdata.h
  model/zoeffectmodel.h
  platform/zopref.h
  ${CMAKE_CURRENT_BINARY_DIR}/include/zoeffect_export.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zoeffect)

install(EXPORT ${ZOEFFECT_TARGETS} NAMESPACE ZoEffect:: DESTINATION ${ZOEFFECT_PACKAGE_FOLDER})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ZoEffectConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  cmake/ZoEffectConfig.cmake
  cmake/ZoEffectHostQt.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/ZoEffectConfigVersion.cmake
  DESTINATION ${ZOEFFECT_PACKAGE_FOLDER})

# The .pc file finds its prefix from its own place, so that the installed tree can be moved.
file(RELATIVE_PATH ZOEFFECT_PC_TO_PREFIX
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH ZOEFFECT_PC_LIBDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH ZOEFFECT_PC_INCLUDEDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(cmake/zoeffect.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${ZOEFFECT_NAME}.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${ZOEFFECT_NAME}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
