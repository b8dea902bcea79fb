# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# The kit for Qt Quick beside the kit: headers, the component KitQuick of the CMake package, pkg-config file; and the QML
# module, where Debian's Qt looks for modules when the prefix is /usr.
set(ZOEFFECT_KITQUICK_TARGETS ZoEffectQt${ZOEFFECT_QT_MAJOR}KitQuickTargets)

install(TARGETS zoeffectkitquick EXPORT ${ZOEFFECT_KITQUICK_TARGETS} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
get_target_property(headers zoeffectkitquick SOURCES)
list(FILTER headers INCLUDE REGEX "^zokitquick/.*\\.h$")
install(FILES ${headers} ${CMAKE_CURRENT_BINARY_DIR}/include/zokitquick/zokitquick_export.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zoeffect-kitquick/zokitquick)
install(EXPORT ${ZOEFFECT_KITQUICK_TARGETS} NAMESPACE ZoEffect:: DESTINATION ${ZOEFFECT_PACKAGE_FOLDER})
get_target_property(ZOEFFECT_KIT_NAME zoeffectkit OUTPUT_NAME)
configure_file(${PROJECT_SOURCE_DIR}/cmake/zoeffectkitquick.pc.in
  ${CMAKE_CURRENT_BINARY_DIR}/${ZOEFFECT_KITQUICK_NAME}.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${ZOEFFECT_KITQUICK_NAME}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(ZOEFFECT_INSTALLED_MODULE ${CMAKE_INSTALL_LIBDIR}/qt${ZOEFFECT_QT_MAJOR}/qml/${ZOEFFECT_MODULE_FOLDER})
install(TARGETS zoeffectkitplugin LIBRARY DESTINATION ${ZOEFFECT_INSTALLED_MODULE})
install(FILES module/qmldir module/plugins.qmltypes DESTINATION ${ZOEFFECT_INSTALLED_MODULE})
