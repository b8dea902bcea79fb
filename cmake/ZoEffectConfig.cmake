# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# Finds the build of the library for the Qt that the host uses. The builds for Qt 5 and Qt 6 install this file alike,
# and each its own targets: ZoEffectQt5Targets.cmake, and ZoEffectQt5NAMETargets.cmake for a component NAME.

# zoeffect_not_found(SENTENCE): to be followed by return().
macro(zoeffect_not_found sentence)
  set(ZoEffect_FOUND FALSE)
  set(ZoEffect_NOT_FOUND_MESSAGE "${sentence}")
endmacro()

include("${CMAKE_CURRENT_LIST_DIR}/ZoEffectHostQt.cmake")
set(ZoEffect_OTHER_QT 6)
if(ZoEffect_HOST_QT EQUAL 6)
  set(ZoEffect_OTHER_QT 5)
endif()
if(NOT EXISTS "${CMAKE_CURRENT_LIST_DIR}/ZoEffectQt${ZoEffect_HOST_QT}Targets.cmake"
    AND EXISTS "${CMAKE_CURRENT_LIST_DIR}/ZoEffectQt${ZoEffect_OTHER_QT}Targets.cmake")
  if(ZoEffect_HOST_QT_KNOWN)
    zoeffect_not_found("This project uses Qt ${ZoEffect_HOST_QT}, and ZoEffect is installed there for Qt \
${ZoEffect_OTHER_QT} only. Install its build for Qt ${ZoEffect_HOST_QT}, or set ZOEFFECT_QT_MAJOR to \
${ZoEffect_OTHER_QT}.")
    return()
  endif()
  message(STATUS "ZoEffect is installed for Qt ${ZoEffect_OTHER_QT} only: taking that")
  set(ZoEffect_HOST_QT ${ZoEffect_OTHER_QT})
endif()

set(ZoEffect_QT_VERSION_5 5.15)
set(ZoEffect_QT_VERSION_6 6.4)
include(CMakeFindDependencyMacro)
find_dependency(Qt${ZoEffect_HOST_QT} ${ZoEffect_QT_VERSION_${ZoEffect_HOST_QT}} COMPONENTS Core Gui)
include("${CMAKE_CURRENT_LIST_DIR}/ZoEffectQt${ZoEffect_HOST_QT}Targets.cmake")

# The kit for Qt Quick brings the kit.
set(ZoEffect_components ${ZoEffect_FIND_COMPONENTS})
if("KitQuick" IN_LIST ZoEffect_components
    AND EXISTS "${CMAKE_CURRENT_LIST_DIR}/ZoEffectQt${ZoEffect_HOST_QT}KitQuickTargets.cmake")
  find_dependency(Qt${ZoEffect_HOST_QT} ${ZoEffect_QT_VERSION_${ZoEffect_HOST_QT}} COMPONENTS Quick)
  list(PREPEND ZoEffect_components Kit)
  list(REMOVE_DUPLICATES ZoEffect_components)
endif()
foreach(ZoEffect_component IN LISTS ZoEffect_components)
  include("${CMAKE_CURRENT_LIST_DIR}/ZoEffectQt${ZoEffect_HOST_QT}${ZoEffect_component}Targets.cmake"
    OPTIONAL RESULT_VARIABLE ZoEffect_${ZoEffect_component}_FOUND)
  if(NOT ZoEffect_${ZoEffect_component}_FOUND AND ZoEffect_FIND_REQUIRED_${ZoEffect_component})
    zoeffect_not_found("ZoEffect has no component ${ZoEffect_component} installed there for Qt ${ZoEffect_HOST_QT}.")
  endif()
endforeach()
