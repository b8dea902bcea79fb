// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "logos.h"

#include <algorithm>

#include <QPainter>
#include <QTemporaryDir>

namespace {

constexpr int left = 40;
constexpr int top = 60;
constexpr int shownWidth = 320;

QSize shownSize(const QImage& image)
{
    return QSize(shownWidth, shownWidth * image.height() / image.width());
}

QImage roundLogo(const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const double across = 2.0 * x / size.width() - 1;
            const double down = 2.0 * y / size.height() - 1;
            const double alpha = std::clamp((1.0 - across * across - down * down) * 8, 0.0, 1.0);
            line[x] = qRgba(x % 256, y % 256, 255 - x % 256, static_cast<int>(alpha * 255));
        }
    }
    return image;
}

std::vector<Logo> madeLogos()
{
    struct Kind {
        const char* name = nullptr;
        QSize size;
    };
    static const Kind kinds[] = {{"0.5 MB", QSize(400, 320)}, {"2 MB", QSize(800, 640)}, {"8 MB", QSize(1600, 1250)}};
    static const QTemporaryDir folder;

    std::vector<Logo> made;
    for (const Kind& kind : kinds) {
        Logo logo{kind.name, roundLogo(kind.size), folder.filePath(QStringLiteral("%1.png").arg(kind.size.width()))};
        if (!logo.image.save(logo.file, "png"))
            qFatal("a logo cannot be written");
        made.push_back(logo);
    }
    return made;
}

} // namespace

const std::vector<Logo>& logos()
{
    static const std::vector<Logo> all = madeLogos();
    return all;
}

void fillWithLogo(ZoEffectModel& model, const Logo& logo, const QSize& frame)
{
    const QString type = QStringLiteral("Watermark");
    const QSize size = shownSize(logo.image);
    model.setVideoSize(frame.width(), frame.height());
    model.addDataItem(type, {{QStringLiteral("wm_imageurl"), logo.file},
                             {QStringLiteral("wm_imageformat"), QStringLiteral("png")},
                             {QStringLiteral("wm_imagewidth"), size.width()},
                             {QStringLiteral("wm_imageheight"), size.height()},
                             {QStringLiteral("wm_hposition"), left},
                             {QStringLiteral("wm_vposition"), top}});
}

// A pixmap holds colours multiplied with their alpha, so that some come back from it a little different.
PlainLogo::PlainLogo(const Logo& logo, double factor, int transparency)
    : m_decoded(QPixmap::fromImage(logo.image).toImage().convertToFormat(QImage::Format_ARGB32))
{
    const QSize size = shownSize(logo.image);
    const auto times = [factor](int value) { return static_cast<int>(value * factor); };
    m_rect = QRectF(times(left), times(top), times(size.width()), times(size.height()));
    setTransparency(transparency);
}

void PlainLogo::setTransparency(int transparency)
{
    const auto alpha = static_cast<QRgb>((100 - transparency) * 2.55);
    constexpr QRgb colors = 0x00ffffff;
    constexpr int alphaBits = 24;
    m_shown = QPixmap(); // Makes room for the next one.
    QImage image = m_decoded;
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(line, line + image.width(), line,
                       [alpha](QRgb pixel) { return (pixel & colors) | (alpha << alphaBits); });
    }
    m_shown = QPixmap::fromImage(std::move(image));
}

QPixmap PlainLogo::paint(const QSize& frame) const
{
    QPixmap canvas(frame);
    canvas.fill(QColor(0, 0, 0, 0));
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.drawPixmap(m_rect, m_shown, QRectF(m_shown.rect()));
    return canvas;
}
