// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What can be told of an image file before it is decoded.
namespace imagefile {

/// Whether QPixmap may load the image at \a path, whose \a format may be null. False for what is no regular file,
/// which could block for ever, for a picture of more than 128 MB decoded, and for a file that imageguard refuses. A
/// file that is no image at all passes: loading it fails by itself.
bool canBeLoaded(const QString& path, const char* format);

} // namespace imagefile
