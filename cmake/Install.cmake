# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Headers, library, CMake package ZoEffect and zoeffect.pc. Component "runtime" is what a host needs to run, "dev" what
# it takes to build one.
set(ZOEFFECT_PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/ZoEffect)

install(TARGETS zoeffect EXPORT ZoEffectTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev)
install(FILES
  catalogue/zoeffectcatalogue.h
  defaults/zoeffectitemdefaultvalmgr.h
  log/writelog.h
  model/zoeffectitemdata.h
  model/zoeffectmodel.h
  platform/zopref.h
  ${CMAKE_CURRENT_BINARY_DIR}/include/zoeffect_export.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zoeffect COMPONENT dev)

install(EXPORT ZoEffectTargets NAMESPACE ZoEffect:: DESTINATION ${ZOEFFECT_PACKAGE_FOLDER} COMPONENT dev)
configure_package_config_file(cmake/ZoEffectConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/ZoEffectConfig.cmake
  INSTALL_DESTINATION ${ZOEFFECT_PACKAGE_FOLDER})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ZoEffectConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/ZoEffectConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/ZoEffectConfigVersion.cmake
  DESTINATION ${ZOEFFECT_PACKAGE_FOLDER} COMPONENT dev)

# The .pc file finds its prefix from its own place, so that the installed tree can be moved.
file(RELATIVE_PATH ZOEFFECT_PC_TO_PREFIX
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH ZOEFFECT_PC_LIBDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH ZOEFFECT_PC_INCLUDEDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(cmake/zoeffect.pc.in ${CMAKE_CURRENT_BINARY_DIR}/zoeffect.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zoeffect.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
