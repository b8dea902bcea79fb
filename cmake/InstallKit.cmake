# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# The kit beside the library: headers, the component Kit of the CMake package, pkg-config file. Headers have a folder of
# their own, so that who links the library alone finds none of the kit's.
set(ZOEFFECT_KIT_TARGETS ZoEffectQt${ZOEFFECT_QT_MAJOR}KitTargets)

install(TARGETS zoeffectkit EXPORT ${ZOEFFECT_KIT_TARGETS} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
get_target_property(headers zoeffectkit SOURCES)
list(FILTER headers INCLUDE REGEX "^zokit/.*\\.h$")
install(FILES ${headers} ${CMAKE_CURRENT_BINARY_DIR}/include/zokit/zokit_export.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zoeffect-kit/zokit)
install(EXPORT ${ZOEFFECT_KIT_TARGETS} NAMESPACE ZoEffect:: DESTINATION ${ZOEFFECT_PACKAGE_FOLDER})
configure_file(${PROJECT_SOURCE_DIR}/cmake/zoeffectkit.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${ZOEFFECT_KIT_NAME}.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${ZOEFFECT_KIT_NAME}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
