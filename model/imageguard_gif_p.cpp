// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "imageguard_p.h"

#include <algorithm>

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

namespace imageguard {

namespace {

constexpr int signatureSize = 6;
constexpr int sizesEnd = signatureSize + 4;
constexpr int headerSize = sizesEnd + 3;
constexpr int mostBlocks = 100000; // In front of the first frame.

int byteAt(QIODevice& device, qint64 offset)
{
    const QByteArray byte = bytesAt(device, offset, 1);
    return byte.isEmpty() ? 0 : quint8(byte.at(0));
}

/// Right and bottom edge of the first frame, as Qt's reader comes to it; an empty size when there is none. Nothing when
/// there is too much in front of it.
std::optional<QSize> firstFrameEnd(QIODevice& device)
{
    constexpr int hasColours = 0x80;
    constexpr int colourBits = 0x07;
    constexpr int bytesPerColour = 3;
    constexpr int frameSize = 9;
    constexpr char frame = ',';
    constexpr char extension = '!';
    constexpr quint8 control = 0xf9;
    constexpr quint8 application = 0xff;

    const int flags = byteAt(device, sizesEnd);
    qint64 at = headerSize;
    if ((flags & hasColours) != 0)
        at += qint64(bytesPerColour) * (2 << (flags & colourBits));
    for (int blocks = 0; blocks < mostBlocks; ++blocks) {
        const QByteArray block = bytesAt(device, at, frameSize);
        if (block.size() == frameSize && block.at(0) == frame) {
            quint16 places[4] = {}; // Left, top, width, height.
            qFromLittleEndian<quint16>(block.constData() + 1, 4, places);
            return QSize(places[0] + places[2], places[1] + places[3]);
        }
        if (block.size() < 2 || block.at(0) != extension)
            return QSize();
        at += 2;
        const auto label = quint8(block.at(1));
        if (label == control || label == application) // Their first block is read even when it is empty.
            at += 1 + byteAt(device, at);
        for (int size = byteAt(device, at); size > 0; size = byteAt(device, at)) {
            at += 1 + size;
            if (++blocks == mostBlocks)
                return std::nullopt;
        }
        ++at;
    }
    return std::nullopt;
}

} // namespace

// For the reader of GIF (plugin qgif) of Qt 5.15. It allocates the whole screen, even to answer size(), which is that
// of the first frame. Instead of a side of the screen that is 0, or that it does not believe beside a small frame, it
// takes the frame's edge. A file that is called a GIF it reads as one, whatever its signature. Qt 6 has a limit of its
// own.
bool gifIsBounded(QIODevice& device, bool isCalledGif)
{
    constexpr int enoughForSignatures = 1024;
    constexpr int believed = 2009; // It believes all sides up to this one.
    QByteArray header = bytesAt(device, 0, enoughForSignatures);
    QBuffer content(&header);
    content.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&content);
    if (header.size() < sizesEnd || !(format == "gif" || (isCalledGif && format.isEmpty())))
        return true;
    const char* sizes = header.constData() + signatureSize;
    const QSize screen(qFromLittleEndian<quint16>(sizes), qFromLittleEndian<quint16>(sizes + 2));
    const std::optional<QSize> end = firstFrameEnd(device);
    const auto taken = [](int side, int edge) { return side == 0 || side > believed ? std::max(side, edge) : side; };
    return isOfBoundedSize(screen) && end
           && isOfBoundedSize(QSize(taken(screen.width(), end->width()), taken(screen.height(), end->height())));
}

} // namespace imageguard
