# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# The project's own warnings; as errors in the presets, never for those who only build the library.
function(zoeffect_warnings target)
  if(ZOEFFECT_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE
      -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
  endif()
endfunction()

# Qt's headers take longer than most units of the libraries: compiled once for each. Left out where only the libraries
# are built, which shows that every unit includes what it needs.
function(zoeffect_precompile target)
  if(ZOEFFECT_BUILD_TESTS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()
