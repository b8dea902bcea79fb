// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "imageguard_p.h"

#include <cstring>

#include <QtEndian>

namespace imageguard {

namespace {

/// Whether no chunk of the PNG that starts at \a offset is longer than the file, or than a picture may be, by its own
/// account. Pixels (IDAT) are read piece by piece and do not count. False, too, when \a chunksLeft are not enough.
bool hasBoundedChunks(QIODevice& device, qint64 offset, int& chunksLeft)
{
    constexpr int signatureSize = 8;
    constexpr int lengthSize = 4;
    constexpr int typeSize = 4;
    constexpr int headerSize = lengthSize + typeSize;
    constexpr int checksumSize = 4;
    char header[headerSize] = {};
    const char* type = header + lengthSize;
    qint64 at = offset + signatureSize;
    while (chunksLeft-- > 0) {
        if (!device.seek(at) || device.read(header, headerSize) != headerSize)
            return true;
        const qint64 length = qFromBigEndian<quint32>(header);
        at += headerSize + length + checksumSize;
        if (std::memcmp(type, "IEND", typeSize) == 0)
            return true;
        const bool isPixels = std::memcmp(type, "IDAT", typeSize) == 0;
        if (!isPixels && (length > mostBytes || at > device.size()))
            return false;
    }
    return false;
}

} // namespace

std::optional<QSize> pngSize(QIODevice& device, qint64 offset, int& chunksLeft)
{
    constexpr int signatureSize = 8;
    constexpr int sizeOffset = signatureSize + 8;
    constexpr int headerSize = sizeOffset + 8;
    const QByteArray header = bytesAt(device, offset, headerSize);
    if (header.size() != headerSize || !header.startsWith("\x89PNG"))
        return QSize();
    if (!hasBoundedChunks(device, offset, chunksLeft))
        return std::nullopt;
    const char* size = header.constData() + sizeOffset;
    return QSize(qFromBigEndian<qint32>(size), qFromBigEndian<qint32>(size + 4));
}

// For the reader of PNG of Qt 5.15 and Qt 6.4, both on libpng: it allocates a chunk as long as the chunk says before it
// reads it, even to answer size().
bool pngIsBounded(QIODevice& device)
{
    int chunksLeft = mostChunks;
    const std::optional<QSize> size = pngSize(device, 0, chunksLeft);
    return size && isOfBoundedSize(*size);
}

} // namespace imageguard
