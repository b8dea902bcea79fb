// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "imageguard_p.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

namespace imageguard {

// For the reader of GIF (plugin qgif) of Qt 5.15. It allocates the whole screen, even to answer size(), which is that
// of the first frame. A file that is called a GIF it reads as one, whatever its signature. Qt 6 has a limit of its own.
bool gifIsBounded(QIODevice& device, bool isCalledGif)
{
    constexpr int signatureSize = 6;
    constexpr int headerSize = signatureSize + 4;
    constexpr int enoughForSignatures = 1024;
    QByteArray header = bytesAt(device, 0, enoughForSignatures);
    QBuffer content(&header);
    content.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&content);
    if (header.size() < headerSize || !(format == "gif" || (isCalledGif && format.isEmpty())))
        return true;
    const char* screen = header.constData() + signatureSize;
    return isOfBoundedSize(QSize(qFromLittleEndian<quint16>(screen), qFromLittleEndian<quint16>(screen + 2)));
}

} // namespace imageguard
