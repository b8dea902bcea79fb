#include "canvas_p.h"

#include <cstdlib>
#include <utility>

#include <QGuiApplication>
#include <QImage>

namespace {

constexpr int largestSide = 32767;
constexpr qint64 largestArea = qint64(1) << 28;
constexpr int bytesPerPixel = 4;

bool canBePaintedOn(const QSize& size)
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) && !size.isEmpty()
           && size.width() <= largestSide && size.height() <= largestSide
           && qint64(size.width()) * size.height() <= largestArea;
}

} // namespace

// Memory that comes zeroed is transparent already: filling it again would take most of the time of a picture. A QPixmap
// that found no memory does not tell, either.
QPixmap transparentCanvas(const QSize& size)
{
    if (!canBePaintedOn(size))
        return QPixmap();
    const int bytesPerLine = size.width() * bytesPerPixel;
    void* pixels = std::calloc(static_cast<std::size_t>(size.height()), static_cast<std::size_t>(bytesPerLine));
    if (!pixels)
        return QPixmap();
    return QPixmap::fromImage(QImage(static_cast<uchar*>(pixels), size.width(), size.height(), bytesPerLine,
                                     QImage::Format_ARGB32_Premultiplied, std::free, pixels));
}
