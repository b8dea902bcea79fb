// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QIODevice>
#include <QSize>

/// Guards before Qt's image readers, one for each format whose reader takes more memory or time than its size() tells.
/// Each stands in imageguard_FORMAT_p.cpp, which names the reader and the versions of Qt that need it; all run with
/// every Qt, so that the same files are refused. A file of another format passes.
namespace imageguard {

constexpr qint64 mostBytes = qint64(128) << 20; // Of a picture as decoded; also Qt 6's limit, if the host keeps it.
constexpr int smallestPixel = 4;                // QPixmap keeps four bytes a pixel, whatever the file has.

/// Whether a picture of \a size takes no more than mostBytes.
inline bool isOfBoundedSize(const QSize& size, int bytesPerPixel = smallestPixel)
{
    return qint64(size.width()) * size.height() <= mostBytes / bytesPerPixel;
}

/// Up to \a count bytes from \a offset.
inline QByteArray bytesAt(QIODevice& device, qint64 offset, int count)
{
    return device.seek(offset) ? device.read(count) : QByteArray();
}

/// \a isCalledGif: whether the file's suffix or the caller says so.
bool gifIsBounded(QIODevice& device, bool isCalledGif);
bool pngIsBounded(QIODevice& device);
/// Icons (ICO) and cursors (CUR).
bool iconIsBounded(QIODevice& device);
bool jpegIsBounded(QIODevice& device);

/// The chunks of PNGs that may be looked at in one file.
constexpr int mostChunks = 1000000;

/// The size in the header of a PNG that starts at \a offset, in a file of its own or inside an icon; an invalid size
/// when there is no PNG. Nothing when it takes too much memory or time: \a chunksLeft counts down.
std::optional<QSize> pngSize(QIODevice& device, qint64 offset, int& chunksLeft);

} // namespace imageguard
