// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/message.h>
#include <zokit/settings.h>

namespace zokit {

/// The key under which the item at \a pos of \a type names a file: an image, subtitles, sound. Empty when it names
/// none.
QString fileKey(const TypeSettings& type, int pos);
/// The file that the item at \a pos of \a type names, when it is not there; else an empty message.
Message missingFile(const TypeSettings& type, int pos);

} // namespace zokit
