# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# The project's own warnings; as errors in the presets, never for those who only build the library.
function(zoeffect_warnings target)
  if(ZOEFFECT_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE
      -Wall -Wextra -Wpedantic -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
    # Built as one, sources see what the others keep to themselves.
    if(NOT CMAKE_UNITY_BUILD)
      target_compile_options(${target} PRIVATE -Wshadow)
    endif()
  endif()
endfunction()

# Qt's headers take longer than most units: compiled once for each library. Left out where nothing asks for it, which
# shows that every unit includes what it needs.
function(zoeffect_precompile target)
  if(ZOEFFECT_BUILD_TESTS OR ZOEFFECT_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()
