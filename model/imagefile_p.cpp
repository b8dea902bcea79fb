// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "imagefile_p.h"

#include <algorithm>

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

#include "imageguard_p.h"

namespace imagefile {

namespace {

constexpr int bitsPerByte = 8;
constexpr int longestPath = 4096; // In characters. No file has such a path; to find that out takes Qt seconds.

int bytesPerPixel(QImage::Format format)
{
    const int depth = QImage::toPixelFormat(format).bitsPerPixel();
    return std::max(imageguard::smallestPixel, depth / bitsPerByte);
}

/// Whether all guards let the file at \a path pass. Asked before there is a reader: Qt 5.15's reader of GIF takes its
/// memory as soon as it is asked for a size.
bool passesGuards(const QString& path, const char* format)
{
    const bool isCalledGif = QFileInfo(path).suffix().compare(QLatin1String("gif"), Qt::CaseInsensitive) == 0
                             || qstricmp(format, "gif") == 0;
    QFile file(path);
    return !file.open(QIODevice::ReadOnly)
           || (imageguard::gifIsBounded(file, isCalledGif) && imageguard::pngIsBounded(file)
               && imageguard::iconIsBounded(file) && imageguard::jpegIsBounded(file));
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
        return QFileInfo(candidate).isFile() && passesGuards(candidate, format);
    });
    if (!mayBeRead)
        return false;

    // For every reader that tells the size in its file. Qt 5.15 allocates any size, Qt 6 as much as the host's
    // QImageReader::allocationLimit() says.
    QImageReader reader(path, format);
    const QSize size = reader.size();
    // Without a header Qt's reader of JPEG answers a format that it never set.
    return !size.isValid() || imageguard::isOfBoundedSize(size, bytesPerPixel(reader.imageFormat()));
}

} // namespace imagefile
