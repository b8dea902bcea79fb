# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# The major version of the Qt that this project uses, in ZoEffect_HOST_QT: what ZOEFFECT_QT_MAJOR says, else the Qt that
# was found before, else 5. ZoEffect_HOST_QT_KNOWN tells whether one of the first two has said so.
set(ZoEffect_HOST_QT_KNOWN TRUE)
if(ZOEFFECT_QT_MAJOR)
  set(ZoEffect_HOST_QT ${ZOEFFECT_QT_MAJOR})
elseif(TARGET Qt5::Core AND NOT TARGET Qt6::Core)
  set(ZoEffect_HOST_QT 5)
elseif(TARGET Qt6::Core AND NOT TARGET Qt5::Core)
  set(ZoEffect_HOST_QT 6)
elseif(QT_VERSION_MAJOR)
  set(ZoEffect_HOST_QT ${QT_VERSION_MAJOR})
else()
  set(ZoEffect_HOST_QT 5)
  set(ZoEffect_HOST_QT_KNOWN FALSE)
endif()
