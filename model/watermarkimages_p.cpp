// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "watermarkimages_p.h"

#include <algorithm>
#include <utility>

#include <QCache>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

#include "canvas_p.h"
#include "imagefile_p.h"
#include "modelevents_p.h"

namespace {

constexpr int opaque = 255;

int kilobytesOf(const QPixmap& image)
{
    constexpr qint64 bytesOfPixel = 4;
    constexpr qint64 kilobyte = 1024;
    return static_cast<int>(bytesOfPixel * image.width() * image.height() / kilobyte) + 1;
}

template <typename Change>
QPixmap changed(QImage pixels, Change change)
{
    for (int row = 0; row < pixels.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(pixels.scanLine(row));
        std::transform(line, line + pixels.width(), line, change);
    }
    return QPixmap::fromImage(std::move(pixels));
}

QRgb colorWith(QRgb pixel, int alpha)
{
    return qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), alpha);
}

QPixmap withAlpha(const QImage& colors, int alpha, OwnAlpha ownAlpha)
{
    if (ownAlpha == OwnAlpha::Replaced)
        return changed(colors, [alpha](QRgb pixel) { return colorWith(pixel, alpha); });
    return changed(colors,
                   [alpha](QRgb pixel) { return colorWith(pixel, (qAlpha(pixel) * alpha + opaque / 2) / opaque); });
}

} // namespace

struct WatermarkImages::Memory {
    /// A file as it was when it was decoded, and what came of it.
    struct Decoded {
        QDateTime modified;
        qint64 size;
        QByteArray format;
        QPixmap image;
    };

    /// An image with the alpha that it was last given.
    struct Shown {
        int alpha;
        OwnAlpha ownAlpha;
        QPixmap image;
    };

    static constexpr int decodedKilobytes = 64 * 1024;
    static constexpr int shownKilobytes = 32 * 1024;

    QCache<QString, Decoded> decoded{decodedKilobytes};
    /// By the cache key of the image, which stands for its content: no other, and not this one after a change, has it
    /// again.
    QCache<qint64, Shown> shown{shownKilobytes};
    /// The colours of the image that was last given another alpha, which may go on changing.
    QImage colors;
    qint64 colorsOf = 0; // The cache key of that image.
};

WatermarkImages::WatermarkImages() : m_memory(std::make_shared<Memory>()) {}

std::shared_ptr<WatermarkImages> WatermarkImages::forCopy() const
{
    auto copy = std::make_shared<WatermarkImages>();
    copy->m_memory = m_memory;
    return copy;
}

QPixmap* WatermarkImages::load(const QString& path, const char* format)
{
    const QString name = QDir::toNativeSeparators(path);
    const auto known = m_loaded.find(name);
    if (known != m_loaded.end())
        return &known->second;

    const QPixmap image = decoded(path, format);
    if (image.isNull()) {
        modelevents::log(ModelEvent::ImageNotLoaded);
        m_unreadable = QPixmap();
        return &m_unreadable;
    }
    return &m_loaded.emplace(name, image).first->second;
}

// Not by QPixmap::load(), which puts each image into QPixmapCache and so pushes out what the host keeps there.
QPixmap WatermarkImages::decoded(const QString& path, const char* format)
{
    const QFileInfo file(path);
    const QString name = file.absoluteFilePath();
    const QDateTime modified = file.lastModified(); // Before it is read: what changes meanwhile is decoded anew.
    const Memory::Decoded* known = m_memory->decoded.object(name);
    if (known && file.isFile() && known->modified == modified && known->size == file.size() && known->format == format)
        return known->image;

    if (!canvas::hasPixmaps() || !imagefile::canBeLoaded(path, format))
        return QPixmap();
    const QPixmap image = QPixmap::fromImage(QImageReader(path, format).read());
    if (!image.isNull() && file.isFile())
        m_memory->decoded.insert(name, new Memory::Decoded{modified, file.size(), format, image}, kilobytesOf(image));
    return image;
}

QPixmap WatermarkImages::shown(const QPixmap& image, int alpha, OwnAlpha ownAlpha)
{
    const int uniform = alpha >= 0 && alpha <= opaque ? alpha : 0;
    const qint64 content = image.cacheKey();
    const Memory::Shown* known = m_memory->shown.object(content);
    if (known && known->alpha == uniform && known->ownAlpha == ownAlpha)
        return known->image;
    m_memory->shown.remove(content); // Its memory serves for the next one.
    if (m_memory->colorsOf != content) {
        m_memory->colors = image.toImage().convertToFormat(QImage::Format_ARGB32);
        m_memory->colorsOf = content;
    }
    const QPixmap made = withAlpha(m_memory->colors, uniform, ownAlpha);
    m_memory->shown.insert(content, new Memory::Shown{uniform, ownAlpha, made}, kilobytesOf(made));
    return made;
}

void WatermarkImages::forget(const QString& path)
{
    m_loaded.erase(QDir::toNativeSeparators(path));
    m_memory->decoded.remove(QFileInfo(path).absoluteFilePath());
}

void WatermarkImages::forgetAll()
{
    m_loaded.clear();
    m_memory = std::make_shared<Memory>();
}
