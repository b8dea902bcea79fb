// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "imageguard_p.h"

#include <QtEndian>

namespace imageguard {

// For the reader of icons and cursors (plugin qico) of Qt 5.15. Its size() is what the directory says, but it allocates
// what a PNG inside says, and as many bytes as the directory says, whatever the file has. Qt 6 has limits of its own.
// The bound counts for the largest width and the largest height of all PNGs together.
bool iconIsBounded(QIODevice& device)
{
    constexpr int headerSize = 6;
    constexpr quint32 iconSignature = 0x00010000;
    constexpr quint32 cursorSignature = 0x00020000;
    constexpr int entrySize = 16;
    constexpr int lengthInEntry = 8;
    constexpr int offsetInEntry = 12;
    const QByteArray header = bytesAt(device, 0, headerSize);
    if (header.size() != headerSize)
        return true;
    const auto signature = qFromLittleEndian<quint32>(header.constData());
    if (signature != iconSignature && signature != cursorSignature)
        return true;
    const int count = qFromLittleEndian<quint16>(header.constData() + 4);
    const QByteArray directory = bytesAt(device, headerSize, count * entrySize);
    QSize largest;
    int chunksLeft = mostChunks; // Of all: each entry may name the same long PNG.
    for (int at = 0; at + entrySize <= directory.size(); at += entrySize) {
        const char* entry = directory.constData() + at;
        if (qFromLittleEndian<quint32>(entry + lengthInEntry) > mostBytes)
            return false;
        const auto size = pngSize(device, qFromLittleEndian<quint32>(entry + offsetInEntry), chunksLeft);
        if (!size)
            return false;
        largest = largest.expandedTo(*size);
    }
    return isOfBoundedSize(largest);
}

} // namespace imageguard
