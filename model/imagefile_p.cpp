// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "imagefile_p.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QtEndian>

namespace imagefile {

namespace {

constexpr qint64 mostBytes = qint64(128) << 20;
constexpr int smallestPixel = 4; // QPixmap keeps four bytes a pixel, whatever the file has.
constexpr int bitsPerByte = 8;
constexpr int mostChunks = 1000000; // Of PNG, in one file.
constexpr int longestPath = 4096;   // In characters. The system opens none; to find that out costs Qt seconds.

bool isOfBoundedSize(const QSize& size, int bytesPerPixel)
{
    return qint64(size.width()) * size.height() <= mostBytes / bytesPerPixel;
}

int bytesPerPixel(QImage::Format format)
{
    const int depth = QImage::toPixelFormat(format).bitsPerPixel();
    return std::max(smallestPixel, depth / bitsPerByte);
}

QByteArray bytesAt(QIODevice& device, qint64 offset, int count)
{
    return device.seek(offset) ? device.read(count) : QByteArray();
}

/// The screen of a GIF, which is what is allocated; QImageReader tells the size of its first frame. What is called a
/// GIF is read as one, whatever its signature, unless it is of another format.
QSize gifScreen(QIODevice& device, bool isCalledGif)
{
    constexpr int signatureSize = 6;
    constexpr int headerSize = signatureSize + 4;
    constexpr int enoughForSignatures = 1024;
    QByteArray header = bytesAt(device, 0, enoughForSignatures);
    QBuffer content(&header);
    content.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&content);
    if (header.size() < headerSize || !(format == "gif" || (isCalledGif && format.isEmpty())))
        return QSize();
    const char* numbers = header.constData() + signatureSize;
    return QSize(qFromLittleEndian<quint16>(numbers), qFromLittleEndian<quint16>(numbers + 2));
}

/// More than any bound: the size of what must not be loaded.
constexpr QSize anySize(std::numeric_limits<int>::max(), std::numeric_limits<int>::max());

/// Whether no chunk of the PNG that starts at \a offset says to be longer than the file, or than a picture may be:
/// libpng takes as much memory before it reads. Pixels are read piece by piece. \a chunksLeft is how many may be
/// looked at; false when they are not enough.
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

/// The size in the header of a PNG that starts at \a offset; invalid when there is none, any size when it takes too
/// much memory in another way.
QSize pngSize(QIODevice& device, qint64 offset, int& chunksLeft)
{
    constexpr int signatureSize = 8;
    constexpr int sizeOffset = signatureSize + 8;
    constexpr int headerSize = sizeOffset + 8;
    const QByteArray header = bytesAt(device, offset, headerSize);
    if (header.size() != headerSize || !header.startsWith("\x89PNG"))
        return QSize();
    if (!hasBoundedChunks(device, offset, chunksLeft))
        return anySize;
    const char* numbers = header.constData() + sizeOffset;
    return QSize(qFromBigEndian<qint32>(numbers), qFromBigEndian<qint32>(numbers + 4));
}

/// The largest PNG among the pictures of an icon or cursor file, or any size when one of them claims too many
/// bytes. QImageReader tells what the icon's directory says, but what is allocated is what the PNG says.
QSize largestIcon(QIODevice& device)
{
    constexpr int headerSize = 6;
    constexpr quint32 iconSignature = 0x00010000;
    constexpr quint32 cursorSignature = 0x00020000;
    constexpr int entrySize = 16;
    constexpr int lengthInEntry = 8;
    constexpr int offsetInEntry = 12;
    const QByteArray header = bytesAt(device, 0, headerSize);
    if (header.size() != headerSize)
        return QSize();
    const auto signature = qFromLittleEndian<quint32>(header.constData());
    if (signature != iconSignature && signature != cursorSignature)
        return QSize();
    const int count = qFromLittleEndian<quint16>(header.constData() + 4);
    const QByteArray directory = bytesAt(device, headerSize, count * entrySize);
    QSize largest;
    int chunksLeft = mostChunks; // Of all: each entry may name the same long PNG.
    for (int entry = 0; entry + entrySize <= directory.size(); entry += entrySize) {
        // Qt takes memory for as many bytes as the directory says, whatever the file has.
        if (qFromLittleEndian<quint32>(directory.constData() + entry + lengthInEntry) > mostBytes)
            return anySize;
        const auto offset = qFromLittleEndian<quint32>(directory.constData() + entry + offsetInEntry);
        largest = largest.expandedTo(pngSize(device, offset, chunksLeft));
    }
    return largest;
}

/// The number of scans in a JPEG, \a file. Finds the markers as libjpeg does, over whatever stands between them.
int jpegScans(const QByteArray& file)
{
    enum Marker : uchar {
        Data = 0x00,
        NoLength = 0x01,
        Restart = 0xd0,
        Start = 0xd8,
        End = 0xd9,
        Scan = 0xda,
        Fill = 0xff
    };
    int scans = 0;
    auto at = file.indexOf('\xff', 2); // Behind the marker at the start.
    while (at != -1 && at + 1 < file.size()) {
        const auto marker = static_cast<uchar>(file.at(at + 1));
        if (marker == Start || marker == End)
            break;
        if (marker == Fill) {
            at += 1;
        } else if (marker == Data || marker == NoLength || (marker >= Restart && marker < Start)) {
            at += 2;
        } else {
            scans += marker == Scan ? 1 : 0;
            const bool hasLength = at + 4 <= file.size();
            at += 2 + (hasLength ? qFromBigEndian<quint16>(file.constData() + at + 2) : 0);
        }
        at = file.indexOf('\xff', at);
    }
    return scans;
}

/// Whether \a device holds no JPEG, or one that does not take too long: a scan costs as much as the whole picture,
/// but takes some 30 bytes in the file.
bool hasBoundedScans(QIODevice& device)
{
    constexpr int mostScans = 32; // Encoders write up to some 20.
    if (bytesAt(device, 0, 2) != "\xff\xd8")
        return true;
    return device.size() <= mostBytes && device.seek(0) && jpegScans(device.readAll()) <= mostScans;
}

/// Whether the file at \a path is within the bounds where Qt's reader tells less than it will take. Looked at before
/// a reader is made: Qt's reader of GIF takes the memory of the whole screen as soon as it is asked for anything,
/// and reads what is named so whatever its signature.
bool hasBoundedHeaders(const QString& path, const char* format)
{
    const bool isCalledGif = QFileInfo(path).suffix().compare(QLatin1String("gif"), Qt::CaseInsensitive) == 0
                             || qstricmp(format, "gif") == 0;
    QFile file(path);
    int chunksLeft = mostChunks;
    return !file.open(QIODevice::ReadOnly)
           || (isOfBoundedSize(gifScreen(file, isCalledGif), smallestPixel)
               && isOfBoundedSize(pngSize(file, 0, chunksLeft), smallestPixel)
               && isOfBoundedSize(largestIcon(file), smallestPixel) && hasBoundedScans(file));
}

/// The files that Qt may open for \a file. On a path without a suffix that does not exist, it tries the suffixes of
/// all formats.
QStringList candidates(const QFileInfo& file)
{
    if (file.exists())
        return {file.filePath()};
    QStringList paths;
    const QList<QByteArray> suffixes = QImageReader::supportedImageFormats();
    for (const QByteArray& suffix : suffixes) {
        const QString path = file.filePath() + QLatin1Char('.') + QString::fromLatin1(suffix);
        if (QFileInfo::exists(path))
            paths << path;
    }
    return paths;
}

} // namespace

bool canBeLoaded(const QString& path, const char* format)
{
    if (path.isEmpty() || path.size() > longestPath)
        return false;
    const QFileInfo file(path);
    const bool isFound = file.exists() || file.completeSuffix().isEmpty();
    if (!isFound)
        return false;
    const QStringList paths = candidates(file);
    const bool mayBeRead = std::all_of(paths.cbegin(), paths.cend(), [format](const QString& candidate) {
        return QFileInfo(candidate).isFile() && hasBoundedHeaders(candidate, format);
    });
    if (!mayBeRead)
        return false;

    QImageReader reader(path, format);
    const QSize size = reader.size();
    // Without a header Qt's reader of JPEG answers a format that it never set.
    return !size.isValid() || isOfBoundedSize(size, bytesPerPixel(reader.imageFormat()));
}

} // namespace imagefile
